#include "convert/text_to_basic.h"

#include <gtest/gtest.h>

#include "convert/basic_fixture.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using TextToBasicTest = BasicTest;

/// The bodies of a Color Computer's lines.
std::vector<std::string> Bodies(const std::string& file) {
    std::vector<std::string> bodies;
    for (const ProgramLine& line : LinesOf(file, 3)) bodies.push_back(line.Body);
    return bodies;
}

std::vector<int> Numbers(const std::string& file) {
    std::vector<int> numbers;
    for (const ProgramLine& line : LinesOf(file, 3)) numbers.push_back(line.Number);
    return numbers;
}

class BodyTest : public BasicTest {
  protected:
    /// The bytes that a line of this text has, on a Color Computer or a Dragon.
    static std::string Coco(const std::string& text) {
        const auto lines = LinesOf(Tokens("10 " + text, kDecb), 3);
        return lines.size() == 1 && lines[0].Number == 10 ? lines[0].Body : "not one line";
    }
    static std::string Dragon(const std::string& text) {
        const auto lines = LinesOf(Tokens("10 " + text, kDragon), 9);
        return lines.size() == 1 && lines[0].Number == 10 ? lines[0].Body : "not one line";
    }
};

// The file

TEST_F(TextToBasicTest, AColorComputersProgram) {
    EXPECT_EQ(Tokens("10 CLS\r20 A\r", kDecb), Hex("FF 000E 2607 000A 9E 00 260D 0014 41 00 0000"));
}

TEST_F(TextToBasicTest, ADragonsProgram) {
    EXPECT_EQ(Tokens("10 CLS\r20 A\r", kDragon),
              Hex("55 01 2401 000E 8B8D AA 2407 000A A0 00 240D 0014 41 00 0000"));
}

TEST_F(TextToBasicTest, TheOpenDiskDecidesAndOs9AndFlexMeanTheDragon) {
    const std::string dragon = Tokens("10 CLS", kDragon);
    EXPECT_EQ(Tokens("10 CLS", kOs9), dragon);
    EXPECT_EQ(Tokens("10 CLS", kFlex), dragon);
    EXPECT_EQ(Tokens("10 CLS", kUndecided), dragon);
    EXPECT_NE(Tokens("10 CLS", kDecb), dragon);
}

TEST_F(TextToBasicTest, LineEndsAloneAreAnEmptyProgram) {
    for (const char* text : {"\r", "\n", "\r\n", "\r\n\r\n", "\n\r\r\n"}) {
        EXPECT_EQ(Tokens(text, kDecb), Hex("FF 0002 0000"));
        EXPECT_EQ(Tokens(text, kDragon), Hex("55 01 2401 0002 8B8D AA 0000"));
    }
}

TEST_F(TextToBasicTest, ALastLineOfOneByteIsNeverRead) {
    EXPECT_EQ(Tokens("A", kDecb), Hex("FF 0002 0000"));
    EXPECT_EQ(Numbers(Tokens("10 A\r5", kDecb)), std::vector<int>{10});
    EXPECT_EQ(Numbers(Tokens("10 A\r5\r\n", kDecb)), std::vector<int>{10});
}

TEST_F(TextToBasicTest, TheCrInFrontOfATextChangesNothing) {
    EXPECT_EQ(Tokens("\r10 CLS\r20 END\r", kDecb), Tokens("10 CLS\r20 END\r", kDecb));
}

TEST_F(TextToBasicTest, ALastLineWithoutAnEndIsWhole) {
    EXPECT_EQ(Tokens("10 CLS", kDecb), Hex("FF 0008 2607 000A 9E 00 0000"));
}

TEST_F(TextToBasicTest, CrCrLfAndLfReadAlike) {
    const std::string file = Tokens("10 CLS\r20 A=1\r30 END\r", kDecb);
    EXPECT_EQ(Tokens("10 CLS\r\n20 A=1\r\n30 END\r\n", kDecb), file);
    EXPECT_EQ(Tokens("10 CLS\n20 A=1\n30 END\n", kDecb), file);
    EXPECT_EQ(Tokens("10 CLS\r20 A=1\n30 END", kDecb), file);
}

TEST_F(TextToBasicTest, ASecondLfAndACrBehindALineEndAreSteppedOver) {
    const std::string file = Tokens("10 CLS\r20 A=1\r", kDecb);
    EXPECT_EQ(Tokens("10 CLS\n\n20 A=1\n", kDecb), file);
    EXPECT_EQ(Tokens("10 CLS\n\r20 A=1", kDecb), file);
    EXPECT_EQ(Tokens("10 CLS\r\r20 A=1", kDecb), file);
}

TEST_F(TextToBasicTest, AFurtherLineEndIsPartOfWhatShouldBeANumber) {
    const std::string file = Tokens("10 CLS\n\n\n20 A=1\n", kDecb);
    EXPECT_EQ(Numbers(file), (std::vector<int>{10, 0}));
    EXPECT_EQ(Bodies(file), (std::vector<std::string>{"\x9E",
                                                      "A\xB3"
                                                      "1"}));
}

TEST_F(TextToBasicTest, BlanksAroundANumberAreLost) {
    EXPECT_EQ(Tokens("   10    CLS  ", kDecb), Tokens("10 CLS  ", kDecb));
    EXPECT_EQ(Bodies(Tokens("10   A  B ", kDecb)), std::vector<std::string>{"A  B "});
}

TEST_F(TextToBasicTest, BlanksToTheEndLeaveALinkThatStays0) {
    EXPECT_EQ(Tokens("10 A\r  ", kDecb), Hex("FF 000A 2607 000A 41 00 0000 0000"));
    EXPECT_EQ(Tokens("  ", kDecb), Hex("FF 0004 0000 0000"));
}

TEST_F(TextToBasicTest, ANumberAndBlanksToTheEndLeaveTheNumberToo) {
    EXPECT_EQ(Tokens("10 ", kDecb), Hex("FF 0006 0000 000A 0000"));
    EXPECT_EQ(Tokens("10    ", kDragon), Hex("55 01 2401 0006 8B8D AA 0000 000A 0000"));
}

TEST_F(TextToBasicTest, WithoutABlankInTheRestALineHasNoNumber) {
    EXPECT_EQ(Tokens("10CLS", kDecb), Hex("FF 0008 2607 3130 9E 00 0000"));
    // Its text ends at the line's end all the same, and so does the next one's.
    EXPECT_EQ(Tokens("1A\r2B\r", kDecb), Hex("FF 000C 2606 3141 00 260B 3242 00 0000"));
}

TEST_F(TextToBasicTest, ANumberReachesToTheNextBlankOverLineEnds) {
    const std::string file = Tokens("10\r20 CLS\r30 A", kDecb);
    EXPECT_EQ(Numbers(file), (std::vector<int>{10, 30}));
    EXPECT_EQ(Bodies(file), (std::vector<std::string>{"\x9E", "A"}));
}

TEST_F(TextToBasicTest, OfANumberTheDigitsInFrontCount) {
    const std::vector<std::pair<std::string, int>> rows = {
        {"0", 0},  {"32767", 32767}, {"000010", 10}, {"12X4", 12}, {"X12", 0}, {"-5", 0},
        {"+5", 0}, {"7.9", 7},       {".5", 0},      {"1E3", 1},   {"\t5", 0}, {"10:", 10},
    };
    for (const auto& [text, number] : rows) {
        EXPECT_EQ(
            Tokens(text + " AB", kDecb).substr(5),
            Tokens("0 AB", kDecb)
                .substr(5)
                .replace(0, 2, {static_cast<char>(number >> 8), static_cast<char>(number & 0xFF)}))
            << text;
    }
}

TEST_F(TextToBasicTest, ANumberAbove32767Fails) {
    for (const std::string number : {"32768", "65535", "63999", "123456", "99999999999999999999"}) {
        EXPECT_EQ(FailureOf([&] { Tokens(number + " CLS", kDecb); }), kOverflow) << number;
        EXPECT_EQ(FailureOf([&] { Tokens(number + " CLS", kDragon); }), kOverflow) << number;
    }
    EXPECT_EQ(FailureOf([&] { Tokens(std::string(65536, '9') + " CLS", kDecb); }), kOverflow);
}

TEST_F(TextToBasicTest, TheLongestProgram) {
    const auto lineOf = [](std::size_t letters) { return "10 " + std::string(letters, 'Z'); };
    // The header, the link and the number stand in front of the letters.
    EXPECT_EQ(Tokens(lineOf(23040 - 7), kDecb).size(), 23043U);
    EXPECT_EQ(Tokens(lineOf(23040 - 7), kDecb).substr(3, 2), Hex("7FFF"));
    EXPECT_EQ(FailureOf([&] { Tokens(lineOf(23041 - 7), kDecb); }), kOverflow);
    EXPECT_EQ(Tokens(lineOf(23558 - 13), kDragon).size(), 23561U);
    EXPECT_EQ(Tokens(lineOf(23558 - 13), kDragon).substr(9, 2), Hex("7FFF"));
    EXPECT_EQ(FailureOf([&] { Tokens(lineOf(23559 - 13), kDragon); }), kOverflow);
}

TEST_F(TextToBasicTest, ALineOf64KiBFails) {
    EXPECT_EQ(FailureOf([&] { Tokens("10 " + std::string(65536, 'A'), kDecb); }), kOverflow);
    EXPECT_EQ(FailureOf([&] { Tokens(std::string(65536, 'A'), kDragon); }), kOverflow);
}

TEST_F(TextToBasicTest, ManyLinesWithoutABlankAreNotSearchedForOneAgainAndAgain) {
    std::string text;
    for (int line = 0; line < 5000; ++line) text += "A\r";
    text.append(100'000'000, 'Z');
    // One search takes some 10 ms, one for each line would take most of a minute.
    EXPECT_EQ(FailureOf([&] { Tokens(text, kDecb); }), kOverflow);
}

// The text of a line

TEST_F(BodyTest, CommandsAndFunctions) {
    EXPECT_EQ(Coco("PRINT LEFT$(A$,1)"), Hex("87 20 FF8E 28 41 24 2C 31 29"));
    EXPECT_EQ(Dragon("PRINT LEFT$(A$,1)"), Hex("87 20 FF96 28 41 24 2C 31 29"));
}

TEST_F(BodyTest, GotoAndGosubArePairs) {
    EXPECT_EQ(Coco("GOTO10"), Hex("81 A5 31 30"));
    EXPECT_EQ(Coco("GOSUB10"), Hex("81 A6 31 30"));
    EXPECT_EQ(Dragon("GO TO10"), Hex("81 20 BC 31 30"));
}

TEST_F(BodyTest, WordsAreKnownWithinNames) {
    EXPECT_EQ(Coco("FOREST"), Hex("80") + "EST");
    EXPECT_EQ(Coco("XFORX"), "X" + Hex("80") + "X");
    EXPECT_EQ(Coco("A1TOB"), "A1" + Hex("A5") + "B");
}

TEST_F(BodyTest, LowerCaseIsNoWord) {
    EXPECT_EQ(Coco("print For"), "print For");
}

TEST_F(BodyTest, TheFirstWordOfTheListWinsNotTheLongest) {
    EXPECT_EQ(Coco("ERNO ERLIN ERR"), Hex("FFAC 20 FFAD 20 EF"));
    EXPECT_EQ(Dragon("ERROR ERR ERL"), Hex("DA 20 FFA5 20 FFA4"));
    EXPECT_EQ(Coco("ERROR"), Hex("EF B1"));
    EXPECT_EQ(Coco("ASC AS"), Hex("FF8A 20 FFA7"));
    EXPECT_EQ(Coco("STRING$ STR$"), Hex("FFA1 20 FF88"));
    EXPECT_EQ(Coco("INPUT INT"), Hex("89 20 FF81"));
    EXPECT_EQ(Dragon("DSKINIT"), Hex("D7"));
    EXPECT_EQ(Coco("DSKINIT"), Hex("DC") + "T");
    EXPECT_EQ(Coco("LOADM SAVEM"), Hex("D3 4D 20 D8 4D"));
}

TEST_F(BodyTest, VarptrOfTheColorComputerKeepsItsR) {
    EXPECT_EQ(Coco("VARPTR(A)"), Hex("FF9D") + "R(A)");
    EXPECT_EQ(Dragon("VARPTR(A)"), Hex("FF9C") + "(A)");
}

TEST_F(BodyTest, AQuestionMarkIsPrintAndItself) {
    EXPECT_EQ(Coco("?A"), Hex("87 3F") + "A");
    EXPECT_EQ(Dragon("?\"?\""), Hex("87 3F") + "\"?\"");
}

TEST_F(BodyTest, ElseAndTickGetAColonInFront) {
    EXPECT_EQ(Coco("IFATHEN1ELSE2"), Hex("85 41 A7 31 3A84 32"));
    EXPECT_EQ(Coco("ELSE"), Hex("3A84"));
    EXPECT_EQ(Coco("'X"), Hex("3A83") + "X");
    EXPECT_EQ(Dragon("'X"), Hex("3A83") + "X");
    EXPECT_EQ(Coco("A=1:'X"), "A" + Hex("B3") + "1:" + Hex("3A83") + "X");
}

TEST_F(BodyTest, QuotesKeepWordsAsTheyAre) {
    EXPECT_EQ(Coco("A$=\"FOR\"FOR"), "A$" + Hex("B3") + "\"FOR\"" + Hex("80"));
    EXPECT_EQ(Coco("A$=\"FOR"), "A$" + Hex("B3") + "\"FOR");
}

TEST_F(BodyTest, RemarksStayAsTheyAre) {
    EXPECT_EQ(Coco("REM FOR:NEXT?"), Hex("82") + " FOR:NEXT?");
    EXPECT_EQ(Coco("'FOR:DATA"), Hex("3A83") + "FOR:DATA");
}

TEST_F(BodyTest, DataStaysAsItIsUpToAColonOutsideQuotes) {
    EXPECT_EQ(Coco("DATAFOR,NEXT?:FOR"), Hex("86") + "FOR,NEXT?:" + Hex("80"));
    EXPECT_EQ(Coco("DATA\"A:B\",FOR"), Hex("86") + "\"A:B\",FOR");
}

TEST_F(BodyTest, AnOpenQuoteWithinARemarkOrDataLetsWordsBeKnown) {
    EXPECT_EQ(Coco("REM FOR\"FOR\"FOR"), Hex("82") + " FOR\"" + Hex("80") + "\"FOR");
    EXPECT_EQ(Coco("DATA FOR,\"FOR?\",FOR"), Hex("86") + " FOR,\"" + Hex("80 87 3F") + "\",FOR");
}

TEST_F(BodyTest, WithARemarkWithinDataAnOpenQuoteLetsNothingBeKnown) {
    // The quote within the data lets REM be known; from there on both hold.
    EXPECT_EQ(Coco("DATA\"REM FOR\"FOR\"FOR"), Hex("86") + "\"" + Hex("82") + " FOR\"FOR\"FOR");
    // The colon outside quotes ends the data but not the remark.
    EXPECT_EQ(Coco("DATA\"REM\":FOR\"FOR"), Hex("86") + "\"" + Hex("82") + "\":FOR\"" + Hex("80"));
}

TEST_F(BodyTest, EveryLineBeginsAnew) {
    EXPECT_EQ(Bodies(Tokens("10 REM\"\r20 FOR\r30 DATA\r40 FOR\r50 A\"\r60 FOR", kDecb)),
              (std::vector<std::string>{Hex("82 22"), Hex("80"), Hex("86"), Hex("80"), "A\"",
                                        Hex("80")}));
}

TEST_F(BodyTest, OtherBytesAreCopied) {
    EXPECT_EQ(Coco("\x01\x09\x7F\x80\xE9\xFF"), "\x01\x09\x7F\x80\xE9\xFF");
    EXPECT_EQ(Tokens(std::string("10 A\0B", 6), kDecb), Hex("FF 000A 2609 000A 41 00 42 00 0000"));
}

TEST_F(BodyTest, AWordCutByTheEndOfTheTextIsNoWord) {
    EXPECT_EQ(Coco("PRIN"), "PRIN");
    EXPECT_EQ(Coco("RESTOR"), Hex("") + "RES" + Hex("A5") + "R");
    EXPECT_EQ(Coco("AND"), Hex("B0"));
    EXPECT_EQ(Coco("AN"), "AN");
}

}  // namespace
}  // namespace brindlemoor::test
