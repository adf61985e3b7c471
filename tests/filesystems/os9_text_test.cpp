#include "filesystems/os9_text.h"

#include "core/dates.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

/// A date that no conversion below gives: what is left when one fails.
constexpr double kBefore = 12345.5;

std::string DateTextOf(std::string bytes) {
    double date = kBefore;
    return Os9DateBytes(bytes, date);
}

double DateOf(std::string bytes) {
    double date = kBefore;
    Os9DateBytes(bytes, date);
    return date;
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

double Date(int year, int month, int day, int hour = 0, int minute = 0) {
    double date = 0;
    EXPECT_TRUE(DateFromCalendar({year, month, day, hour, minute}, date));
    return date;
}

TEST(Os9NameText, ClearsTheMarkOfTheLastCharacterAndCutsZeroBytes) {
    EXPECT_EQ(Os9NameText(std::string("star\xF4\0\0\0", 8)), "start");
    EXPECT_EQ(Os9NameText("x\xF9"), "xy");
    EXPECT_EQ(Os9NameText("\xAE"), ".");
    EXPECT_EQ(Os9NameText(std::string(".\xAE\0", 3)), "..");
}

TEST(Os9NameText, SetsTheMarkOfAPlainName) {
    EXPECT_EQ(Os9NameText("start"), "star\xF4");
    EXPECT_EQ(Os9NameText("start   "), "star\xF4");
}

TEST(Os9NameText, TwiceGivesTheFirstTextAgainButForBlanksAtItsEnd) {
    for (const std::string& text : {std::string("start"), std::string("a b\xE3"), std::string("z"),
                                    std::string("\xFF\xFF")}) {
        EXPECT_EQ(Os9NameText(Os9NameText(text)), text);
        EXPECT_EQ(Os9NameText(Os9NameText(text + "  ")), text);
    }
}

TEST(Os9NameText, OfAnEmptyTextIsEmpty) {
    EXPECT_EQ(Os9NameText(""), "");
    EXPECT_EQ(Os9NameText("     "), "");
}

TEST(Os9NameText, ZeroBytesInsideBecomeBlanks) {
    EXPECT_EQ(Os9NameText(std::string("a\0b\xE3\0\0", 6)), "a bc");
}

TEST(Os9NameText, AFirstZeroByteSurvives) {
    EXPECT_EQ(Os9NameText(std::string("\0one\xE4\0", 6)), std::string("\0oned", 5));
    // Alone, it is the last character too.
    EXPECT_EQ(Os9NameText(std::string(29, '\0')), "\x80");
    EXPECT_EQ(Os9NameText("\x80"), std::string(1, '\0'));
}

TEST(Os9NameText, AMarkedBlankIsNoBlank) {
    EXPECT_EQ(Os9NameText("ab\xA0"), "ab ");
}

TEST(Os9DateBytes, YearsFrom70UpAreInThe1900s) {
    EXPECT_EQ(DateTextOf(Bytes({70, 1, 2})), "02/01/1970");
    EXPECT_EQ(DateTextOf(Bytes({69, 1, 2})), "02/01/2069");
    EXPECT_EQ(DateTextOf(Bytes({0, 12, 31})), "31/12/2000");
    EXPECT_EQ(DateTextOf(Bytes({99, 12, 31})), "31/12/1999");
    EXPECT_EQ(DateTextOf(Bytes({126, 11, 21})), "21/11/2026");
    EXPECT_EQ(DateTextOf(Bytes({255, 1, 1})), "01/01/2155");
}

TEST(Os9DateBytes, FiveBytesHoldTheTimeToo) {
    EXPECT_EQ(DateTextOf(Bytes({87, 3, 9, 21, 44})), "09/03/1987 21:44");
    EXPECT_EQ(DateTextOf(Bytes({87, 3, 9, 0, 0})), "09/03/1987");
    EXPECT_EQ(DateTextOf(Bytes({87, 3, 9, 23, 59})), "09/03/1987 23:59");
}

TEST(Os9DateBytes, NeitherDayNorMonthIsATimeAlone) {
    EXPECT_EQ(DateOf(Bytes({0, 0, 0, 12, 30})), 12.5 / 24);
    EXPECT_EQ(DateTextOf(Bytes({0, 0, 0, 12, 30})), "30/12/1899 12:30");
    // The year says nothing then.
    EXPECT_EQ(DateOf(Bytes({87, 0, 0, 12, 30})), 12.5 / 24);
    EXPECT_EQ(DateOf(Bytes({0, 0, 0, 0, 0})), 0);
    EXPECT_EQ(DateTextOf(Bytes({0, 0, 0, 0, 0})), "");
    EXPECT_EQ(DateOf(Bytes({0, 0, 0})), 0);
    EXPECT_EQ(DateOf(Bytes({87, 0, 0})), 0);
}

TEST(Os9DateBytes, AnImpossibleDateLeavesTheDateAsItWas) {
    for (const std::string& bytes :
         {Bytes({87, 13, 1}), Bytes({87, 0, 1}), Bytes({87, 1, 0}), Bytes({87, 1, 32}),
          Bytes({87, 2, 29}), Bytes({87, 4, 31}), Bytes({87, 255, 255}), Bytes({87, 1, 255}),
          Bytes({87, 3, 9, 24, 0}), Bytes({87, 3, 9, 0, 60}), Bytes({87, 3, 9, 255, 255}),
          Bytes({0, 0, 0, 24, 0}), Bytes({0, 0, 0, 0, 60}), Bytes({0, 0, 0, 255, 255})}) {
        EXPECT_EQ(DateOf(bytes), kBefore);
    }
    EXPECT_EQ(DateTextOf(Bytes({87, 13, 1})), DateText(kBefore));
    EXPECT_EQ(DateTextOf(Bytes({88, 2, 29})), "29/02/1988");
}

TEST(Os9DateBytes, DayAndMonthDoNotChangePlaces) {
    EXPECT_EQ(DateOf(Bytes({87, 25, 3})), kBefore);
    EXPECT_EQ(DateTextOf(Bytes({87, 3, 4})), "04/03/1987");
}

TEST(Os9DateBytes, OtherLengthsChangeNothing) {
    for (const std::string& bytes :
         {Bytes({87}), Bytes({87, 3}), Bytes({87, 3, 9, 21}), Bytes({87, 3, 9, 21, 44, 0})}) {
        EXPECT_EQ(DateOf(bytes), kBefore);
    }
}

TEST(Os9DateBytes, EmptyBytesAreFilledFromTheDate) {
    std::string bytes;
    double date = Date(1987, 3, 9, 21, 44);
    EXPECT_EQ(Os9DateBytes(bytes, date), "09/03/1987 21:44");
    EXPECT_EQ(bytes, Bytes({87, 3, 9, 21, 44}));
    EXPECT_EQ(date, Date(1987, 3, 9, 21, 44));
}

TEST(Os9DateBytes, BytesThatAreThereStay) {
    std::string bytes = Bytes({87, 3, 9});
    double date = kBefore;
    Os9DateBytes(bytes, date);
    EXPECT_EQ(bytes, Bytes({87, 3, 9}));
}

TEST(Os9DateBytes, AYearThatFitsNoByteFails) {
    for (const double date : {0.0, 0.5, Date(1899, 12, 31), Date(2156, 1, 1), Date(1000, 1, 1)}) {
        std::string bytes;
        double changing = date;
        EXPECT_EQ(FailureOf([&] { Os9DateBytes(bytes, changing); }), kInvalidCall);
        EXPECT_EQ(bytes, "");
    }
    std::string bytes;
    double date = Date(2155, 12, 31);
    Os9DateBytes(bytes, date);
    EXPECT_EQ(bytes, Bytes({255, 12, 31, 0, 0}));
}

TEST(Os9DateField, GivesThreeOrFiveBytes) {
    const double date = Date(1987, 3, 9, 21, 44);
    EXPECT_EQ(Os9DateField(date, 5), Bytes({87, 3, 9, 21, 44}));
    EXPECT_EQ(Os9DateField(date, 3), Bytes({87, 3, 9}));
}

TEST(Os9DateField, AYearThatFitsNoByteIsAllZero) {
    EXPECT_EQ(Os9DateField(0, 5), std::string(5, '\0'));
    EXPECT_EQ(Os9DateField(0, 3), std::string(3, '\0'));
    // Day 0 lies in 1899: a time alone is lost.
    EXPECT_EQ(Os9DateField(0.5, 5), std::string(5, '\0'));
    EXPECT_EQ(Os9DateField(Date(2156, 1, 1, 5, 5), 5), std::string(5, '\0'));
    EXPECT_EQ(Os9DateField(Date(1900, 1, 1), 5), Bytes({0, 1, 1, 0, 0}));
    EXPECT_EQ(Os9DateField(Date(2155, 12, 31, 23, 59), 5), Bytes({255, 12, 31, 23, 59}));
}

TEST(Os9DateField, EveryMinuteOfADayComesBackAndTheRowCursorStays) {
    Disk.DirCount = 17;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const std::string bytes = Bytes({99, 7, 4, minute / 60, minute % 60});
        ASSERT_EQ(Os9DateField(DateOf(bytes), 5), bytes);
    }
    EXPECT_EQ(Disk.DirCount, 17);
    Disk.DirCount = 0;
}

TEST(Os9DateField, EveryDayComesBackFromItsBytes) {
    for (int year = 70; year < 256; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= 28; ++day) {
                const std::string bytes = Bytes({year, month, day});
                ASSERT_EQ(Os9DateField(DateOf(bytes), 3), bytes);
            }
        }
    }
    // The years of this century have two bytes each: the higher is written.
    EXPECT_EQ(Os9DateField(DateOf(Bytes({26, 11, 21})), 3), Bytes({126, 11, 21}));
}

TEST(Os9DateField, FailsWith6OutsideFourDigitYears) {
    EXPECT_EQ(FailureOf([] { Os9DateField(1e7, 5); }), kOverflow);
}

}  // namespace
}  // namespace brindlemoor::test
