#include "filesystems/file_names.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

class FileNames : public DiskTest {};

struct NameCase {
    std::string Wanted;
    std::string Text;
    std::string Name;
    std::string Ext;
};

TEST_F(FileNames, DecbAndDragonTakeEightCharactersAndThree) {
    const std::string blank8(8, ' ');
    const std::vector<NameCase> cases = {
        {"my file.bas", "MY-FILE.BAS", "MY-FILE ", "BAS"},
        {"A.B.C", "A.B.C", "A       ", "B  "},
        {"NOEXT", "NOEXT", "NOEXT   ", "   "},
        {"NOEXT.", "NOEXT.", "NOEXT   ", "   "},
        {".bas", ".BAS", blank8, "BAS"},
        {".", ".", blank8, "   "},
        {"...", "...", blank8, "   "},
        {"", "", blank8, "   "},
        {"    ", "", blank8, "   "},
        {"  two words .t x ", "TWO-WORDS-.T-X", "TWO-WORD", "T-X"},
        {"longer than eight.text", "LONGER-THAN-EIGHT.TEXT", "LONGER-T", "TEX"},
        {"eightchr.abc", "EIGHTCHR.ABC", "EIGHTCHR", "ABC"},
        {"A1234567890123456789012345678.B", "A1234567890123456789012345678.B", "A1234567", "B  "},
        {"caf\xE9.\xFA"
         "1",
         "CAF\xE9.\xFA"
         "1",
         "CAF\xE9    ",
         "\xFA"
         "1 "},
        {"a/b:c.d", "A/B:C.D", "A/B:C   ", "D  "},
        {"[].x", "[].X", "[]      ", "X  "},
        {std::string("a\0b", 3), std::string("A\0B", 3), std::string("A\0B     ", 8), "   "},
    };
    for (const Family family : {kDecb, kDragon}) {
        Disk.DiskFamily = family;
        for (const NameCase& expected : cases) {
            const DiskFileName name = NameForDisk(expected.Wanted);
            EXPECT_EQ(name.Text, expected.Text) << expected.Wanted;
            EXPECT_EQ(name.Name, expected.Name) << expected.Wanted;
            EXPECT_EQ(name.Ext, expected.Ext) << expected.Wanted;
        }
    }
}

TEST_F(FileNames, ANameOf300CharactersIsCutInItsFieldsOnly) {
    const DiskFileName name = NameForDisk(std::string(300, 'x') + "." + std::string(300, 'y'));
    EXPECT_EQ(name.Text, std::string(300, 'X') + "." + std::string(300, 'Y'));
    EXPECT_EQ(name.Name, "XXXXXXXX");
    EXPECT_EQ(name.Ext, "YYY");
}

TEST_F(FileNames, Os9AndFlexTake29CharactersAndNoFields) {
    for (const Family family : {kOs9, kFlex}) {
        Disk.DiskFamily = family;
        for (const std::string& wanted : {std::string("  my file.bas "), std::string(29, 'n')}) {
            EXPECT_EQ(NameForDisk(wanted).Text, wanted);
        }
        const DiskFileName name = NameForDisk(std::string(300, 'n'));
        EXPECT_EQ(name.Text, std::string(29, 'n'));
        EXPECT_EQ(name.Name, "");
        EXPECT_EQ(name.Ext, "");
    }
}

TEST_F(FileNames, TheWantedNameStandsBehindTheLastBackslash) {
    EXPECT_EQ(WantedName("C:\\DIR\\FILE.BAS"), "FILE.BAS");
    EXPECT_EQ(WantedName("C:\\DIR\\"), "");
    EXPECT_EQ(WantedName("FILE.BAS"), "FILE.BAS");
    EXPECT_EQ(WantedName("A\\B.BAS"), "B.BAS");
    EXPECT_EQ(WantedName(""), "");
}

#ifndef _WIN32
TEST_F(FileNames, ASlashDividesThePathsOfThePcAndNotTheNamesOfADisk) {
    EXPECT_EQ(WantedName("/home/me/file.bas"), "file.bas");
    EXPECT_EQ(WantedName("/file.bas"), "file.bas");
    EXPECT_EQ(WantedName("/home/a\\b/c.bas"), "c.bas");
    EXPECT_EQ(WantedName("/home/b/a\\c.bas"), "c.bas");
    EXPECT_EQ(WantedName("A/B.BAS"), "A/B.BAS");
}
#endif

TEST_F(FileNames, TheTypeGoesByTheExtension) {
    EXPECT_EQ(TypeOfExtension("BAS"), 0);
    EXPECT_EQ(TypeOfExtension("DAT"), 1);
    EXPECT_EQ(TypeOfExtension("BIN"), 2);
    EXPECT_EQ(TypeOfExtension("TXT"), 3);
    for (const std::string other : {"XYZ", "   ", "B  ", "bas", "AS,", "T,B"}) {
        EXPECT_EQ(TypeOfExtension(other), 2) << other;
    }
    // An empty one, as OS-9 and FLEX rows have it, is found before the first comma.
    EXPECT_EQ(TypeOfExtension(""), 0);
}

}  // namespace
}  // namespace brindlemoor::test
