#pragma once

#include <string>

namespace brindlemoor {

/// Mends a text whose lines end in a byte with bit 7 set, known by its first byte, 239 ("o" with
/// bit 7): each such byte loses the bit and gets a CR behind it. Any other text stays. Changes
/// `text` and returns it.
std::string& StripHighBits(std::string& text);

/// `text` with every CR made CR LF; or, when it holds a CR LF, with every CR LF made CR, where a CR
/// alone stays.
std::string ChangeLineEnds(const std::string& text);

}  // namespace brindlemoor
