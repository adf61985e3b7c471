#include "convert/basic_fixture.h"

#include "convert/basic.h"
#include "core/disk_state.h"

namespace brindlemoor::test {

namespace {

std::string PairOf(std::size_t value) {
    return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
}

}  // namespace

void BasicTest::SetUp() {
    DiskTest::SetUp();
    Disk.Messages.assign(161, "another message");
    Disk.Messages[27] = "Position: ";
    script_.Answers = {Answer::Ok};
    script_.OnMessage = [this](const ShownMessage&) {
        if (script_.Answers.empty()) script_.Answers = {Answer::Ok};
    };
}

void BasicTest::GiveUpAtErrors() {
    script_.OnMessage = nullptr;
    script_.Answers.clear();
}

std::string BasicTest::Text(std::string data, bool addLineFeed) {
    return BasicConvert(data, addLineFeed);
}

std::string BasicTest::Tokens(const std::string& text, int family) {
    Disk.DiskFamily = static_cast<std::uint16_t>(family);
    std::string data = text;
    std::string tokens = BasicConvert(data, false);
    EXPECT_EQ(data, text);
    return tokens;
}

std::string Hex(const std::string& digits) {
    std::string bytes;
    std::string pair;
    for (const char digit : digits) {
        if (digit == ' ') continue;
        pair += digit;
        if (pair.size() < 2) continue;
        bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
        pair.clear();
    }
    EXPECT_EQ(pair, "") << digits;
    return bytes;
}

std::string TokenLine(int number, const std::string& body) {
    return "\x26\x10" + PairOf(static_cast<std::size_t>(number)) + body + std::string(1, '\0');
}

std::string CocoFile(const std::string& lines) {
    return "\xFF" + PairOf(lines.size() + 2) + lines + std::string(2, '\0');
}

std::string DragonFile(const std::string& lines) {
    return "\x55\x01\x24\x01" + PairOf(lines.size() + 2) + "\x8B\x8D\xAA" + lines +
           std::string(2, '\0');
}

std::vector<ProgramLine> LinesOf(const std::string& file, std::size_t header) {
    const auto pairAt = [&file](std::size_t at) {
        return static_cast<unsigned char>(file.at(at)) * 256 +
               static_cast<unsigned char>(file.at(at + 1));
    };
    std::vector<ProgramLine> lines;
    std::size_t at = header;
    while (at + 2 <= file.size() && pairAt(at) != 0) {
        const std::size_t end = file.find('\0', at + 4);
        if (end == std::string::npos) break;
        lines.push_back({pairAt(at), pairAt(at + 2), file.substr(at + 4, end - at - 4), end + 1});
        at = end + 1;
    }
    return lines;
}

}  // namespace brindlemoor::test
