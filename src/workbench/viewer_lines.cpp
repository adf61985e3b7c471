#include "workbench/viewer_lines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"

namespace brindlemoor {

namespace {

constexpr int kUsualWidth = 32;
constexpr int kWholeWidth = 32000;  ///< of "Todo"

/// Beyond the rows that the scroll bar reaches, enough for the tallest pane.
constexpr std::size_t kLinesKept = kMostViewerCells + 32768;

enum WidthEntry : int { kAuto, kCarriageReturn, kCarriageReturnLineFeed, kZeroByte, kWhole };

LineRule Separated(std::string separator) {
    return {std::move(separator), kUsualWidth};
}

LineRule TypedWidth(const std::string& text) {
    const double typed = std::min(TypedNumber(text), static_cast<double>(kMostViewerCells));
    const int width = WholeNumber16(std::max(typed, 0.0));
    return {"", width > 0 ? width : kUsualWidth};
}

}  // namespace

LineRule LineRuleOf(int index, const std::string& text, int mode, int basicView) {
    constexpr int kTokens = 1;
    switch (index) {
        case kAuto: {
            const bool isText = mode == 1 || (mode == 0 && basicView != kTokens);
            return isText ? Separated("\r") : LineRule{"", kUsualWidth};
        }
        case kCarriageReturn:
            return Separated("\r");
        case kCarriageReturnLineFeed:
            return Separated("\r\n");
        case kZeroByte:
            return Separated(std::string(1, '\0'));
        case kWhole:
            return {"", kWholeWidth};
        default:
            return TypedWidth(text);
    }
}

ViewedLines CutIntoLines(std::string_view text, const std::string& separator) {
    ViewedLines cut;
    cut.Separator = separator;
    if (text.empty()) return cut;
    std::size_t longest = 0;
    std::size_t start = 0;
    while (true) {
        const std::size_t found = text.find(separator, start);
        const std::size_t end = found == std::string_view::npos ? text.size() : found;
        longest = std::max(longest, end - start);
        ++cut.Count;
        if (cut.Lines.size() < kLinesKept) cut.Lines.push_back(text.substr(start, end - start));
        if (found == std::string_view::npos) break;
        start = found + separator.size();
    }
    cut.Longest = static_cast<int>(std::min<std::size_t>(longest, kMostViewerCells));
    return cut;
}

}  // namespace brindlemoor
