#pragma once

#include <string>
#include <vector>

namespace brindlemoor::test {

/// The words of a machine as its token tables print them, eight a row: the place in the list is
/// the token less 0x80.
const std::vector<std::string>& PrintedCommands(bool coco);
const std::vector<std::string>& PrintedFunctions(bool coco);

/// What a conversion gives: its result, and every message that it shows, in order.
struct ModelResult {
    std::string Bytes;
    std::vector<std::string> Messages;
};

/// The two conversions once more, in the plainest form: one byte after the other, every word of a
/// list after the other. The text of message 27 is taken as "Position: ". `cancel` gives up at the
/// first wrong token. Neither takes a length field or a number that fails.
ModelResult ModelToText(const std::string& data, bool addLineFeed, bool cancel);

/// An empty result where the conversion would fail.
std::string ModelToTokens(std::string text, bool coco);

}  // namespace brindlemoor::test
