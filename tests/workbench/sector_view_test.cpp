// The sector shown: its text, its granule and the mark on the map.

#include "workbench/sector_view.h"

#include <gtest/gtest.h>

#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/flex_builder.h"
#include "support/map_fixture.h"
#include "support/os9_builder.h"

namespace brindlemoor {
namespace {

using test::DecbBuilder;
using test::Pattern;

constexpr int kBlack = 0;
constexpr int kWhite = 0xFFFFFF;
constexpr int kFree = 0x64C864;
constexpr int kOther = 0xFFFF96;
constexpr int kSelected = 0xC86464;

class SectorViewTest : public test::MapTest {
  protected:
    void SetUp() override {
        MapTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "ALPHA   ", "BIN", 2, 0, {0, 1}, Pattern(4000, 1));
        disk.Slot(1, "GONE    ", "BIN", 2, 0, 20, 100).Delete(1).Fat(20, 195);
        Show(disk.Image());
        script_.DrawnLines.clear();
    }

    /// The colour of a strip of the usual 18 sectors; "mixed" strips fail.
    static int Strip(int track, int sector) {
        const int x = track % 10 * 19 + sector;
        const int top = track / 10 * 12 + 1;
        const int colour = PixelAt(TrackBlockPicture, x, top);
        for (int y = top; y < top + 11; ++y) {
            EXPECT_EQ(PixelAt(TrackBlockPicture, x, y), colour) << track << "/" << sector;
        }
        return colour;
    }

    static void Go(int track, int sector) {
        Type("Track", std::to_string(track));
        Type("Sector", std::to_string(sector));
    }

    /// The text of the sector as it was drawn last.
    std::string Drawn() const {
        std::string text;
        for (const TextLine& line : script_.DrawnLines) text += line.Text;
        return text;
    }
};

TEST_F(SectorViewTest, ADiskOpensOnItsDirectory) {
    EXPECT_EQ(Text("Track"), "17");
    EXPECT_EQ(Text("Sector"), "3");
    EXPECT_EQ(Text("Granulo"), "DIR");
    EXPECT_EQ(Named("HScroll1").Value, 17);
    EXPECT_EQ(Named("HScroll1").Maximum, 34);
    EXPECT_EQ(Named("VScroll1").Value, 3);
    EXPECT_EQ(Named("VScroll1").Maximum, 18);
    EXPECT_EQ(Strip(17, 3), kWhite);
}

// The mark

TEST_F(SectorViewTest, TheMarkIsBlackOnWhiteAndWhiteOnAnyColour) {
    Go(10, 4);
    EXPECT_EQ(Strip(10, 4), kBlack);
    Go(11, 4);
    EXPECT_EQ(Strip(11, 4), kWhite);
    EXPECT_EQ(Strip(10, 4), kWhite);
    Go(0, 1);
    EXPECT_EQ(Strip(0, 1), kWhite);
    EXPECT_EQ(Strip(11, 4), kFree);
    Go(34, 18);
    EXPECT_EQ(Strip(34, 18), kWhite);
    EXPECT_EQ(Strip(0, 1), kOther);
}

TEST_F(SectorViewTest, ItRemembersWhereItIsAndWhatItCovers) {
    Go(12, 5);
    EXPECT_EQ(SectorMap.MarkX, 2 * 18 + 5 + 2);
    EXPECT_EQ(SectorMap.MarkY, 12);
    EXPECT_EQ(SectorMap.MarkColour, kFree + 1);
    Go(10, 4);
    EXPECT_EQ(SectorMap.MarkColour, kWhite + 1);
}

TEST_F(SectorViewTest, AfterARepaintTheOldMarkIsForgotten) {
    Go(0, 1);
    PaintTrackBlock(0);
    EXPECT_EQ(Strip(0, 1), kSelected);
    DrawSectorMap(-1);
    EXPECT_EQ(SectorMap.MarkColour, kSelected + 1);
    Go(0, 2);
    EXPECT_EQ(Strip(0, 1), kSelected);
}

TEST_F(SectorViewTest, TheColourOfTheNewPlaceIsReadBeforeTheOldOneIsPutBack) {
    Go(10, 4);
    DrawSectorMap(0);  // finds its own black
    EXPECT_EQ(SectorMap.MarkColour, kBlack + 1);
    EXPECT_EQ(Strip(10, 4), kWhite);
}

TEST_F(SectorViewTest, AMarkBesideThePictureIsNoMark) {
    Disk.TrackCount = 500;
    Go(450, 1);
    EXPECT_EQ(SectorMap.MarkColour, 0);
    EXPECT_EQ(SectorMap.MarkY, 45 * 12);
    Go(0, 1);
    EXPECT_EQ(Strip(0, 1), kWhite);
}

// The text

TEST_F(SectorViewTest, TheSectorStandsInEightLinesOf32) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    Disk.ImageBytes.replace((2 * 18 + 4) * 256, 256, bytes);
    Type("Track", "2");
    script_.DrawnLines.clear();
    Type("Sector", "5");
    ASSERT_EQ(script_.DrawnLines.size(), 8U);
    std::string expected = bytes;
    for (const std::size_t mark : {9U, 10U, 13U}) expected[mark] = '\0';
    EXPECT_EQ(Drawn(), expected);
    for (std::size_t row = 0; row < 8; ++row) {
        const TextLine& line = script_.DrawnLines[row];
        EXPECT_EQ(line.Text.size(), 32U);
        EXPECT_EQ(line.Left, script_.DrawnLines[0].Left);
        EXPECT_GE(line.Left, 0);
        EXPECT_LE(line.Left + 32 * line.CellWidth, SectoresPicture.Width);
        EXPECT_LE(line.Top + line.CellHeight, SectoresPicture.Height);
        if (row > 0) {
            EXPECT_GE(line.Top, script_.DrawnLines[row - 1].Top + line.CellHeight);
        }
    }
}

TEST_F(SectorViewTest, AShortImageShowsWhatThereIs) {
    Disk.ImageBytes.resize(3 * 18 * 256 + 40);
    Go(3, 2);
    script_.DrawnLines.clear();
    Go(3, 1);
    ASSERT_EQ(script_.DrawnLines.size(), 2U);
    EXPECT_EQ(script_.DrawnLines[1].Text.size(), 8U);
    script_.DrawnLines.clear();
    Go(3, 2);
    Go(34, 18);
    EXPECT_TRUE(script_.DrawnLines.empty());
}

TEST_F(SectorViewTest, TheTextBeforeIsWipedOff) {
    FillBox(SectoresPicture, 0, 0, 20, 20, 0);
    Type("Sector", "9");
    EXPECT_EQ(PixelAt(SectoresPicture, 5, 5), kWhite);
    FillBox(SectoresPicture, 0, 0, 20, 20, 0);
    Disk.TrackCount = 0;
    DrawSectorMap(0);  // also when there is no disk
    EXPECT_EQ(PixelAt(SectoresPicture, 5, 5), kWhite);
}

// Fields

TEST_F(SectorViewTest, EveryPlaceOfADecbDiskHasItsGranule) {
    const std::vector<std::tuple<int, int, std::string>> places = {
        {0, 1, "0"},    {0, 9, "0"},    {0, 10, "1"},   {0, 18, "1"},   {16, 9, "32"},
        {16, 10, "33"}, {17, 1, ""},    {17, 2, "FAT"}, {17, 3, "DIR"}, {17, 18, "DIR"},
        {18, 1, "34"},  {18, 10, "35"}, {34, 9, "66"},  {34, 18, "67"}};
    for (const auto& [track, sector, granule] : places) {
        Go(track, sector);
        EXPECT_EQ(Text("Granulo"), granule) << track << "/" << sector;
    }
}

TEST_F(SectorViewTest, OtherFamiliesLeaveTheGranuleField) {
    Show(test::Os9Builder().Image());
    Named("Granulo").Text = "as it was";
    Go(3, 3);
    EXPECT_EQ(Text("Granulo"), "as it was");
}

TEST_F(SectorViewTest, NumbersBeyondTheDiskCountAsItsLastOnes) {
    Named("Track").Text = "35";  // as no routine saw it
    Named("Sector").Text = "99";
    DrawSectorMap(0);
    EXPECT_EQ(Text("Track"), "35");
    EXPECT_EQ(SectorMap.MarkX, 4 * 19 + 18);
    EXPECT_EQ(SectorMap.MarkY, 36);
    Named("Sector").Text = "0";
    DrawSectorMap(0);
    EXPECT_EQ(SectorMap.MarkX, 4 * 19 + 1);
}

TEST_F(SectorViewTest, ATrackBelowZeroBecomesZeroInItsField) {
    Named("Track").Text = "-4";
    DrawSectorMap(0);
    EXPECT_EQ(Text("Track"), "0");
    EXPECT_EQ(Named("HScroll1").Value, 0);
}

TEST_F(SectorViewTest, TextsThatAreNoNumbersCountAsZero) {
    for (const char* text : {"", "abc", "-", ".", "+x"}) {
        Named("Track").Text = text;
        Named("Sector").Text = text;
        DrawSectorMap(0);
        EXPECT_EQ(SectorMap.MarkX, 1) << text;
    }
    Named("Track").Text = "999999999999999999999999999999";
    DrawSectorMap(0);
    EXPECT_EQ(SectorMap.MarkX, 4 * 19 + 1);
}

TEST_F(SectorViewTest, WithoutTracksOnlyTheTextIsCleared) {
    Disk.TrackCount = 0;
    const auto map = TrackBlockPicture.Pixels;
    Named("HScroll1").Maximum = 7;
    DrawSectorMap(0);
    EXPECT_EQ(TrackBlockPicture.Pixels, map);
    EXPECT_EQ(Named("HScroll1").Maximum, 7);
    EXPECT_TRUE(script_.DrawnLines.empty());
}

TEST_F(SectorViewTest, ASmallerDiskBringsTheBarsDown) {
    Go(34, 18);
    Disk.TrackCount = 20;
    Disk.SectorsPerTrack = 10;
    DrawSectorMap(-1);
    EXPECT_EQ(Named("HScroll1").Maximum, 19);
    EXPECT_EQ(Named("HScroll1").Value, 19);
    EXPECT_EQ(Named("VScroll1").Maximum, 10);
    EXPECT_EQ(Named("VScroll1").Value, 10);
}

TEST_F(SectorViewTest, A36SectorDiskTakesSectorsUpTo36AndIsReadAsIfItHad18) {
    test::DragonBuilder disk(40, 36);
    disk.Sectors(2 * 18 + 29, "here it is");
    Show(disk.Image());
    Go(2, 1);
    script_.DrawnLines.clear();
    Type("Sector", "30");
    EXPECT_EQ(Text("Sector"), "30");
    EXPECT_EQ(Drawn().substr(0, 10), "here it is");
    EXPECT_EQ(SectorMap.MarkX, 2 * 36 + 30 + 2);
    Type("Sector", "37");
    EXPECT_EQ(Text("Sector"), "36");
    Go(39, 36);
    EXPECT_EQ(SectorMap.MarkX, 9 * 36 + 36 + 9);
    EXPECT_EQ(SectorMap.MarkY, 36);
    EXPECT_EQ(PixelAt(TrackBlockPicture, SectorMap.MarkX, 37), kBlack);
}

// The file of a row

TEST_F(SectorViewTest, ARowShowsItsFirstGranule) {
    DecbBuilder disk;
    disk.File(0, "ALPHA   ", "BIN", 2, 0, {33, 40}, Pattern(4000, 1));
    disk.File(1, "BETA    ", "BIN", 2, 0, {41}, Pattern(100, 1));
    Show(disk.Image());
    ShowRowOnMap(0);
    EXPECT_EQ(Text("Track"), "16");
    EXPECT_EQ(Text("Sector"), "10");
    EXPECT_EQ(Text("Granulo"), "33");
    EXPECT_EQ(Strip(16, 11), kSelected);
    EXPECT_EQ(Strip(16, 10), kWhite);
    EXPECT_EQ(Strip(17, 3), 0xB4B4B4);  // the mark left no trace
    ShowRowOnMap(1);
    EXPECT_EQ(Text("Track"), "21");
    EXPECT_EQ(Text("Granulo"), "41");
    EXPECT_EQ(Strip(16, 10), kOther);
    EXPECT_EQ(Named("HScroll1").Value, 21);
    EXPECT_EQ(Named("VScroll1").Value, 10);
    EXPECT_FALSE(WindowBusy);
}

TEST_F(SectorViewTest, ARowOfAnotherFamilyShowsItsFirstSector) {
    test::DragonBuilder dragon;
    dragon.File(0, "ALPHA", "BIN", {{40, 2}}, Pattern(512, 1));
    Show(dragon.Image());
    ShowRowOnMap(0);
    EXPECT_EQ(Text("Track") + "/" + Text("Sector"), "2/5");

    test::Os9Builder os9;
    os9.File(55, Pattern(300, 1)).File(90, "x").RootNames({{"ALPHA", 55}, {"LAST", 90}});
    Show(os9.Image());
    ASSERT_EQ(DirTable[4].Name, "ALPHA");
    ShowRowOnMap(4);
    EXPECT_EQ(Text("Track") + "/" + Text("Sector"), "3/2");

    test::FlexBuilder flex;
    flex.File(0, "ALPHA", "TXT", {{2, 18}, {3, 1}}, Pattern(400, 1));
    Show(flex.Image());
    ShowRowOnMap(0);
    EXPECT_EQ(Text("Track") + "/" + Text("Sector"), "2/18");
}

TEST_F(SectorViewTest, ARowThatIsNotThereChangesNothing) {
    Go(5, 5);
    const auto map = TrackBlockPicture.Pixels;
    for (const int row : {-1, 2, 1701, 100000}) ShowRowOnMap(row);
    EXPECT_EQ(TrackBlockPicture.Pixels, map);
    EXPECT_EQ(Text("Track"), "5");
}

TEST_F(SectorViewTest, AClickOnARowMakesItTheCurrentOne) {
    Screen.FillDirectoryGrid();
    ListDirec.RowClick(1);
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(Strip(0, 2), kSelected);
    EXPECT_EQ(Text("Track"), "0");
    ListDirec.RowClick(2);
    EXPECT_EQ(Disk.DirCount, 1);
    EXPECT_EQ(Text("Track"), "10");
    for (const int row : {0, -1, 3}) ListDirec.RowClick(row);
    EXPECT_EQ(Disk.DirCount, 1);
}

}  // namespace
}  // namespace brindlemoor
