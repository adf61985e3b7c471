#include "workbench/character_set.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "workbench/character_glyphs.h"

namespace brindlemoor {
namespace {

constexpr std::int32_t kDarkGreen = 0x003C00;

/// The colour of a dot of a character's cell, which has 8 by 12 dots of 2 by 2 pixels.
std::int32_t Dot(int code, int x, int y) {
    const int left = code % 32 * 16 + x * 2;
    const int top = code / 32 * 24 + y * 2;
    return PixelAt(CharacterSet(), left, top);
}

/// A character as rows of text, "#" for its darker dots of the two colours of letters.
std::string Letter(int code) {
    std::string text;
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 8; ++x) text += Dot(code, x, y) == kDarkGreen ? '#' : '.';
        text += '\n';
    }
    return text;
}

TEST(CharacterSetTest, TheGlyphTableHasOnlyDotsAndBlanksInItsFixedWidth) {
    for (const GlyphBand& band : kGlyphs) {
        for (const std::string_view row : band) {
            ASSERT_EQ(row.size(), 8u * 6 - 1);
            for (std::size_t column = 0; column < row.size(); ++column) {
                const bool gap = column % 6 == 5;
                ASSERT_NE(std::string(gap ? " " : "#.").find(row[column]), std::string::npos);
            }
        }
    }
}

TEST(CharacterSetTest, NoTwoGlyphsAreAlike) {
    std::map<std::string, int> seen;
    for (int code = 64; code < 128; ++code) {
        const auto [other, isNew] = seen.emplace(Letter(code), code);
        EXPECT_TRUE(isNew) << code << " looks like " << other->second;
    }
}

TEST(CharacterSetTest, IsAPictureOf512By384Pixels) {
    EXPECT_EQ(CharacterSet().Width, 512);
    EXPECT_EQ(CharacterSet().Height, 384);
}

TEST(CharacterSetTest, ALetterStandsDarkOnLightInItsCell) {
    EXPECT_EQ(Letter('A'),
              "........\n"
              "........\n"
              "........\n"
              "....#...\n"
              "...#.#..\n"
              "..#...#.\n"
              "..#...#.\n"
              "..#####.\n"
              "..#...#.\n"
              "..#...#.\n"
              "........\n"
              "........\n");
    EXPECT_EQ(Dot('A', 0, 0), kScreenGreen);
}

TEST(CharacterSetTest, SignsAndDigitsStandFrom96On) {
    EXPECT_EQ(Letter(96).find('#'), std::string::npos);  // the space
    EXPECT_EQ(Letter('1' + 64),
              "........\n"
              "........\n"
              "........\n"
              "....#...\n"
              "...##...\n"
              "....#...\n"
              "....#...\n"
              "....#...\n"
              "....#...\n"
              "...###..\n"
              "........\n"
              "........\n");
}

TEST(CharacterSetTest, TheFirst64AreTheSameLightOnDark) {
    for (int code = 0; code < 64; ++code) {
        for (int y = 0; y < 12; ++y) {
            for (int x = 0; x < 8; ++x) {
                const bool dark = Dot(code + 64, x, y) == kDarkGreen;
                ASSERT_EQ(Dot(code, x, y), dark ? kScreenGreen : kDarkGreen) << code;
            }
        }
    }
}

TEST(CharacterSetTest, BlocksShowTheirFourBitsInEightColours) {
    // Green, yellow, blue, red, buff, cyan, magenta, orange.
    std::set<std::int32_t> colours;
    for (int colour = 0; colour < 8; ++colour) {
        const std::int32_t lit = Dot(128 + colour * 16 + 15, 0, 0);
        colours.insert(lit);
        for (int bits = 0; bits < 16; ++bits) {
            const int code = 128 + colour * 16 + bits;
            EXPECT_EQ(Dot(code, 0, 0), (bits & 8) != 0 ? lit : 0) << code;
            EXPECT_EQ(Dot(code, 4, 5), (bits & 4) != 0 ? lit : 0) << code;
            EXPECT_EQ(Dot(code, 3, 6), (bits & 2) != 0 ? lit : 0) << code;
            EXPECT_EQ(Dot(code, 7, 11), (bits & 1) != 0 ? lit : 0) << code;
        }
    }
    EXPECT_EQ(colours.size(), 8u);
    EXPECT_EQ(Dot(143, 0, 0), kScreenGreen);
    EXPECT_EQ(Dot(207, 0, 0), 0xFFFFFF);
}

TEST(CharacterSetTest, TheLowerHalfIsBlank) {
    for (int y = 192; y < 384; ++y) {
        for (int x = 0; x < 512; ++x) ASSERT_EQ(PixelAt(CharacterSet(), x, y), 0xFFFFFF);
    }
}

}  // namespace
}  // namespace brindlemoor
