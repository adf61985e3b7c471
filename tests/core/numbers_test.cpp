#include "core/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <limits>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, StopsAtTheFirstCharacterThatDoesNotFit) {
    EXPECT_EQ(LeadingNumber("12ABC"), 12);
    EXPECT_EQ(LeadingNumber("44100 (Default)"), 44100);
    EXPECT_EQ(LeadingNumber("1094.68085106384 Empirical Toolshed"), 1094.68085106384);
    EXPECT_EQ(LeadingNumber("1.5.7"), 1.5);
    EXPECT_EQ(LeadingNumber("1e3"), 1);
    EXPECT_EQ(LeadingNumber("10 20"), 10);
}

TEST(LeadingNumber, SkipsBlanksAndTakesASign) {
    EXPECT_EQ(LeadingNumber("   7"), 7);
    EXPECT_EQ(LeadingNumber(" -1"), -1);
    EXPECT_EQ(LeadingNumber("+3x"), 3);
    EXPECT_EQ(LeadingNumber(".5"), 0.5);
    EXPECT_EQ(LeadingNumber("5."), 5);
}

TEST(LeadingNumber, Is0WhereThereIsNone) {
    for (const char* text : {"", "   ", "-", "+", ".", "-.", "--5", "abc", "inf", "nan"}) {
        EXPECT_EQ(LeadingNumber(text), 0) << text;
    }
}

TEST(TextAsNumber, TakesTheWholeText) {
    EXPECT_EQ(TextAsNumber("15138044"), 15138044);
    EXPECT_EQ(TextAsNumber("  -2.5 "), -2.5);
    EXPECT_EQ(TextAsNumber("+4"), 4);
    EXPECT_EQ(TextAsNumber("1E3"), 1000);
}

TEST(TextAsNumber, AnythingElseFailsWith13) {
    for (const char* text : {"", " ", "12a", "a", "1 2", "--1", "-+1", "+-1", "-", ".", "inf",
                             "-nan", "0x10", "1,5", "1e"}) {
        EXPECT_EQ(FailureOf([&] { TextAsNumber(text); }), kTypeMismatch) << text;
    }
}

TEST(TextAsNumber, AnUnthinkableNumberFailsWith6) {
    EXPECT_EQ(FailureOf([] { TextAsNumber("1E999"); }), kOverflow);
    EXPECT_EQ(FailureOf([] { LeadingNumber(std::string(400, '9')); }), kOverflow);
}

TEST(WholeNumber8, RoundsHalvesToEvenAndFailsOutsideAByte) {
    EXPECT_EQ(WholeNumber8(255.4), 255);
    EXPECT_EQ(WholeNumber8(2.5), 2);
    EXPECT_EQ(WholeNumber8(-0.5), 0);
    EXPECT_EQ(FailureOf([] { WholeNumber8(255.5); }), 6);
    EXPECT_EQ(FailureOf([] { WholeNumber8(-1); }), 6);
}

TEST(WholeNumber, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(WholeNumber16(0.5), 0);
    EXPECT_EQ(WholeNumber16(1.5), 2);
    EXPECT_EQ(WholeNumber16(-1.5), -2);
    EXPECT_EQ(WholeNumber32(2.5), 2);
    EXPECT_EQ(WholeNumber32(2.51), 3);
}

TEST(WholeNumber, FailsWith6OutsideTheType) {
    EXPECT_EQ(WholeNumber16(-32768.5), -32768);
    EXPECT_EQ(FailureOf([] { WholeNumber16(32767.5); }), kOverflow);
    EXPECT_EQ(WholeNumber32(2147483647.4), 2147483647);
    EXPECT_EQ(FailureOf([] { WholeNumber32(2147483647.5); }), kOverflow);
    EXPECT_EQ(FailureOf([] { WholeNumber32(-2147483649.0); }), kOverflow);
    EXPECT_EQ(FailureOf([] { WholeNumber32(kInfinity); }), kOverflow);
    EXPECT_EQ(FailureOf([] { WholeNumber32(kInfinity - kInfinity); }), kOverflow);
}

TEST(TextAsInteger, FailsWith13OnNoNumberAnd6OnALargeOne) {
    EXPECT_EQ(TextAsInteger(" 5 "), 5);
    EXPECT_EQ(TextAsInteger("2.5"), 2);
    EXPECT_EQ(FailureOf([] { TextAsInteger("five"); }), kTypeMismatch);
    EXPECT_EQ(FailureOf([] { TextAsInteger("32768"); }), kOverflow);
}

struct FormatCase {
    double Value;
    const char* Pattern;
    const char* Shown;
};

class FormatNumberRows : public testing::TestWithParam<FormatCase> {};

TEST_P(FormatNumberRows, ShowsTheValueUnderThePattern) {
    EXPECT_EQ(FormatNumber(GetParam().Value, GetParam().Pattern), GetParam().Shown);
}

INSTANTIATE_TEST_SUITE_P(Zeros, FormatNumberRows,
                         testing::Values(FormatCase{0, "0", "0"}, FormatCase{7, "0", "7"},
                                         FormatCase{0, "00", "00"}, FormatCase{7, "00", "07"},
                                         FormatCase{7, "000", "007"},
                                         FormatCase{1234, "000", "1234"},
                                         FormatCase{5, "#00", "05"}, FormatCase{5, "0#", "05"}));

INSTANTIATE_TEST_SUITE_P(
    Groups, FormatNumberRows,
    testing::Values(FormatCase{0, "###,###", ""}, FormatCase{5, "###,###", "5"},
                    FormatCase{999, "###,###", "999"}, FormatCase{1000, "###,###", "1,000"},
                    FormatCase{1234567, "###,###", "1,234,567"},
                    FormatCase{161280, "######,###", "161,280"},
                    FormatCase{1234567890123.0, "######,###", "1,234,567,890,123"},
                    FormatCase{1234, "#########,#", "1,234"}, FormatCase{5, "000,000", "000,005"},
                    FormatCase{0, "#,##0", "0"}));

INSTANTIATE_TEST_SUITE_P(
    Fractions, FormatNumberRows,
    testing::Values(FormatCase{0, "##0.00", "0.00"}, FormatCase{100, "##0.00", "100.00"},
                    FormatCase{1234.5, "##0.00", "1234.50"}, FormatCase{0.5, "#.##", ".5"},
                    FormatCase{5, "#.##", "5."}, FormatCase{1.5, "0.0#", "1.5"},
                    FormatCase{1.55, "0.0#", "1.55"}, FormatCase{12.5, ".0", "12.5"},
                    FormatCase{0.05, "0.000", "0.050"}));

INSTANTIATE_TEST_SUITE_P(
    Rounding, FormatNumberRows,
    testing::Values(FormatCase{0.5, "0", "1"}, FormatCase{1.5, "0", "2"}, FormatCase{2.5, "0", "3"},
                    FormatCase{2.4999, "0", "2"}, FormatCase{2.675, "0.00", "2.68"},
                    FormatCase{1.005, "0.00", "1.01"},
                    FormatCase{8.0 / 32000 * 100, "0.00", "0.03"},
                    FormatCase{0.995, "0.00", "1.00"}, FormatCase{99.999, "##0.00", "100.00"},
                    FormatCase{999.5, "###,###", "1,000"}, FormatCase{-2.5, "0", "-3"},
                    FormatCase{0.4, "###,###", ""}, FormatCase{66.66666666666667, "0.00", "66.67"},
                    FormatCase{1e-9, "0.00", "0.00"}));

INSTANTIATE_TEST_SUITE_P(Signs, FormatNumberRows,
                         testing::Values(FormatCase{-5, "00", "-05"},
                                         FormatCase{-1234, "###,###", "-1,234"},
                                         FormatCase{-0.001, "0.00", "0.00"},
                                         FormatCase{-0.4, "###,###", ""},
                                         FormatCase{-0.0, "0", "0"}, FormatCase{-0.5, "0", "-1"}));

INSTANTIATE_TEST_SUITE_P(OtherCharacters, FormatNumberRows,
                         testing::Values(FormatCase{50, "##0.00\\%", "50.00%"},
                                         FormatCase{0, "##0.00\\%", "0.00%"},
                                         FormatCase{7, "\\#0", "#7"}, FormatCase{7, "0 kB", "7 kB"},
                                         FormatCase{7, "0\\", "7"}, FormatCase{-7, "(0)", "-(7)"},
                                         FormatCase{7, "0,", "7,"}, FormatCase{12, "0-0", "1-2"}));

INSTANTIATE_TEST_SUITE_P(EmptyPattern, FormatNumberRows,
                         testing::Values(FormatCase{0, "", "0"}, FormatCase{42, "", "42"},
                                         FormatCase{-42, "", "-42"}, FormatCase{0.1, "", "0.1"},
                                         FormatCase{-2.25, "", "-2.25"},
                                         FormatCase{0.00001, "", "0.00001"},
                                         FormatCase{1e15, "", "1000000000000000"},
                                         FormatCase{1e20, "", "100000000000000000000"},
                                         FormatCase{9007199254740993.0, "", "9007199254740992"}));

TEST(FormatNumber, WhatIsNoNumberFailsWith6) {
    EXPECT_EQ(FailureOf([] { FormatNumber(kInfinity, "0"); }), kOverflow);
    EXPECT_EQ(FailureOf([] { FormatNumber(kInfinity - kInfinity, ""); }), kOverflow);
}

TEST(FormatNumber, HoldsTheLargestNumber) {
    const std::string shown = FormatNumber(std::numeric_limits<double>::max(), "0");
    EXPECT_EQ(shown.size(), 309U);
    EXPECT_EQ(shown.substr(0, 6), "179769");
}

/// Every efficiency that a file of up to 64 sectors can have, against exact whole arithmetic.
TEST(FormatNumber, RoundsEfficienciesExactly) {
    for (std::int64_t sectors = 1; sectors <= 64; ++sectors) {
        const std::int64_t used = sectors * 256;
        for (std::int64_t size = 0; size <= used; size += 7) {
            const std::int64_t hundredths = (size * 20000 + used) / (used * 2);
            std::string expected = std::to_string(hundredths / 100) + ".";
            expected += static_cast<char>('0' + hundredths / 10 % 10);
            expected += static_cast<char>('0' + hundredths % 10);
            const double efficiency = static_cast<double>(size) / static_cast<double>(used) * 100;
            ASSERT_EQ(FormatNumber(efficiency, "##0.00"), expected) << size << "/" << used;
        }
    }
}

TEST(FormatNumber, NeverFollowsTheSystemsLocale) {
    const char* const before = std::setlocale(LC_ALL, nullptr);
    const std::string restored = before == nullptr ? "C" : before;
    for (const char* name : {"de_DE.UTF-8", "es_ES.UTF-8", "C.UTF-8"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(FormatNumber(1234.5, "###,###.00"), "1,234.50");
        EXPECT_EQ(TextAsNumber("1.5"), 1.5);
        EXPECT_EQ(LeadingNumber("1.5x"), 1.5);
    }
    std::setlocale(LC_ALL, restored.c_str());
}

TEST(DecimalText, HoldsEvery64BitNumber) {
    EXPECT_EQ(DecimalText(0), "0");
    EXPECT_EQ(DecimalText(-17), "-17");
    EXPECT_EQ(DecimalText(INT64_MAX), "9223372036854775807");
    EXPECT_EQ(DecimalText(INT64_MIN), "-9223372036854775808");
}

}  // namespace
}  // namespace brindlemoor
