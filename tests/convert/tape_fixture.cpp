#include "convert/tape_fixture.h"

#include "convert/cas.h"
#include "core/platform.h"

namespace brindlemoor::test {

void TapeTest::SetUp() {
    DiskTest::SetUp();
    script_.Answers = {Answer::Ok};
    script_.OnMessage = [this](const ShownMessage&) {
        if (script_.Answers.empty()) script_.Answers = {Answer::Ok};
    };
}

CasResult TapeTest::Cas(const std::string& data, const std::string& name, std::int16_t type,
                        std::int16_t asciiFlag, std::int16_t gapFlag) {
    const std::string given = data;
    CasResult result;
    result.Name = name;
    result.Data = CasConvert(data, result.Name, type, asciiFlag, gapFlag, 0, 0);
    result.Type = type;
    result.AsciiFlag = asciiFlag;
    result.GapFlag = gapFlag;
    EXPECT_EQ(data, given);
    return result;
}

std::string Leader(std::size_t count) {
    return std::string(count, '\x55');
}

std::string TapeBlock(int type, const std::string& body) {
    unsigned sum = static_cast<unsigned>(type) + static_cast<unsigned>(body.size());
    for (const char byte : body) sum += static_cast<unsigned char>(byte);
    return "\x55\x3C" + std::string(1, static_cast<char>(type)) +
           std::string(1, static_cast<char>(body.size())) + body +
           std::string(1, static_cast<char>(sum)) + "\x55";
}

std::string NameBody(const std::string& name, int type, int ascii, int gap,
                     const std::string& fields) {
    std::string body = (name + "        ").substr(0, 8);
    for (const int value : {type, ascii, gap}) body += static_cast<char>(value);
    return body + fields;
}

std::string WholeTape(const std::string& nameBody, const std::string& contents) {
    std::string tape = Leader() + TapeBlock(0, nameBody) + Leader();
    for (std::size_t at = 0; at < contents.size(); at += 255) {
        tape += TapeBlock(1, contents.substr(at, 255));
    }
    return tape + TapeBlock(0xFF, "");
}

std::string Counting(std::size_t count, unsigned start) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(start + i);
    return bytes;
}

std::vector<std::string> BlocksOf(const std::string& stream) {
    std::vector<std::string> blocks;
    for (std::size_t at = stream.find("\x55\x3C"); at != std::string::npos;
         at = stream.find("\x55\x3C", at)) {
        if (at + 4 > stream.size()) break;
        const std::size_t size = static_cast<unsigned char>(stream[at + 3]) + 5U;
        blocks.push_back(stream.substr(at, size));
        if (blocks.back()[2] == '\xFF') break;
        at += size;
    }
    return blocks;
}

}  // namespace brindlemoor::test
