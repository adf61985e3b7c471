// Both directions of the conversion over many programs: against a plain model, cut at every byte,
// and there and back.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "convert/basic.h"
#include "convert/basic_fixture.h"
#include "convert/basic_model.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

constexpr unsigned kSeed = 20261121;

class BasicRoundTripTest : public BasicTest {
  protected:
    /// Has `data`, a file in tokens, become text, and compares with the model: once for a user who
    /// goes on at errors, once for one who gives up.
    void CompareText(const std::string& data, bool addLineFeed = false) {
        for (const bool cancel : {false, true}) {
            script_.Messages.clear();
            script_.Answers = {cancel ? Answer::Cancel : Answer::Ok};
            script_.OnMessage = [this, cancel](const ShownMessage&) {
                if (script_.Answers.empty()) {
                    script_.Answers = {cancel ? Answer::Cancel : Answer::Ok};
                }
            };
            const ModelResult model = ModelToText(data, addLineFeed, cancel);
            ASSERT_EQ(Text(data, addLineFeed), model.Bytes) << testing::PrintToString(data);
            ASSERT_EQ(Shown(), model.Messages) << testing::PrintToString(data);
        }
    }

    /// The same for a text, on both machines.
    static void CompareTokens(const std::string& text) {
        for (const int family : {kDecb, kDragon}) {
            std::string tokens;
            const int failure = FailureOf([&] { tokens = Tokens(text, family); });
            ASSERT_EQ(tokens, ModelToTokens(text, family == kDecb)) << testing::PrintToString(text);
            ASSERT_EQ(failure, tokens.empty() ? kOverflow : 0);
        }
    }
};

std::string RandomBytes(std::mt19937& random, std::size_t length) {
    std::string bytes;
    while (bytes.size() < length) bytes += static_cast<char>(random());
    return bytes;
}

/// Bytes that mean something in a program more often than chance would have them.
std::string RandomBody(std::mt19937& random, std::size_t length) {
    static const std::string kMarked("\x00\x0D\x3A\x83\x84\xFF\xFE\xF8\xA8", 9);
    std::string bytes = RandomBytes(random, length);
    for (char& byte : bytes) {
        if (random() % 3 == 0) byte = kMarked[random() % kMarked.size()];
    }
    return bytes;
}

TEST_F(BasicRoundTripTest, EveryFileOfOneByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string data(1, static_cast<char>(byte));
        if (byte == 0xFF || byte == 0x55) {
            CompareText(data);
        } else {
            CompareTokens(data);
        }
    }
}

TEST_F(BasicRoundTripTest, EveryFileOfTwoBytes) {
    for (int pair = 0; pair < 65536; ++pair) {
        const std::string data = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        if (pair >> 8 == 0xFF || pair >> 8 == 0x55) {
            CompareText(data);
        } else {
            CompareTokens(data);
        }
        if (HasFatalFailure()) return;
    }
}

TEST_F(BasicRoundTripTest, AnyBytesAsTokens) {
    std::mt19937 random(kSeed);
    for (int round = 0; round < 3000 && !HasFatalFailure(); ++round) {
        const std::string lines = RandomBody(random, random() % 120);
        CompareText(CocoFile(lines), round % 2 == 0);
        CompareText(DragonFile(lines), round % 2 == 0);
        CompareText("\x55" + lines);
        CompareText("\xFF" + std::string(1, static_cast<char>(random() % 128)) + lines);
    }
}

TEST_F(BasicRoundTripTest, AnyBytesAsText) {
    std::mt19937 random(kSeed);
    for (int round = 0; round < 2000 && !HasFatalFailure(); ++round) {
        CompareTokens("1" + RandomBytes(random, random() % 200));
    }
}

TEST_F(BasicRoundTripTest, TextsOfWordsCutAnywhere) {
    std::mt19937 random(kSeed);
    static const std::string kMarks = "\"\":'? \r\n\r,0129ABFX";
    for (int round = 0; round < 2000 && !HasFatalFailure(); ++round) {
        std::string text = std::to_string(random() % 33000) + " ";
        for (int piece = 0; piece < 60; ++piece) {
            const bool coco = random() % 2 == 0;
            const auto& words = random() % 2 == 0 ? PrintedCommands(coco) : PrintedFunctions(coco);
            const std::string& word = words[random() % words.size()];
            if (random() % 2 == 0) text += word.substr(0, random() % (word.size() + 2));
            if (random() % 8 == 0) text += random() % 2 == 0 ? "REM" : "DATA";
            if (random() % 2 == 0) text += kMarks[random() % kMarks.size()];
        }
        CompareTokens(text);
    }
}

TEST_F(BasicRoundTripTest, AProgramCutAtEveryByte) {
    const std::string lines = TokenLine(10, Hex("82 20 41")) + TokenLine(20, Hex("3A83 3A84 F9")) +
                              TokenLine(300, Hex("87 FFA8 FF87 FFFF")) + TokenLine(400, "\x8A");
    for (const std::string& file : {CocoFile(lines), DragonFile(lines)}) {
        for (std::size_t size = 1; size <= file.size(); ++size) CompareText(file.substr(0, size));
    }
}

TEST_F(BasicRoundTripTest, ATextCutAtEveryByte) {
    const std::string text =
        "\r10 REM A\"FOR\"\r20 DATA\"X:Y\",?:PRINT?ELSE'REM\r\n  300   GOSUB VARPTR(A)\n\r400 "
        "END\r\r";
    for (std::size_t size = 1; size <= text.size(); ++size) CompareTokens(text.substr(0, size));
}

TEST_F(BasicRoundTripTest, EveryLengthFieldCutsOrFails) {
    const std::string lines = TokenLine(10, "A") + TokenLine(20, "B");
    for (int length = 0; length < 65536; ++length) {
        std::string data = CocoFile(lines);
        const std::string file = data;
        data[1] = static_cast<char>(length >> 8);
        data[2] = static_cast<char>(length);
        const std::string before = data;
        const int failure = FailureOf([&] { BasicConvert(data, false); });
        ASSERT_EQ(failure, length < 0x8000 ? 0 : kInvalidCall) << length;
        ASSERT_EQ(data,
                  failure != 0 ? before : before.substr(0, static_cast<std::size_t>(length) + 1));
    }
}

// Every word there and back

/// A word whose own text does not become its token alone, what it becomes, and why.
struct Exception {
    const char* Word;
    const char* Tokens;
    const char* Reason;
};

const std::vector<Exception> kBothMachines = {
    {"'", "3A83", "files keep a colon in front of it"},
    {"ELSE", "3A84", "files keep a colon in front of it"},
};

/// The tokens of every word written alone, by its own token.
void ExpectOwnTokens(bool coco, const std::map<std::string, std::string>& exceptions) {
    std::map<std::string, std::string> found;
    const auto look = [&](const std::vector<std::string>& words, const std::string& prefix) {
        for (std::size_t place = 0; place < words.size(); ++place) {
            if (words[place].empty()) continue;
            Disk.DiskFamily = coco ? kDecb : kDragon;
            std::string text = "10 " + words[place];
            const std::string file = BasicConvert(text, false);
            const std::string body = LinesOf(file, coco ? 3 : 9).at(0).Body;
            if (body != prefix + static_cast<char>(0x80 + place)) found[words[place]] = body;
        }
    };
    look(PrintedCommands(coco), "");
    look(PrintedFunctions(coco), "\xFF");
    EXPECT_EQ(found, exceptions);
}

TEST_F(BasicRoundTripTest, EveryWordAloneBecomesItsToken) {
    std::map<std::string, std::string> exceptions;
    for (const Exception& row : kBothMachines) exceptions[row.Word] = Hex(row.Tokens);
    ExpectOwnTokens(true, exceptions);
    ExpectOwnTokens(false, exceptions);
}

/// Programs of `lines` lines of words in any order, with what may stand between words.
std::string WordProgram(std::mt19937& random, bool coco, int lines) {
    static const std::vector<std::string> kBetween = {" ", "", ",", "(", ")", "A", "1", ":", ";"};
    std::vector<std::string> words = PrintedCommands(coco);
    for (const std::string& word : PrintedFunctions(coco)) {
        if (!word.empty()) words.push_back(word);
    }
    std::shuffle(words.begin(), words.end(), random);
    std::string text = "\r";
    std::size_t next = 0;
    for (int line = 0; line < lines; ++line) {
        text += std::to_string(line * 10 + 10) + " ";
        for (int count = 0; count < 8; ++count) {
            text += words[next++ % words.size()] + kBetween[random() % kBetween.size()];
        }
        text += "A\r";
    }
    return text;
}

TEST_F(BasicRoundTripTest, EveryWordInAnyOrderComesBackAsTheSameText) {
    std::mt19937 random(kSeed);
    for (int round = 0; round < 200; ++round) {
        for (const bool coco : {true, false}) {
            // 21 lines of eight words take every word of either machine.
            const std::string text = WordProgram(random, coco, 21);
            const std::string tokens = Tokens(text, coco ? kDecb : kDragon);
            ASSERT_EQ(tokens.front(), coco ? '\xFF' : '\x55');
            ASSERT_EQ(Text(tokens), text);
        }
    }
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(BasicRoundTripTest, ATextThatComesBackAsAnother) {
    struct Row {
        const char* Given;
        const char* Back;
        const char* Reason;
    };
    const std::vector<Row> rows = {
        {"10 ?A", "10 PRINT?A", "the question mark is stored behind the token of PRINT"},
        {"10 ?\"?\"", "10 PRINT?\"?\"", "but not within quotes"},
        {"10   A", "10 A", "blanks behind the number are no part of the line"},
        {" 10 A", "10 A", "nor are those in front"},
        {"0010 A", "10 A", "a number is a number"},
        {"A B", "0 B", "what stands in front of the blank is taken for the number"},
        {"10 A\r20 B\r5", "10 A\r20 B", "a last line of one byte is not read"},
        {"10 \"\xB0\"", "10 \"AND\"", "a byte from 0x80 on is a token where it stands"},
        {"10 A\r\r\n30 B", "10 A\r0 B", "a line end too many hides the number"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Text(Tokens(row.Given, kDecb)), "\r" + std::string(row.Back) + "\r")
            << row.Given << ": " << row.Reason;
    }
}

TEST_F(BasicRoundTripTest, ATickOrElseBehindAColonComesBackWithOneColon) {
    EXPECT_EQ(Text(Tokens("10 A=1:'X\r20 A:ELSE B", kDecb)), "\r10 A=1:'X\r20 A:ELSE B\r");
}

}  // namespace
}  // namespace brindlemoor::test
