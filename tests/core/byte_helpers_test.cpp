#include "core/byte_helpers.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

// Cutting

TEST(CutBytes, CountsFromZero) {
    EXPECT_EQ(CutBytes("abcdef", 0, 2), "ab");
    EXPECT_EQ(CutBytes("abcdef", 4, 2), "ef");
}

TEST(CutBytes, PastTheEndIsShorterOrEmpty) {
    EXPECT_EQ(CutBytes("abc", 2, 10), "c");
    EXPECT_EQ(CutBytes("abc", 3, 1), "");
    EXPECT_EQ(CutBytes("abc", INT64_MAX, INT64_MAX), "");
}

TEST(CutBytes, ANegativeOffsetOrLengthFailsWith5) {
    EXPECT_EQ(FailureOf([] { CutBytes("abc", -1, 1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { CutBytes("abc", 0, -1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { CutBytes("abc", 9, -1); }), kInvalidCall);
}

TEST(Mid, CountsFromOne) {
    EXPECT_EQ(Mid("abc", 1, 1), "a");
    EXPECT_EQ(Mid("abc", 3, 5), "c");
    EXPECT_EQ(Mid("abc", 4, 5), "");
    EXPECT_EQ(FailureOf([] { Mid("abc", 0, 1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { Mid("abc", INT64_MIN, 1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { Mid("abc", 1, -1); }), kInvalidCall);
}

TEST(LeftAndRight, TakeAllOfAShorterText) {
    EXPECT_EQ(Left("abc", 2), "ab");
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Right("abc", 2), "bc");
    EXPECT_EQ(Right("abc", 9), "abc");
    EXPECT_EQ(Right("abc", 0), "");
}

TEST(LeftAndRight, ANegativeLengthFailsWith5) {
    EXPECT_EQ(FailureOf([] { Left("abc", -1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { Right("abc", -1); }), kInvalidCall);
}

TEST(ByteAt, IsUnsigned) {
    EXPECT_EQ(ByteAt(Bytes({1, 255}), 1), 255);
}

TEST(ByteAt, FailsWith5WhereThereIsNone) {
    EXPECT_EQ(FailureOf([] { ByteAt("a", 1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { ByteAt("a", -1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { ByteAt("", 0); }), kInvalidCall);
}

// Splitting, joining, replacing

TEST(SplitText, AnEmptyTextHasNoElement) {
    EXPECT_TRUE(SplitText("", ",").empty());
}

TEST(SplitText, SeparatorsGiveOneElementMore) {
    EXPECT_EQ(SplitText("a,b,,c,", ","), (std::vector<std::string>{"a", "b", "", "c", ""}));
    EXPECT_EQ(SplitText(",", ","), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(SplitText("one\r\ntwo", "\r\n"), (std::vector<std::string>{"one", "two"}));
}

TEST(JoinText, IsTheInverseOfSplitText) {
    EXPECT_EQ(JoinText({"a", "", "b"}, ", "), "a, , b");
    EXPECT_EQ(JoinText({}, ","), "");
}

TEST(ReplaceText, DoesNotLookAgainAtWhatWasPutIn) {
    EXPECT_EQ(ReplaceText("aXbX", "X", "XX"), "aXXbXX");
    EXPECT_EQ(ReplaceText("aaaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceText("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceText("", "a", "x"), "");
}

TEST(Cases, ChangeTheLettersAToZOnly) {
    EXPECT_EQ(UpperCase("az{\xE9`"), "AZ{\xE9`");
    EXPECT_EQ(LowerCase("AZ[\xC9@"), "az[\xC9@");
}

TEST(Trim, TakesBlanksAndNothingElse) {
    EXPECT_EQ(Trim("  a b\t "), "a b\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(TrimRight("  a  "), "  a");
    EXPECT_EQ(TrimRight(""), "");
}

// Windows-1252

TEST(Windows1252, HoldsSpanishLettersAsSingleBytes) {
    EXPECT_EQ("Español"_w, "Espa\xF1ol");
    EXPECT_EQ("¬ÁÿŸ€"_w, "\xAC\xC1\xFF\x9F\x80");
}

TEST(Windows1252, ShowsAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(Windows1252("a\u4E2Db\U0001F600c"), "a?b?c");
    EXPECT_EQ(Windows1252("\u0081\u0080"), "??");
}

TEST(Windows1252, AByteThatIsNoCharacterBecomesAQuestionMark) {
    EXPECT_EQ(Windows1252("\xFF"
                          "a"),
              "?a");
    EXPECT_EQ(Windows1252("\xC3"), "?");
    EXPECT_EQ(Windows1252("\xC3"
                          "A"),
              "?A");
    EXPECT_EQ(Windows1252("\xE2\x82"), "??");
}

// Numbers to bytes

TEST(NumberToBytes, IReversesToBigEndian) {
    EXPECT_EQ(NumberToBytes(513, 2, "I"), Bytes({2, 1}));
    EXPECT_EQ(NumberToBytes(513, 2, ""), Bytes({1, 2}));
}

TEST(NumberToBytes, AnyOrderButIIsLowestFirst) {
    EXPECT_EQ(NumberToBytes(513, 2, "i"), Bytes({1, 2}));
    EXPECT_EQ(NumberToBytes(513, 2, "II"), Bytes({1, 2}));
}

TEST(NumberToBytes, ALengthOutside1To8IsEmpty) {
    EXPECT_EQ(NumberToBytes(1, 0, ""), "");
    EXPECT_EQ(NumberToBytes(1, 9, "I"), "");
    EXPECT_EQ(NumberToBytes(1e30, -3, ""), "");
}

TEST(NumberToBytes, Length1TakesTheLowByteOfTheScaledValue) {
    EXPECT_EQ(NumberToBytes(1, 1, ""), Bytes({16}));
    EXPECT_EQ(NumberToBytes(0.0001, 1, "I"), Bytes({1}));
}

TEST(NumberToBytes, Lengths3And4TakeTheLowBytesOfASigned32BitNumber) {
    EXPECT_EQ(NumberToBytes(66051, 3, "I"), Bytes({1, 2, 3}));
    EXPECT_EQ(NumberToBytes(0x01020304, 4, ""), Bytes({4, 3, 2, 1}));
    EXPECT_EQ(NumberToBytes(-1, 3, ""), Bytes({255, 255, 255}));
}

TEST(NumberToBytes, Lengths5To8HoldTheValueTimes10000) {
    EXPECT_EQ(NumberToBytes(1, 5, ""), Bytes({0x10, 0x27, 0, 0, 0}));
    EXPECT_EQ(NumberToBytes(1, 8, "I"), Bytes({0, 0, 0, 0, 0, 0, 0x27, 0x10}));
    EXPECT_EQ(NumberToBytes(-0.0001, 6, ""), Bytes({255, 255, 255, 255, 255, 255}));
}

TEST(NumberToBytes, AFractionRoundsHalfToEven) {
    EXPECT_EQ(NumberToBytes(2.5, 2, ""), Bytes({2, 0}));
    EXPECT_EQ(NumberToBytes(3.5, 2, ""), Bytes({4, 0}));
    EXPECT_EQ(NumberToBytes(-2.5, 4, ""), Bytes({254, 255, 255, 255}));
}

TEST(NumberToBytes, AValueOutsideTheTypeFailsWith6) {
    EXPECT_EQ(FailureOf([] { NumberToBytes(32768, 2, ""); }), kOverflow);
    EXPECT_EQ(FailureOf([] { NumberToBytes(-32769, 2, ""); }), kOverflow);
    EXPECT_EQ(FailureOf([] { NumberToBytes(2147483648.0, 3, ""); }), kOverflow);
    EXPECT_EQ(FailureOf([] { NumberToBytes(2147483648.0, 4, ""); }), kOverflow);
    EXPECT_EQ(FailureOf([] { NumberToBytes(1e15, 1, ""); }), kOverflow);
    EXPECT_EQ(NumberToBytes(-32768, 2, "I"), Bytes({0x80, 0}));
}

// Bytes to numbers

TEST(BytesToNumber, TwoBytesAreSigned) {
    EXPECT_EQ(BytesToNumber(Bytes({255, 255}), "I"), -1);
    EXPECT_EQ(BytesToNumber(Bytes({255, 255}), ""), -1);
    EXPECT_EQ(BytesToNumber(Bytes({0x80, 0}), "I"), -32768);
    EXPECT_EQ(BytesToNumber(Bytes({0x7F, 255}), "I"), 32767);
}

TEST(BytesToNumber, OneAndThreeBytesAreUnsigned) {
    EXPECT_EQ(BytesToNumber(Bytes({255}), ""), 255);
    EXPECT_EQ(BytesToNumber(Bytes({1, 2, 3}), "I"), 66051);
    EXPECT_EQ(BytesToNumber(Bytes({1, 2, 3}), ""), 197121);
    EXPECT_EQ(BytesToNumber(Bytes({255, 255, 255}), "I"), 16777215);
}

TEST(BytesToNumber, FourBytesAreSigned) {
    EXPECT_EQ(BytesToNumber(Bytes({255, 255, 255, 254}), "I"), -2);
    EXPECT_EQ(BytesToNumber(Bytes({0, 0, 0, 0x80}), ""), -2147483648.0);
}

TEST(BytesToNumber, FiveToEightBytesHoldTheValueTimes10000) {
    EXPECT_EQ(BytesToNumber(Bytes({0x10, 0x27, 0, 0, 0}), ""), 1);
    EXPECT_EQ(BytesToNumber(Bytes({1, 0, 0, 0, 0, 0}), ""), 0.0001);
    EXPECT_EQ(BytesToNumber(std::string(8, '\xFF'), ""), -0.0001);
}

TEST(BytesToNumber, IsTheInverseOfNumberToBytesAtLength8) {
    for (const double value : {0.0, 1.0, -1.0, 94371840.0, -12345.6789, 922337203685.0}) {
        EXPECT_EQ(BytesToNumber(NumberToBytes(value, 8, "I"), "I"), value);
        EXPECT_EQ(BytesToNumber(NumberToBytes(value, 8, ""), ""), value);
    }
}

TEST(BytesToNumber, NoBytesOrMoreThanEightGive0) {
    EXPECT_EQ(BytesToNumber(std::string(), "I"), 0);
    EXPECT_EQ(BytesToNumber(std::string(9, '\1'), ""), 0);
}

TEST(BytesToNumber, LeavesTheCallersBytesReversed) {
    std::string bytes = Bytes({1, 2, 3});
    EXPECT_EQ(BytesToNumber(bytes, "I"), 66051);
    EXPECT_EQ(bytes, Bytes({3, 2, 1}));
    EXPECT_EQ(BytesToNumber(bytes, "I"), 197121);
}

TEST(BytesToNumber, LeavesTheCallersBytesAloneInAnyOtherOrder) {
    std::string bytes = Bytes({1, 2, 3});
    BytesToNumber(bytes, "i");
    EXPECT_EQ(bytes, Bytes({1, 2, 3}));
}

TEST(BytesToNumber, NineBytesStayUnreversed) {
    std::string bytes = "123456789";
    BytesToNumber(bytes, "I");
    EXPECT_EQ(bytes, "123456789");
}

TEST(BigEndian, KeepsTheSignOfTwoBytes) {
    EXPECT_EQ(BigEndian(Bytes({0xFF, 0xFE})), -2);
    EXPECT_EQ(BigEndian(Bytes({1, 0})), 256);
    EXPECT_EQ(BigEndian(""), 0);
}

TEST(LongToBytes, IsLowestFirst) {
    EXPECT_EQ(LongToBytes(0x01020304), Bytes({4, 3, 2, 1}));
    EXPECT_EQ(LongToBytes(-2), Bytes({254, 255, 255, 255}));
}

TEST(PadFormat, PutsTheDifferenceOfLengthsInFront) {
    EXPECT_EQ(PadFormat(7, "00"), "07");
    EXPECT_EQ(PadFormat(7, "###"), "  7");
    EXPECT_EQ(PadFormat(0, "###"), "   ");
}

TEST(PadFormat, AResultLongerThanThePatternIsPaddedToo) {
    EXPECT_EQ(PadFormat(12345, "00"), "   12345");
}

TEST(ByteToBits, PutsBit0First) {
    EXPECT_EQ(ByteToBits(1), "10000000");
    EXPECT_EQ(ByteToBits(128), "00000001");
    EXPECT_EQ(ByteToBits(0xF1), "10001111");
}

// Texts

TEST(FillMessage, WithoutPlacesOnlyBreaksLines) {
    EXPECT_EQ(FillMessage("one\xACtwo\xAC", {}), "one\r\ntwo\r\n");
}

TEST(FillMessage, FillsPlacesFromTheFirstOn) {
    EXPECT_EQ(FillMessage("[] and []", {"a", "b", "unused"}), "a and b");
}

TEST(FillMessage, FillsAPlaceInsideAnInsertedText) {
    EXPECT_EQ(FillMessage("<[]> []", {"x[]x", "a", "b"}), "<xax> b");
}

TEST(FillMessage, FindsAPlaceThatAnInsertionCompletes) {
    EXPECT_EQ(FillMessage("[[]", {"]", "a"}), "a");
}

TEST(FillMessage, DoesNotBreakLinesInAnInsertedText) {
    EXPECT_EQ(FillMessage("[]", {"a\xAC"}), "a\xAC");
}

TEST(FillMessage, MorePlacesThanTextsFailWith9) {
    EXPECT_EQ(FailureOf([] { FillMessage("[] []", {"a"}); }), kIndexRange);
    EXPECT_EQ(FailureOf([] { FillMessage("[]", {"[]"}); }), kIndexRange);
}

TEST(SplitPath, CutsAtTheLastBackslash) {
    std::string folder;
    std::string file;
    SplitPath("C:\\disks\\games\\A.DSK", folder, file);
    EXPECT_EQ(folder, "C:\\disks\\games");
    EXPECT_EQ(file, "A.DSK");
}

TEST(SplitPath, LeavesNoBackslashBehindADrive) {
    std::string folder;
    std::string file;
    SplitPath("C:\\A.DSK", folder, file);
    EXPECT_EQ(folder, "C:");
    EXPECT_EQ(file, "A.DSK");
}

TEST(SplitPath, AFolderAloneHasAnEmptyFile) {
    std::string folder = "?";
    std::string file = "?";
    SplitPath("C:\\", folder, file);
    EXPECT_EQ(folder, "C:");
    EXPECT_EQ(file, "");
    SplitPath("\\A.DSK", folder, file);
    EXPECT_EQ(folder, "");
    EXPECT_EQ(file, "A.DSK");
}

TEST(SplitPath, MayWriteOverThePathItself) {
    std::string path = "C:\\dir\\A.DSK";
    std::string file;
    SplitPath(path, path, file);
    EXPECT_EQ(path, "C:\\dir");
    EXPECT_EQ(file, "A.DSK");
    path = "C:\\dir\\A.DSK";
    std::string folder;
    SplitPath(path, folder, path);
    EXPECT_EQ(folder, "C:\\dir");
    EXPECT_EQ(path, "A.DSK");
}

TEST(SplitPath, APathWithoutSeparatorFailsWith5) {
    std::string folder;
    std::string file;
    EXPECT_EQ(FailureOf([&] { SplitPath("A.DSK", folder, file); }), kInvalidCall);
    EXPECT_EQ(FailureOf([&] { SplitPath("", folder, file); }), kInvalidCall);
}

TEST(SplitPath, CutsAtTheSeparatorOfThePc) {
    std::string folder;
    std::string file;
    const std::string separator(1, PathSeparator());
    SplitPath("a" + separator + "b\\c" + separator + "d", folder, file);
    EXPECT_EQ(folder, "a" + separator + "b\\c");
    EXPECT_EQ(file, "d");
}

TEST(JoinPath, PutsOneSeparatorBetween) {
    const std::string separator(1, PathSeparator());
    EXPECT_EQ(JoinPath("dir", "A.DSK"), "dir" + separator + "A.DSK");
    EXPECT_EQ(JoinPath("dir" + separator, "A.DSK"), "dir" + separator + "A.DSK");
    EXPECT_EQ(JoinPath("C:\\", "A.DSK"), "C:\\A.DSK");
    EXPECT_EQ(JoinPath("", "A.DSK"), separator + "A.DSK");
}

}  // namespace
}  // namespace brindlemoor
