#include "workbench/directory_cells.h"

#include <gtest/gtest.h>

#include "core/dates.h"
#include "core/settings.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

class CellsTest : public test::DirectoryTest {
  protected:
    static DirEntry EntryOf(Family family) {
        Disk.DiskFamily = family;
        return {};
    }

    /// Checks the box without the click that would fill the grid.
    static void Check(const char* box) { PrincipalControl(box).Checked = true; }
};

// What the columns hold

TEST_F(CellsTest, AllColumnsOfARow) {
    DirEntry& entry = AddEntry("NAME    ", "EXT");
    entry.FileType = 2;
    entry.FormatChar = "B";
    entry.SectorCount = 18;
    entry.UnitCount = 2;
    entry.Chain = Bytes({32, 33});
    entry.Size = 4000;
    entry.CreatedDate = DayCount(1988, 2, 29);
    entry.ModifiedDate = DayCount(1991, 12, 31) + 0.75;
    entry.FirstUnit = 32;
    entry.LastGranuleSectors = 7;
    entry.LastSectorBytes = 160;
    entry.ContinuationLink = 5;
    FillDirectoryGrid();
    const char* shown[] = {"NAME    ",
                           "EXT",
                           "2",
                           "B",
                           "18",
                           "2",
                           "4,000",
                           "4,608",
                           "608",
                           "86.81%",
                           "",
                           "29/02/1988",
                           "31/12/1991 18:00",
                           "32",
                           "7",
                           "160",
                           "6",
                           "32 33 "};
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        EXPECT_EQ(Shown(1, column), shown[column - 1]) << column;
    }
}

TEST_F(CellsTest, AnEmptyRowShowsAQuestionMarkAndZeros) {
    AddEntry("");
    FillDirectoryGrid();
    const char* shown[] = {"?",       "", "0", "", "0", "0", "",  "", "",
                           "100.00%", "", "",  "", "0", "0", "0", "", ""};
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        EXPECT_EQ(Shown(1, column), shown[column - 1]) << column;
    }
}

TEST_F(CellsTest, SizesAreNumbersAndDatesAreDates) {
    AddEntry("A").Size = 12;
    FillDirectoryGrid();
    for (const int column : {7, 8, 9, 10}) EXPECT_EQ(Cell(1, column).Kind, CellKind::Number);
    for (const int column : {12, 13}) EXPECT_EQ(Cell(1, column).Kind, CellKind::Date);
    for (const int column : {1, 2, 3, 4, 5, 6, 11, 14, 15, 16, 17, 18}) {
        EXPECT_EQ(Cell(1, column).Kind, CellKind::Text) << column;
    }
    EXPECT_EQ(Cell(1, 7).Number, 12);
}

TEST_F(CellsTest, ADeletedNameShowsAQuestionMarkForItsLostLetter) {
    AddEntry(std::string(1, '\0') + "ELLO   ");
    AddEntry("A" + std::string(1, '\0') + "B");
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 1), "?ELLO   ");
    EXPECT_EQ(DirTable[0].Name[0], '\0');
    EXPECT_EQ(Shown(2, 1), "A" + std::string(1, '\0') + "B");
}

TEST_F(CellsTest, ADeletedEntryOfARealDiskKeepsTheRestOfItsName) {
    test::DecbBuilder disk;
    disk.File(0, "HELLO   ", "BAS", 0, 0, {3}, "abc").File(1, "OTHER   ", "BIN", 2, 0, {4}, "d");
    Disk.ImageBytes = disk.Delete(0).Image();
    Disk.ImageOnOpen = Disk.ImageBytes;
    ReadDisk();
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 1), "?ELLO   ");
    EXPECT_EQ(Shown(1, 2), "BAS");
    EXPECT_FALSE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Shown(2, 1), "OTHER   ");
    EXPECT_TRUE(RowOf(ListDirec, 2).Visible);
}

TEST_F(CellsTest, TheContinuationIsCountedFrom1AndNoneIsBlank) {
    AddEntry("A").ContinuationLink = 0;
    AddEntry("B").ContinuationLink = 255;
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 17), "");
    EXPECT_EQ(Shown(2, 17), "256");
}

// Used bytes and efficiency

TEST_F(CellsTest, UsedBytesOfDecbAreWholeGranules) {
    DirEntry entry = EntryOf(kDecb);
    EXPECT_EQ(UsedBytes(entry), 0);
    entry.Chain = Bytes({1, 2, 3});
    entry.Size = 1;
    EXPECT_EQ(UsedBytes(entry), 3 * 9 * 256);
}

TEST_F(CellsTest, UsedBytesOfDragonAreWholeSectors) {
    DirEntry entry = EntryOf(kDragon);
    const std::pair<int, int> rows[] = {{0, 0}, {1, 256}, {256, 256}, {257, 512}, {512, 512}};
    for (const auto& [size, used] : rows) {
        entry.Size = size;
        EXPECT_EQ(UsedBytes(entry), used) << size;
    }
}

TEST_F(CellsTest, UsedBytesOfOs9AndFlexFollowTheUnits) {
    for (const Family family : {kOs9, kFlex}) {
        DirEntry entry = EntryOf(family);
        entry.Size = 700;
        EXPECT_EQ(UsedBytes(entry), 0);
        entry.UnitCount = 3;
        EXPECT_EQ(UsedBytes(entry), 768);
    }
}

TEST_F(CellsTest, AnEmptyDragonFileUsesNothingAtFullEfficiency) {
    NewDirectory(kDragon);
    AddEntry("EMPTY");
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 8).Number, 0);
    EXPECT_EQ(Cell(1, 10).Number, 100);
    EXPECT_EQ(Shown(1, 10), "100.00%");
}

TEST_F(CellsTest, AFileWithoutUnitsIsFullyEfficientAndMissesItsSize) {
    NewDirectory(kFlex);
    AddEntry("TEXT").Size = 1500;
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 8), "");
    EXPECT_EQ(Shown(1, 9), "-1,500");
    EXPECT_EQ(Shown(1, 10), "100.00%");
}

TEST_F(CellsTest, EfficiencyIsTheSizeInTheUsedBytes) {
    NewDirectory(kDragon);
    AddEntry("A").Size = 1;
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 10).Number, 1.0 / 256 * 100);
    EXPECT_EQ(Shown(1, 10), "0.39%");
}

// Chains

TEST_F(CellsTest, TheChainOfDecbListsItsGranules) {
    DirEntry entry = EntryOf(kDecb);
    EXPECT_EQ(ChainText(entry), "");
    entry.Chain = Bytes({0, 67, 255});
    EXPECT_EQ(ChainText(entry), "0 67 255 ");
}

TEST_F(CellsTest, TheChainOfDragonMarksTheEndOfEachEntry) {
    DirEntry entry = EntryOf(kDragon);
    for (int extent = 0; extent < 12; ++extent) entry.Chain += Bytes({1, extent, 200 + extent});
    EXPECT_EQ(ChainText(entry),
              "256(200) 257(201) 258(202) 259(203) | 260(204) 261(205) 262(206) 263(207) 264(208) "
              "265(209) | 266(210) 267(211) ");
    entry.Chain = entry.Chain.substr(0, 12);
    EXPECT_EQ(ChainText(entry), "256(200) 257(201) 258(202) 259(203) ");
}

TEST_F(CellsTest, TheChainOfOs9CountsTheDescriptorInTheFirstSegment) {
    DirEntry entry = EntryOf(kOs9);
    entry.Chain = Bytes({0, 1, 2, 0, 3, 255, 254, 253, 255, 252});
    EXPECT_EQ(ChainText(entry), "258(1+3) 16776957(65532) ");
}

TEST_F(CellsTest, AnUnfinishedExtentOrSegmentIsLeftOut) {
    DirEntry entry = EntryOf(kDragon);
    entry.Chain = Bytes({0, 5, 2, 9, 9});
    EXPECT_EQ(ChainText(entry), "5(2) ");
    Disk.DiskFamily = kOs9;
    entry.Chain = Bytes({0, 0, 5, 0, 2, 9, 9, 9, 9});
    EXPECT_EQ(ChainText(entry), "5(1+2) ");
}

TEST_F(CellsTest, FlexShowsNoChain) {
    DirEntry entry = EntryOf(kFlex);
    entry.Chain = Bytes({1, 2, 3, 4, 5});
    EXPECT_EQ(ChainText(entry), "");
}

// Attributes

TEST_F(CellsTest, DecbHasNoAttributes) {
    DirEntry entry = EntryOf(kDecb);
    entry.Attributes = 255;
    entry.Flags = 255;
    EXPECT_EQ(AttributeText(entry), "");
}

TEST_F(CellsTest, ProtectedDragonRowsShowAWhitePOnBlack) {
    NewDirectory(kDragon);
    AddEntry("OPEN");
    AddEntry("SHUT").Flags = 0x02;
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 11), "");
    EXPECT_EQ(Cell(1, 11).ForeColour, kNoColour);
    EXPECT_EQ(Cell(1, 11).BackColour, kNoColour);
    EXPECT_EQ(Shown(2, 11), "P ");
    EXPECT_EQ(Cell(2, 11).ForeColour, 0xFFFFFF);
    EXPECT_EQ(Cell(2, 11).BackColour, 0);
}

TEST_F(CellsTest, OtherFamiliesKeepTheirAttributesInTheDefaultColours) {
    NewDirectory(kOs9);
    DirEntry& entry = AddEntry("SHUT");
    entry.Flags = 0x02;
    entry.Attributes = 0x03;
    FillDirectoryGrid();
    EXPECT_EQ(Shown(1, 11), "rw      ");
    EXPECT_EQ(Cell(1, 11).ForeColour, kNoColour);
    EXPECT_EQ(Cell(1, 11).BackColour, kNoColour);
}

TEST_F(CellsTest, Os9HasALetterOrABlankForEachBitFromTheLowestOn) {
    DirEntry entry = EntryOf(kOs9);
    const std::string letters = "rweRWESD";
    EXPECT_EQ(AttributeText(entry), "        ");
    for (int bit = 0; bit < 8; ++bit) {
        entry.Attributes = static_cast<std::uint8_t>(1 << bit);
        std::string expected(8, ' ');
        expected[static_cast<std::size_t>(bit)] = letters[static_cast<std::size_t>(bit)];
        EXPECT_EQ(AttributeText(entry), expected);
    }
    entry.Attributes = 255;
    EXPECT_EQ(AttributeText(entry), letters);
}

TEST_F(CellsTest, FlexHasTheLettersOfItsFiveBitsWithoutBlanks) {
    DirEntry entry = EntryOf(kFlex);
    EXPECT_EQ(AttributeText(entry), "");
    entry.Attributes = 0x07;
    EXPECT_EQ(AttributeText(entry), "");
    const std::pair<int, const char*> rows[] = {{0x08, "M"},  {0x10, "C"},    {0x20, "R"},
                                                {0x40, "D"},  {0x80, "W"},    {0xF8, "MCRDW"},
                                                {0xC0, "DW"}, {0xFF, "MCRDW"}};
    for (const auto& [bits, letters] : rows) {
        entry.Attributes = static_cast<std::uint8_t>(bits);
        EXPECT_EQ(AttributeText(entry), letters) << bits;
    }
}

// Marks of a row

TEST_F(CellsTest, EveryRowIs17PixelsHighAndItsNameBold) {
    AddEntry("A");
    FillDirectoryGrid();
    EXPECT_EQ(RowOf(ListDirec, 1).Height, 17);
    EXPECT_TRUE(Cell(1, 1).Bold);
    for (int column = 2; column <= kDirectoryColumns; ++column) {
        EXPECT_FALSE(Cell(1, column).Bold) << column;
    }
    EXPECT_TRUE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Cell(1, 1).Indent, 0);
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        EXPECT_EQ(Cell(1, column).BackColour, kNoColour) << column;
        EXPECT_EQ(Cell(1, column).ForeColour, kNoColour) << column;
    }
}

TEST_F(CellsTest, TheNameIsIndentedByThirteenPixelsALevel) {
    NewDirectory(kOs9);
    AddEntry("SUB").TreeLevel = 3;
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 1).Indent, 39);
    EXPECT_EQ(Cell(1, 2).Indent, 0);
}

TEST_F(CellsTest, AContinuationRowHidesUntilTheBoxIsChecked) {
    NewDirectory(kDragon);
    AddEntry("CONT").Flags = 0x01;
    FillDirectoryGrid();
    EXPECT_FALSE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Cell(1, 2).BackColour, 13158600);
    EXPECT_EQ(Cell(1, 1).BackColour, kNoColour);
    Check("VerContinuaciones");
    FillDirectoryGrid();
    EXPECT_TRUE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Cell(1, 2).BackColour, 13158600);
}

TEST_F(CellsTest, ADeletedRowHidesUntilTheBoxIsChecked) {
    AddEntry("GONE").Flags = 0x80;
    FillDirectoryGrid();
    EXPECT_FALSE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Cell(1, 1).BackColour, 0x8080FF);
    Check("VerBorrados");
    FillDirectoryGrid();
    EXPECT_TRUE(RowOf(ListDirec, 1).Visible);
    EXPECT_EQ(Cell(1, 1).BackColour, 0x8080FF);
}

TEST_F(CellsTest, ADeletedContinuationNeedsBothBoxes) {
    NewDirectory(kDragon);
    AddEntry("BOTH").Flags = 0x81;
    for (const bool deleted : {false, true}) {
        for (const bool continuations : {false, true}) {
            PrincipalControl("VerBorrados").Checked = deleted;
            PrincipalControl("VerContinuaciones").Checked = continuations;
            FillDirectoryGrid();
            EXPECT_EQ(RowOf(ListDirec, 1).Visible, deleted && continuations);
        }
    }
}

TEST_F(CellsTest, ADirectoryKeepsItsColourAlsoWhenDeleted) {
    NewDirectory(kOs9);
    DirEntry& entry = AddEntry("CMDS");
    entry.Attributes = 0x80;
    entry.Flags = 0x80;
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 1).BackColour, kNoColour);
    EXPECT_FALSE(RowOf(ListDirec, 1).Visible);
}

TEST_F(CellsTest, AProtectedRowHasAGreyName) {
    NewDirectory(kDragon);
    AddEntry("SHUT").Flags = 0x02;
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 1).ForeColour, 0x646464);
    EXPECT_EQ(Cell(1, 2).ForeColour, kNoColour);
}

TEST_F(CellsTest, ABadSectorWinsOverTheOtherMarks) {
    DirEntry& bad = AddEntry("BAD");
    bad.BadSectorMark = "xx";
    bad.Flags = 0x80;
    AddEntry("GOOD");
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 1).BackColour, 13158655);
    EXPECT_EQ(Cell(2, 1).BackColour, kNoColour);
}

TEST_F(CellsTest, TheColoursOfTheOptionsAreReadAtEachFill) {
    NewDirectory(kDragon);
    AddEntry("BAD").BadSectorMark = "xx";
    AddEntry("CONT").Flags = 0x01;
    FillDirectoryGrid();
    Settings.ColourOptions[kSectorErrorColour].Value = 0x112233;
    Settings.ColourOptions[kContinuationColour].Value = 0x445566;
    FillDirectoryGrid();
    EXPECT_EQ(Cell(1, 1).BackColour, 0x112233);
    EXPECT_EQ(Cell(2, 2).BackColour, 0x445566);
}

TEST_F(CellsTest, Os9DotEntriesShowOnlyWithTheContinuations) {
    NewDirectory(kOs9);
    AddEntry(".");
    AddEntry("..");
    AddEntry("startup");
    FillDirectoryGrid();
    EXPECT_FALSE(RowOf(ListDirec, 1).Visible);
    EXPECT_FALSE(RowOf(ListDirec, 2).Visible);
    EXPECT_TRUE(RowOf(ListDirec, 3).Visible);
    EXPECT_EQ(Cell(1, 2).BackColour, kNoColour);
    Check("VerContinuaciones");
    FillDirectoryGrid();
    EXPECT_TRUE(RowOf(ListDirec, 1).Visible);
}

TEST_F(CellsTest, OnlyOs9HasDotEntries) {
    for (const Family family : {kDecb, kDragon, kFlex}) {
        NewDirectory(family);
        AddEntry(".X");
        FillDirectoryGrid();
        EXPECT_TRUE(RowOf(ListDirec, 1).Visible) << family;
    }
    EXPECT_FALSE(IsOs9DotEntry(EntryOf(kOs9)));
}

}  // namespace
}  // namespace brindlemoor
