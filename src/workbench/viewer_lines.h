#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// How a text is cut into lines: at each `Separator`, or where that is empty every `Width` bytes.
struct LineRule {
    std::string Separator;
    int Width = 32;
};

/// Rows and columns of a text that can be scrolled to: the scroll bars count no further.
inline constexpr int kMostViewerCells = 32767;

/// The rule of entry `index` of `Anchos` (-1 for free text `text`), for a file of type `mode`
/// while `VerAsc` stands on `basicView`.
LineRule LineRuleOf(int index, const std::string& text, int mode, int basicView);

/// A text cut at a separator. Lines that no scroll bar reaches are counted, not kept.
struct ViewedLines {
    std::vector<std::string_view> Lines;  ///< parts of the text that was cut
    std::int64_t Count = 0;               ///< of all lines; an empty text has none
    int Longest = 0;                      ///< bytes of the longest line, as far as columns count
    std::string Separator;                ///< the one that it was cut at; empty: nothing was cut
};

/// `text`, which must outlive the result, cut at `separator`, which is not empty.
ViewedLines CutIntoLines(std::string_view text, const std::string& separator);

}  // namespace brindlemoor
