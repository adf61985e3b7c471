#include "convert/cas.h"

#include <initializer_list>
#include <random>
#include <utility>

#include "convert/basic_fixture.h"
#include "convert/conversion.h"
#include "convert/tape_fixture.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using CasTest = TapeTest;
using Texts = std::vector<std::string>;

const std::string kNoBlock = "No encuentro ningún Bloque"_w;
const std::string kBadBlock = "ERROR!!! en el chequeo del bloque";
const std::string kBadBinary = "Error en archivo BIN";

const std::string kNoFields(4, '\0');

// File to tape

struct FileForm {
    std::string Rule;
    std::string Data;
    int Type;           ///< as the caller gives it
    int Ascii;          ///< as the caller gives it
    std::string Block;  ///< body of the name block
    std::string Body;
};

TEST_F(CasTest, TheFirstByteDecidesTheForm) {
    const std::vector<FileForm> forms = {
        {"tokens of the Color Computer", Hex("FF 0003 414243"), 2, 7,
         NameBody("TAPE", 0, 0, 0, kNoFields), "ABC"},
        {"the length of tokens is not looked at", Hex("FF 0001 414243"), 0, 0,
         NameBody("TAPE", 0, 0, 0, kNoFields), "ABC"},
        {"binary of the Color Computer, exec first", Hex("00 0003 1234 414243 FF 0000 5678"), 0, 9,
         NameBody("TAPE", 2, 0, 0, Hex("5678 1234")), "ABC"},
        {"the length of a binary is not looked at", Hex("00 0900 1234 414243 FF 0000 5678"), 0, 0,
         NameBody("TAPE", 2, 0, 0, Hex("5678 1234")), "ABC"},
        {"two segments stay as they are", Hex("00 0001 1234 41 00 0001 2000 42 FF 0000 5678"), 0, 0,
         NameBody("TAPE", 2, 0, 0, Hex("5678 1234")), Hex("41 00 0001 2000 42")},
        {"a file of the Dragon, load first", Hex("55 02 1234 0003 5678 AA 414243"), 2, 9,
         NameBody("TAPE", 2, 0, 0, Hex("1234 5678")), "ABC"},
        {"the type of a Dragon's file is the caller's", Hex("55 02 1234 0003 5678 AA 41"), 1, 9,
         NameBody("TAPE", 1, 0, 0, Hex("1234 5678")), "A"},
        {"a Dragon's header alone", Hex("55 02 1234 0000 5678 AA"), 0, 9,
         NameBody("TAPE", 0, 0, 0, Hex("1234 5678")), ""},
        {"raw data, whole", Hex("41 42 1234 0003 5678 AB 4344"), 1, 9,
         NameBody("TAPE", 1, 9, 9, Hex("1234 5678")), Hex("41 42 1234 0003 5678 AB 4344")},
        {"raw data shorter than its fields", Hex("41 42 12"), 3, 0,
         NameBody("TAPE", 3, 0, 0, Hex("1200 0000")), Hex("41 42 12")},
        {"0x55 without 0xAA is raw", Hex("55 02 1234 0003 5678 AB 41"), 0, 0,
         NameBody("TAPE", 0, 0, 0, Hex("1234 5678")), Hex("55 02 1234 0003 5678 AB 41")},
        {"four bytes 0x55 are no tape", Leader(4), 0, 0,
         NameBody("TAPE", 0, 0, 0, Hex("5555 0000")), Leader(4)},
        {"an empty file", "", 1, 0xFF, NameBody("TAPE", 1, 0xFF, 0xFF, kNoFields), ""},
    };
    for (const FileForm& form : forms) {
        const CasResult tape = Cas(form.Data, "TAPE.BIN", static_cast<std::int16_t>(form.Type),
                                   static_cast<std::int16_t>(form.Ascii));
        EXPECT_EQ(tape.Data, WholeTape(form.Block, form.Body)) << form.Rule;
        EXPECT_EQ(tape.Name, "TAPE.") << form.Rule;
        EXPECT_EQ(tape.Type, 4) << form.Rule;
        EXPECT_EQ(tape.AsciiFlag, static_cast<unsigned char>(form.Block[9])) << form.Rule;
        EXPECT_EQ(tape.GapFlag, tape.AsciiFlag) << form.Rule;
    }
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasTest, AnEmptyFileGivesLeadersANameBlockAndAnEndBlock) {
    const std::string tape = Cas("", "ABC.DAT", 1).Data;
    EXPECT_EQ(tape, Leader(128) + TapeBlock(0, NameBody("ABC", 1, 0, 0, kNoFields)) + Leader(128) +
                        TapeBlock(0xFF, ""));
}

TEST_F(CasTest, ABinaryOfSeveralSegmentsIsCutAsIfItHadOne) {
    const std::string binary = Hex("00 0001 1234 41 00 0001 2000 42 00 0001 3000 43 FF 0000 5678");
    const std::string body = Hex("41 00 0001 2000 42 00 0001 3000 43");
    EXPECT_EQ(Cas(binary).Data, WholeTape(NameBody("TAPE", 2, 0, 0, Hex("5678 1234")), body));
}

TEST_F(CasTest, ABinaryMustHaveItsFrameOfTenBytes) {
    EXPECT_EQ(Cas(Hex("00 0000 1234 FF 0000 5678")).Data,
              WholeTape(NameBody("TAPE", 2, 0, 0, Hex("5678 1234")), ""));
    for (std::size_t size = 1; size < 10; ++size) {
        std::string name = "TAPE.BIN";
        std::int16_t type = 1;
        std::int16_t ascii = 2;
        std::int16_t gap = 0;
        EXPECT_EQ(
            FailureOf([&] { CasConvert(std::string(size, '\0'), name, type, ascii, gap, 0, 0); }),
            kInvalidCall)
            << size;
        EXPECT_EQ(name, "TAPE.BIN");
        EXPECT_EQ(type, 1);
        EXPECT_EQ(ascii, 2);
        EXPECT_EQ(gap, 0);
    }
}

TEST_F(CasTest, RawDataOfMachineLanguageIsToldAndWritten) {
    const std::string data = Hex("41 42 1234 0003 5678 AA");
    EXPECT_EQ(Cas(data, "A", 2).Data, WholeTape(NameBody("A", 2, 0, 0, Hex("1234 5678")), data));
    EXPECT_EQ(Shown(), Texts{kBadBinary});
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(CasTest, AnEmptyFileOfMachineLanguageIsToldToo) {
    EXPECT_EQ(Cas("", "A", 2).Data, WholeTape(NameBody("A", 2, 0, 0, kNoFields), ""));
    EXPECT_EQ(Shown(), Texts{kBadBinary});
}

TEST_F(CasTest, TheContentsAreCutIntoBlocksOf255Bytes) {
    for (const std::size_t size : {0U, 1U, 254U, 255U, 256U, 510U, 511U, 70000U}) {
        const std::string body = Counting(size, 1);
        EXPECT_EQ(Cas(Hex("FF 0000") + body).Data,
                  WholeTape(NameBody("TAPE", 0, 0, 0, kNoFields), body))
            << size;
    }
    EXPECT_EQ(BlocksOf(Cas(Hex("FF 0000") + Counting(255)).Data).size(), 3U);
    EXPECT_EQ(BlocksOf(Cas(Hex("FF 0000") + Counting(256)).Data).size(), 4U);
}

TEST_F(CasTest, TheNameBlockHasEightCharactersOfTheName) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"ABC.BAS", "ABC     "}, {"ABC", "ABC     "},      {"ABCDEFGHIJ.BAS", "ABCDEFGH"},
        {"A.B.C", "A       "},   {".BAS", "        "},     {"", "        "},
        {"abc def", "abc def "}, {"ABCDEFGH", "ABCDEFGH"},
    };
    for (const auto& [name, stored] : names) {
        const CasResult tape = Cas("data", name, 1);
        EXPECT_EQ(BlocksOf(tape.Data).at(0).substr(4, 8), stored) << name;
        EXPECT_EQ(tape.Name, name.substr(0, name.find('.')) + ".") << name;
    }
}

TEST_F(CasTest, AnAsciiFileStopsBehindItsFirstDataBlock) {
    const std::string text = "\r10 CLS\r";
    for (const std::string& data : {text, text + std::string(600, 'A')}) {
        EXPECT_EQ(FailureOf([&] { Cas(data); }), kCannotPerform);
    }
    EXPECT_EQ(FailureOf([] { Cas("raw", "A", 1, 0xFF); }), kCannotPerform);
}

TEST_F(CasTest, TheStopIsShownInTheErrorBoxAndNothingIsChanged) {
    std::string name = "TEXT.BAS";
    std::int16_t type = 3;
    std::int16_t ascii = 1;
    std::int16_t gap = 0;
    EXPECT_EQ(
        ConvertedOrNothing([&] { return CasConvert("\r10 CLS\r", name, type, ascii, gap, 0, 0); }),
        "");
    EXPECT_EQ(Shown(), Texts{"Run-time error '17':\r\n\r\nCan't perform requested operation"});
    EXPECT_EQ(name, "TEXT.BAS");
    EXPECT_EQ(type, 3);
    EXPECT_EQ(ascii, 1);
    EXPECT_EQ(gap, 0);
}

TEST_F(CasTest, AFlagOtherThan255DoesNotStop) {
    for (const int flag : {0, 1, 254}) {
        EXPECT_EQ(Cas(Counting(600, 'A'), "A", 1, static_cast<std::int16_t>(flag)).Data,
                  WholeTape(NameBody("A", 1, flag, flag, "CDGH"), Counting(600, 'A')));
    }
}

// Tape to file

TEST_F(CasTest, FiveBytes55MakeATape) {
    const std::string rest = TapeBlock(0, NameBody("ABC", 0, 0, 0, kNoFields)) +
                             TapeBlock(1, "body") + TapeBlock(0xFF, "");
    EXPECT_EQ(Cas(Leader(4) + rest).Data, Hex("FF 0004") + "body");
    EXPECT_EQ(Cas(Leader(5) + rest).Data, Hex("FF 0004") + "body");
    EXPECT_EQ(Cas(Leader(3) + rest).Name, "TAPE.");
}

struct DiskForms {
    int Type;
    int Ascii;
    std::string Coco;
    std::string Dragon;
    std::string Extension;
};

TEST_F(CasTest, TypeAndFlagDecideTheFileOfEachFamily) {
    const std::vector<DiskForms> forms = {
        {0, 0xFF, "body", Hex("55 01 1234 0004 5678 AA") + "body", ".BAS"},
        {0, 0, Hex("FF 0004") + "body", Hex("55 01 1234 0004 5678 AA") + "body", ".BAS"},
        {0, 7, "body", Hex("55 01 1234 0004 5678 AA") + "body", ".BAS"},
        {1, 0, "body", Hex("55 01 1234 0004 5678 AA") + "body", ".DAT"},
        {1, 0xFF, "body", Hex("55 01 1234 0004 5678 AA") + "body", ".DAT"},
        {2, 0, Hex("00 0004 5678") + "body" + Hex("FF 0000 1234"),
         Hex("55 02 1234 0004 5678 AA") + "body", ".BIN"},
        {2, 0xFF, Hex("00 0004 5678") + "body" + Hex("FF 0000 1234"),
         Hex("55 02 1234 0004 5678 AA") + "body", ".BIN"},
        {3, 0, "body", Hex("55 03 1234 0004 5678 AA") + "body", ".TXT"},
        {4, 0, "body", Hex("55 04 1234 0004 5678 AA") + "body", ".CAS"},
        {5, 0, "body", Hex("55 05 1234 0004 5678 AA") + "body", ""},
        {255, 0, "body", Hex("55 FF 1234 0004 5678 AA") + "body", ""},
    };
    for (const DiskForms& form : forms) {
        const std::string tape =
            WholeTape(NameBody("ABC", form.Type, form.Ascii, 3, Hex("1234 5678")), "body");
        for (const int family : std::initializer_list<int>{kDecb, kDragon, kOs9, kFlex, 7}) {
            Disk.DiskFamily = static_cast<std::uint16_t>(family);
            const CasResult file = Cas(tape, "OTHER.CAS", 9, 9);
            const std::string expected = family == kDecb     ? form.Coco
                                         : family == kDragon ? form.Dragon
                                                             : std::string();
            EXPECT_EQ(file.Data, expected) << form.Type << " " << form.Ascii << " " << family;
            EXPECT_EQ(file.Name, "ABC" + form.Extension);
            EXPECT_EQ(file.Type, form.Type);
            EXPECT_EQ(file.AsciiFlag, form.Ascii);
            EXPECT_EQ(file.GapFlag, 3);
        }
    }
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasTest, ATapeOfAnotherFamilyThanTheTwoGivesNothing) {
    const std::string tape = WholeTape(NameBody("ABC", 0, 0, 0, kNoFields), "body");
    for (const int family : std::initializer_list<int>{kOs9, kFlex}) {
        Disk.DiskFamily = static_cast<std::uint16_t>(family);
        EXPECT_EQ(Cas(tape).Data, "") << family;
        EXPECT_EQ(Cas(tape).Name, "ABC.BAS") << family;
    }
}

TEST_F(CasTest, DataBlocksAreJoinedAsFarAsTheFirstEndBlock) {
    const std::string name = TapeBlock(0, NameBody("ABC", 1, 0, 0, kNoFields));
    EXPECT_EQ(Cas(Leader() + name + TapeBlock(1, "one") + Leader() + TapeBlock(7, "other") +
                  TapeBlock(1, "two") + TapeBlock(0xFF, "more") + TapeBlock(1, "three"))
                  .Data,
              "onetwo");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasTest, AnyEmptyBlockEndsTheTape) {
    const std::string name = TapeBlock(0, NameBody("ABC", 1, 0, 0, kNoFields));
    for (const int type : {1, 2, 77, 0xFF}) {
        const CasResult file =
            Cas(Leader() + name + TapeBlock(1, "one") + TapeBlock(type, "") + TapeBlock(1, "two"));
        EXPECT_EQ(file.Data, "one") << type;
        EXPECT_EQ(file.Name, "ABC.DAT") << type;
    }
    EXPECT_EQ(Cas(Leader() + TapeBlock(0, "") + TapeBlock(1, "two")).Data, Hex("FF 0000"));
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasTest, TheLastNameBlockCounts) {
    const CasResult file = Cas(Leader() + TapeBlock(0, NameBody("ONE", 2, 0, 0, Hex("1111 2222"))) +
                               TapeBlock(0, NameBody("TWO", 2, 0, 0, Hex("1234 5678"))) +
                               TapeBlock(1, "b") + TapeBlock(0xFF, ""));
    EXPECT_EQ(file.Name, "TWO.BIN");
    EXPECT_EQ(file.Data, Hex("00 0001 5678") + "b" + Hex("FF 0000 1234"));
}

TEST_F(CasTest, ANameBlockThatIsTooShortLeavesZeros) {
    const CasResult file =
        Cas(Leader() + TapeBlock(0, "AB") + TapeBlock(1, "b") + TapeBlock(0xFF, ""), "X", 2, 5, 5);
    EXPECT_EQ(file.Name, "AB.BAS");
    EXPECT_EQ(file.Data, Hex("FF 0001") + "b");
    EXPECT_EQ(file.GapFlag, 0);
}

TEST_F(CasTest, WithoutANameBlockTheValuesAreTheCallers) {
    const std::string tape = Leader() + TapeBlock(1, "b") + TapeBlock(0xFF, "");
    const CasResult file = Cas(tape, "OLD.NAME.CAS", 2, 5, 0);
    EXPECT_EQ(file.Data, Hex("00 0001 0000") + "b" + Hex("FF 0000 0000"));
    EXPECT_EQ(file.Name, "OLD.BIN");
    EXPECT_EQ(file.Type, 2);
    EXPECT_EQ(file.AsciiFlag, 5);
    EXPECT_EQ(file.GapFlag, 1);
    EXPECT_EQ(Cas(tape, "A", 2, 5, 6).GapFlag, 6);
    EXPECT_EQ(FailureOf([&] { Cas(tape, "A", -1); }), kInvalidCall);
    EXPECT_EQ(Cas(tape, "A", 0x7FFF).Name, "A");
}

TEST_F(CasTest, BlanksBehindTheNameAreLost) {
    EXPECT_EQ(Cas(WholeTape(NameBody(" A B", 1, 0, 0, kNoFields), "x")).Name, " A B.DAT");
}

TEST_F(CasTest, ALongFileKeepsTheLow16BitsOfItsLength) {
    const std::string body = Counting(0x18001);
    EXPECT_EQ(Cas(WholeTape(NameBody("A", 0, 0, 0, kNoFields), body)).Data, Hex("FF 8001") + body);
}

TEST_F(CasTest, EveryBadBlockIsToldOnceAndItsBytesAreKept) {
    std::string tape = WholeTape(NameBody("A", 1, 0, 0, kNoFields), Counting(600));
    const std::size_t data = 128 + 21 + 128;
    tape[data + 4 + 255] = static_cast<char>(tape[data + 4 + 255] + 1);
    tape[data + 2 * 261 + 4 + 90 + 1] = 'x';
    EXPECT_EQ(Cas(tape).Data, Counting(600));
    EXPECT_EQ(Shown(), (Texts{kBadBlock, kBadBlock}));
}

TEST_F(CasTest, AStreamWithoutAnEndBlockEndsAtTheFirstFailedSearch) {
    const std::string tape =
        Leader() + TapeBlock(0, NameBody("ABC", 1, 0, 0, kNoFields)) + TapeBlock(1, "body");
    EXPECT_EQ(Cas(tape).Data, "body");
    EXPECT_EQ(Shown(), Texts{kNoBlock});
    script_.Messages.clear();
    // What is taken for a block then has the type 0x55, which is none that counts.
    EXPECT_EQ(Cas(tape + Leader(4000)).Data, "body");
    EXPECT_EQ(Shown(), (Texts{kNoBlock, kBadBlock}));
}

TEST_F(CasTest, ABlockTakenWithoutASyncByteCounts) {
    const std::string tape =
        Leader() + TapeBlock(0, NameBody("ABC", 1, 0, 0, kNoFields)) + Hex("01 02 41 42 86 55");
    EXPECT_EQ(Cas(tape).Data, "AB");
    EXPECT_EQ(Shown(), Texts{kNoBlock});
}

TEST_F(CasTest, AStreamOfLeaderAloneIsToldOnce) {
    EXPECT_EQ(Cas(Leader(3'000'000)).Data, Hex("FF 0000"));
    EXPECT_EQ(Shown(), (Texts{kNoBlock, kBadBlock}));
}

// Both ways

TEST_F(CasTest, FilesComeBackFromTape) {
    const std::vector<std::string> files = {
        Hex("FF 0258") + Counting(600), Hex("00 0258 1234") + Counting(600) + Hex("FF 0000 5678")};
    for (const std::string& file : files) EXPECT_EQ(Cas(Cas(file).Data).Data, file);
    Disk.DiskFamily = kDragon;
    const std::string dragon = Hex("55 02 1234 0258 5678 AA") + Counting(600);
    EXPECT_EQ(Cas(Cas(dragon, "A", 2).Data).Data, dragon);
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasTest, ATapeOfAMillionBytesIsReadInOnePass) {
    const std::string body = Counting(4'000'000);
    const std::string tape = WholeTape(NameBody("A", 1, 0, 0, kNoFields), body);
    EXPECT_EQ(Cas(tape).Data, body);
}

// Damage

/// Either a result, or a failure that is the conversion's own.
void ConvertHostile(const std::string& data, std::mt19937& random) {
    Disk.DiskFamily = static_cast<std::uint16_t>(random() % 5);
    try {
        std::string name = "A.B";
        auto type = static_cast<std::int16_t>(random() % 6);
        auto ascii = static_cast<std::int16_t>(random() % 2 * 255);
        std::int16_t gap = 0;
        const std::string result = CasConvert(data, name, type, ascii, gap, 0, 0);
        EXPECT_LE(result.size(), data.size() * 2 + 400);
    } catch (const RuntimeFailure& failure) {
        EXPECT_TRUE(failure.Number == kInvalidCall || failure.Number == kCannotPerform);
    }
}

TEST_F(CasTest, ATapeMayEndAnywhere) {
    std::mt19937 random(1);
    const std::string tape = WholeTape(NameBody("ABC", 2, 0, 0, Hex("1234 5678")), Counting(300));
    for (std::size_t size = 0; size < tape.size(); ++size) {
        ConvertHostile(tape.substr(0, size), random);
    }
}

TEST_F(CasTest, AFileMayEndAnywhere) {
    std::mt19937 random(2);
    for (const char* start : {"00 0003 1234", "FF 0003", "0D", "55 01 2401 0010 8B8D AA", "41"}) {
        const std::string file = Hex(start) + Counting(20);
        for (std::size_t size = 0; size <= file.size(); ++size) {
            ConvertHostile(file.substr(0, size), random);
        }
    }
}

TEST_F(CasTest, TenThousandSpoiledTapesDoNoHarm) {
    std::mt19937 random(20261121);
    const std::string good = WholeTape(NameBody("ABC", 2, 0, 0, Hex("1234 5678")), Counting(300));
    for (int round = 0; round < 10'000; ++round) {
        script_.Messages.clear();
        std::string tape = good;
        for (std::size_t i = random() % 8 + 1; i > 0; --i) {
            tape[random() % tape.size()] = static_cast<char>(random() % 3 == 0 ? 0x55 : random());
        }
        ConvertHostile(tape, random);
    }
}

}  // namespace
}  // namespace brindlemoor::test
