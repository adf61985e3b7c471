#include "platform/qt/menu_letters.h"

#include <gtest/gtest.h>

namespace brindlemoor::test {
namespace {

using Texts = QStringList;

TEST(MenuLetters, TheFirstLetterOfAWordIsTakenFirst) {
    EXPECT_EQ(WithLetters({"Save", "Save As...", "Sa"}), Texts({"&Save", "Save &As...", "Sa"}));
}

TEST(MenuLetters, WithNoWordLeftALetterWithinOneIsTaken) {
    EXPECT_EQ(WithLetters({"Save", "Stop", "So"}), Texts({"&Save", "S&top", "S&o"}));
}

TEST(MenuLetters, CapitalsAndSmallLettersAreOneKey) {
    EXPECT_EQ(WithLetters({"new", "New"}), Texts({"&new", "N&ew"}));
}

TEST(MenuLetters, LettersThatKeyboardsLackAreNotTaken) {
    EXPECT_EQ(WithLetters({QStringLiteral("\u00C1rea"), "-> CAS"}),
              Texts({QStringLiteral("\u00C1&rea"), "-> &CAS"}));
}

TEST(MenuLetters, SeparatorsTakeNone) {
    EXPECT_EQ(WithLetters({"-", "-"}), Texts({"-", "-"}));
}

TEST(MenuLetters, AnAmpersandOfTheCaptionIsShownAndATabIsABlank) {
    EXPECT_EQ(WithLetters({"A&B\tC"}), Texts({"&A&&B C"}));
    EXPECT_EQ(WithLetters({"&"}), Texts({"&&"}));
}

}  // namespace
}  // namespace brindlemoor::test
