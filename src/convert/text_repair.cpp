#include "convert/text_repair.h"

#include <algorithm>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

constexpr int kMarkedText = 239;
constexpr int kHighBit = 0x80;

}  // namespace

std::string& StripHighBits(std::string& text) {
    if (ByteOr(text, 0, 0) != kMarkedText) return text;
    const auto isMarked = [](char byte) { return (byte & kHighBit) != 0; };
    const auto lines = std::count_if(text.begin(), text.end(), isMarked);
    std::string mended;
    mended.reserve(text.size() + static_cast<std::size_t>(lines));
    for (const char byte : text) {
        mended += static_cast<char>(byte & ~kHighBit);
        if (isMarked(byte)) mended += '\r';
    }
    text = std::move(mended);
    return text;
}

std::string ChangeLineEnds(const std::string& text) {
    const bool toCr = text.find("\r\n") != std::string::npos;
    return toCr ? ReplaceText(text, "\r\n", "\r") : ReplaceText(text, "\r", "\r\n");
}

}  // namespace brindlemoor
