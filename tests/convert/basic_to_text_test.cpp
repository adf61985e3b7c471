#include "convert/basic_to_text.h"

#include <gtest/gtest.h>

#include "convert/basic.h"
#include "convert/basic_fixture.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;
using BasicToTextTest = BasicTest;

const Texts kCutShort = {"Final de archivo inesperado"};

std::string Coco(const std::string& body) {
    return CocoFile(TokenLine(10, Hex(body)));
}

std::string Dragon(const std::string& body) {
    return DragonFile(TokenLine(10, Hex(body)));
}

TEST_F(BasicToTextTest, ATextBeginsWithACrAndEveryLineEndsInOne) {
    EXPECT_EQ(Text(CocoFile(TokenLine(10, "\x9E") + TokenLine(20, "\x8A"))), "\r10 CLS\r20 END\r");
    EXPECT_EQ(Text(DragonFile(TokenLine(10, "\xA0") + TokenLine(20, "\x8A"))),
              "\r10 CLS\r20 END\r");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(BasicToTextTest, WithLineFeedsEveryLineEndsInCrLfButTheFirstCrStandsAlone) {
    EXPECT_EQ(Text(CocoFile(TokenLine(1, "A") + TokenLine(2, "B\rXX")), true),
              "\r1 A\r\n2 B\r\n0 ");
}

TEST_F(BasicToTextTest, TheMachineIsThatOfTheFirstByteWhateverDiskIsOpen) {
    for (const int family : {kDecb, kDragon, kOs9, kFlex}) {
        Disk.DiskFamily = static_cast<std::uint16_t>(family);
        EXPECT_EQ(Text(Coco("9E FFA1")), "\r10 CLSSTRING$\r");
        EXPECT_EQ(Text(Dragon("9E FFA1")), "\r10 SETUSR\r");
    }
}

TEST_F(BasicToTextTest, ACocoFileIsCutToItsLengthAndOneByte) {
    const std::string file = Coco("8A");
    std::string data = file + "behind";
    EXPECT_EQ(BasicConvert(data, false), "\r10 END\r");
    // The last link of two zero bytes is gone too.
    EXPECT_EQ(data, file.substr(0, file.size() - 2));
}

TEST_F(BasicToTextTest, TheBytesBehindTheLengthAreNotRead) {
    std::string file = CocoFile(TokenLine(10, "A") + TokenLine(20, "B"));
    // The first line takes the offsets 3 to 8.
    const std::vector<std::pair<char, std::string>> rows = {
        {6, "\r10 "}, {7, "\r10 A"}, {8, "\r10 A\r"}, {9, "\r10 A\r"}, {10, "\r10 A\r0 "}};
    for (const auto& [length, text] : rows) {
        script_.Messages.clear();
        file[2] = length;
        EXPECT_EQ(Text(file), text) << int{length};
        EXPECT_EQ(Shown(), text.back() == '\r' ? Texts() : kCutShort) << int{length};
    }
}

TEST_F(BasicToTextTest, ADragonFileIsNeverCut) {
    const std::string file = Dragon("8A") + "behind";
    std::string data = file;
    EXPECT_EQ(BasicConvert(data, false), "\r10 END\r");
    EXPECT_EQ(data, file);
}

TEST_F(BasicToTextTest, LengthField0LeavesOneByteAndTheCr) {
    std::string data = Hex("FF 0000 2610 000A 41 00 0000");
    EXPECT_EQ(BasicConvert(data, false), "\r");
    EXPECT_EQ(data, "\xFF");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(BasicToTextTest, ALengthFieldAsLongAsCanBeReadsTheWholeFile) {
    std::string data = Coco("8A");
    data[1] = '\x7F';
    data[2] = '\xFF';
    const std::string file = data;
    EXPECT_EQ(BasicConvert(data, false), "\r10 END\r");
    EXPECT_EQ(data, file);
}

TEST_F(BasicToTextTest, ANegativeLengthFieldFailsAndTheDataStays) {
    for (const char* length : {"8000", "C123", "FFFE", "FFFF"}) {
        const std::string file = "\xFF" + Hex(length) + TokenLine(10, "A");
        std::string data = file;
        EXPECT_EQ(FailureOf([&] { BasicConvert(data, false); }), kInvalidCall) << length;
        EXPECT_EQ(data, file);
    }
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(BasicToTextTest, ALengthFieldOfOneByteIsThatByte) {
    std::string data = Hex("FF FF");
    EXPECT_EQ(BasicConvert(data, false), "\r");
    EXPECT_EQ(data, Hex("FF FF"));
    data = Hex("FF 00");
    EXPECT_EQ(BasicConvert(data, false), "\r");
    EXPECT_EQ(data, "\xFF");
}

TEST_F(BasicToTextTest, ADragonHeaderWithoutItsEndMarkIsToldAndReadOn) {
    std::string file = Dragon("8A");
    file[8] = '\xAB';
    EXPECT_EQ(Text(file), "\r10 END\r");
    EXPECT_EQ(Shown(), Texts{"El archivo no contiene &hAA en el Byte 9\r\n"
                             "Error !!! En encabezado DRAGON BAS Comprimido"});
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
}

TEST_F(BasicToTextTest, ATextThatBeginsWithUIsTakenForADragonFile) {
    EXPECT_EQ(Text("UNTIL NOW"), "\r");
    EXPECT_EQ(Shown().size(), 1U);
    // "H " is the link, "LA" the number.
    EXPECT_EQ(Text("UNTIL MUCH LATER"), "\r19521 TER");
    EXPECT_EQ(Shown().size(), 3U);
}

TEST_F(BasicToTextTest, ALinkOf0EndsTheProgram) {
    const std::string lines = TokenLine(10, "A") + Hex("0000") + TokenLine(20, "B");
    EXPECT_EQ(Text(CocoFile(lines)), "\r10 A\r");
    EXPECT_EQ(Text(DragonFile(lines)), "\r10 A\r");
}

TEST_F(BasicToTextTest, LinksAreNotFollowed) {
    EXPECT_EQ(Text(CocoFile(Hex("FFFF 0001 41 00 0001 0002 42 00"))), "\r1 A\r2 B\r");
}

TEST_F(BasicToTextTest, ALineNumberIsUnsigned) {
    EXPECT_EQ(Text(CocoFile(TokenLine(0xFFFF, "A") + TokenLine(0x8000, "B") + TokenLine(0, "C"))),
              "\r65535 A\r32768 B\r0 C\r");
}

TEST_F(BasicToTextTest, TheLastByteNeverStartsALine) {
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 26")), "\r");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(BasicToTextTest, AFileThatEndsInALinesHeadShowsWhatThereIsOfTheNumber) {
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610")), "\r0 ");
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 07")), "\r7 ");
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 0107")), "\r263 ");
    EXPECT_EQ(Shown(), (Texts{kCutShort[0], kCutShort[0], kCutShort[0]}));
}

TEST_F(BasicToTextTest, AFileThatEndsWithinALineIsToldOnceAndShownSoFar) {
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 87 41")), "\r10 PRINTA");
    EXPECT_EQ(Shown(), kCutShort);
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
}

TEST_F(BasicToTextTest, AFileThatEndsInTheZeroOfALineIsWhole) {
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 41 00")), "\r10 A\r");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(BasicToTextTest, AByte13EndsALineAsA0Does) {
    EXPECT_EQ(Text(CocoFile(Hex("2610 000A 41 0D 2610 000B 42 00"))), "\r10 A\r11 B\r");
}

TEST_F(BasicToTextTest, AColonInFrontOfTickAndElseIsNotShown) {
    EXPECT_EQ(Text(Coco("3A83 41")), "\r10 'A\r");
    EXPECT_EQ(Text(Coco("41 3A84 42")), "\r10 AELSEB\r");
    EXPECT_EQ(Text(Dragon("3A83 3A84")), "\r10 'ELSE\r");
}

TEST_F(BasicToTextTest, AnyOtherColonStays) {
    EXPECT_EQ(Text(Coco("3A82 3A85 3A41 3A3A83 3A")), "\r10 :REM:IF:A:':\r");
    EXPECT_EQ(Text(Coco("83 84")), "\r10 'ELSE\r");
}

TEST_F(BasicToTextTest, AColonAsLastByteLooksAtWhatStoodBehindTheByteBefore) {
    // Of the two pairs the first leaves 0x83 behind: the last colon is taken for a third one.
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 3A83 3A")), "\r10 ''");
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A FF84 3A")), "\r10 RNDELSE");
    // The byte before saw the colon itself.
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 83 3A")), "\r10 ':");
    // Also from the line before: its end saw the first byte of this line's link.
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 00 8310 000B 3A")), "\r10 \r11 '");
    // Nothing was read before.
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 3A")), "\r10 :");
}

TEST_F(BasicToTextTest, WordsWithinQuotesAndRemarksAreShownAsEverywhere) {
    EXPECT_EQ(Text(Coco("82 20 80 22 87 22")), "\r10 REM FOR\"PRINT\"\r");
}

TEST_F(BasicToTextTest, TheColorComputerHasNoWordsAbove0xF8) {
    EXPECT_EQ(Text(Coco("F8")), "\r10 ATTR\r");
    for (int byte = 0xF9; byte <= 0xFE; ++byte) {
        script_.Messages.clear();
        EXPECT_EQ(Text(CocoFile(TokenLine(10, "A" + std::string(1, static_cast<char>(byte))))),
                  "\r10 AA\r");
        EXPECT_EQ(Shown(),
                  Texts{"Position: 9 Command: " + std::to_string(byte - 128) + " Max: 120"});
    }
}

TEST_F(BasicToTextTest, TheDragonShows0xE8To0xF8AsCharactersAndTellsOfTheRest) {
    EXPECT_EQ(Text(Dragon("E7")), "\r10 SWAP\r");
    for (int byte = 0xE8; byte <= 0xF8; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(Text(DragonFile(TokenLine(10, one))), "\r10 " + one + "\r");
    }
    EXPECT_EQ(Shown(), Texts());
    for (int byte = 0xF9; byte <= 0xFE; ++byte) {
        script_.Messages.clear();
        EXPECT_EQ(Text(DragonFile(TokenLine(10, std::string(1, static_cast<char>(byte))))),
                  "\r10 \r");
        EXPECT_EQ(Shown(),
                  Texts{"Position: 14 Command: " + std::to_string(byte - 128) + " Max: 103"});
    }
}

TEST_F(BasicToTextTest, AFunctionOutsideItsTableIsToldWithThePlaceOfItsToken) {
    EXPECT_EQ(Text(Coco("FFAD 41 FFAE 42")), "\r10 ERLINAAB\r");
    EXPECT_EQ(Text(Dragon("FFA8 41 FFA9 42")), "\r10 FRE$AAB\r");
    EXPECT_EQ(Text(Coco("41 FF7F 42")), "\r10 AAB\r");
    EXPECT_EQ(Text(Coco("41 FFFF 42")), "\r10 AAB\r");
    EXPECT_EQ(Shown(), (Texts{"Position: 12 Fn: 46 Max: 45", "Position: 18 Fn: 41 Max: 40",
                              "Position: 10 Fn: -1 Max: 45", "Position: 10 Fn: 127 Max: 45"}));
}

TEST_F(BasicToTextTest, TheErrorBoxHasOkAndCancelAndTheStopIcon) {
    Text(Coco("F9"));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
}

TEST_F(BasicToTextTest, BehindAnErrorTheWordBeforeIsShownAgain) {
    EXPECT_EQ(Text(Coco("87 F9 F9 41")), "\r10 PRINTPRINTPRINTA\r");
    EXPECT_EQ(Text(Coco("3A84 FFFE")), "\r10 ELSEELSE\r");
    // The first word of the run is empty; a line begins with the CR of the line before.
    EXPECT_EQ(Text(CocoFile(TokenLine(10, "\xF9") + TokenLine(20, "\xF9"))), "\r10 \r20 \r\r");
}

TEST_F(BasicToTextTest, CancelGivesAnEmptyTextWhateverWasRead) {
    GiveUpAtErrors();
    EXPECT_EQ(Text(CocoFile(TokenLine(10, "A") + TokenLine(20, "\xF9") + TokenLine(30, "\xF9"))),
              "");
    EXPECT_EQ(Text(Dragon("41 FFA9")), "");
    EXPECT_EQ(Shown().size(), 2U);
}

TEST_F(BasicToTextTest, CancelLeavesACocoFileCut) {
    GiveUpAtErrors();
    std::string data = Coco("F9");
    const std::string file = data;
    EXPECT_EQ(BasicConvert(data, false), "");
    EXPECT_EQ(data, file.substr(0, file.size() - 2));
}

TEST_F(BasicToTextTest, APrefixBeforeA13EndsTheLineWithoutACr) {
    EXPECT_EQ(Text(CocoFile(Hex("2610 000A 41 FF0D 2610 000B 42 00"))), "\r10 AA11 B\r");
    EXPECT_EQ(Shown(), Texts{"Position: 10 Fn: -115 Max: 45"});
}

TEST_F(BasicToTextTest, APrefixBeforeA0DoesNotEndTheLine) {
    EXPECT_EQ(Text(Coco("41 FF00 42")), "\r10 AAB\r");
    EXPECT_EQ(Shown(), Texts{"Position: 10 Fn: -128 Max: 45"});
}

TEST_F(BasicToTextTest, APrefixAsLastByteReadsA0BehindIt) {
    EXPECT_EQ(Text(Hex("55 00 0000 0000 0000 AA 2610 000A 41 FF")), "\r10 AA");
    EXPECT_EQ(Shown(), (Texts{"Position: 16 Fn: -128 Max: 40", kCutShort[0]}));
}

TEST_F(BasicToTextTest, AThousandWrongBytesAreTellingsThatCanBeEnded) {
    const std::string file = DragonFile(TokenLine(10, std::string(1000, '\xF9')));
    EXPECT_EQ(Text(file), "\r10 \r");
    EXPECT_EQ(Shown().size(), 1000U);
    GiveUpAtErrors();
    script_.Messages.clear();
    EXPECT_EQ(Text(file), "");
    EXPECT_EQ(Shown().size(), 1U);
}

TEST_F(BasicToTextTest, ALineOf64KiBIsShownWhole) {
    const std::string body(65536, 'A');
    EXPECT_EQ(Text("\x55" + std::string(7, '\0') + "\xAA" + TokenLine(10, body)),
              "\r10 " + body + "\r");
}

}  // namespace
}  // namespace brindlemoor::test
