#include "convert/text_repair.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlemoor::test {
namespace {

std::string Stripped(std::string text) {
    std::string& result = StripHighBits(text);
    EXPECT_EQ(&result, &text);
    return text;
}

/// The same with every CR put in where it belongs, byte after byte.
std::string SlowlyStripped(std::string text) {
    if (text.empty() || text[0] != '\xEF') return text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        text[at] = static_cast<char>(byte & 0x7F);
        if (byte >= 0x80) text.insert(++at, 1, '\r');
    }
    return text;
}

TEST(StripHighBits, OnlyATextWhoseFirstByteIs239IsChanged) {
    for (int first = 0; first < 256; ++first) {
        const std::string text = std::string(1, static_cast<char>(first)) + "A\xC2";
        EXPECT_EQ(Stripped(text), first == 239 ? "o\rAB\r" : text) << first;
    }
}

TEST(StripHighBits, AnEmptyTextStays) {
    EXPECT_EQ(Stripped(""), "");
}

TEST(StripHighBits, WithoutAnotherHighBitTheFirstByteAloneGetsACr) {
    EXPECT_EQ(Stripped("\xEFwho are you\rme"), "o\rwho are you\rme");
    EXPECT_EQ(Stripped("\xEF"), "o\r");
}

TEST(StripHighBits, AByte0x80Becomes0WithACrBehindIt) {
    EXPECT_EQ(Stripped("\xEF\x80\x80z"), std::string("o\r\0\r\0\rz", 7));
}

TEST(StripHighBits, ABit7OnACrGivesTwoCrs) {
    EXPECT_EQ(Stripped("\xEF\x8D\x0D"), "o\r\r\r\r");
}

TEST(StripHighBits, OnePassGivesWhatInsertingGives) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 300; ++round) {
        std::string text = "\xEF";
        for (std::size_t i = random() % 200; i > 0; --i) text += static_cast<char>(random());
        EXPECT_EQ(Stripped(text), SlowlyStripped(text));
    }
}

TEST(StripHighBits, ManyLinesTakeNoLongerThanTheyMust) {
    std::string text;
    text.append(2'000'000, '\xEF');
    EXPECT_EQ(Stripped(text).size(), 4'000'000U);
}

TEST(ChangeLineEnds, WithoutACrLfEveryCrBecomesOne) {
    EXPECT_EQ(ChangeLineEnds("\rA\rB\r\r"), "\r\nA\r\nB\r\n\r\n");
    EXPECT_EQ(ChangeLineEnds("A\nB\n\r"), "A\nB\n\r\n");
}

TEST(ChangeLineEnds, WithACrLfEveryCrLfBecomesCrAndALoneCrStays) {
    EXPECT_EQ(ChangeLineEnds("A\r\nB\rC\r\n"), "A\rB\rC\r");
    EXPECT_EQ(ChangeLineEnds("\r\r\n\n"), "\r\r\n");
}

TEST(ChangeLineEnds, ATextWithoutACrStays) {
    EXPECT_EQ(ChangeLineEnds(""), "");
    EXPECT_EQ(ChangeLineEnds("A\nB"), "A\nB");
}

TEST(ChangeLineEnds, TwiceGivesTheTextBack) {
    EXPECT_EQ(ChangeLineEnds(ChangeLineEnds("A\rB\r")), "A\rB\r");
}

}  // namespace
}  // namespace brindlemoor::test
