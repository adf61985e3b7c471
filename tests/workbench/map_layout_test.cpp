// The room that the map takes in the main window.

#include "workbench/map_layout.h"

#include <gtest/gtest.h>

#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/map_fixture.h"
#include "support/os9_builder.h"
#include "workbench/window_layout.h"

namespace brindlemoor {
namespace {

constexpr int kTwips = kTwipsPerPixel;

class MapLayoutTest : public test::MapTest {
  protected:
    /// A disk of that geometry, with nothing on it.
    static void ShowGeometry(int tracks, int sectors) {
        NewDirectory(kOs9);
        Disk.TrackCount = static_cast<std::int16_t>(tracks);
        Disk.SectorsPerTrack = static_cast<std::int16_t>(sectors);
        Disk.FatBytes.clear();
        Disk.ImageBytes = "any";
        PaintTrackBlock(-1);
        DrawSectorMap(-1);
    }

    static int Bottom(const char* name) { return Named(name).Top + Named(name).Height; }

    /// Nothing inside the frame or below it lies over another, and all of it is in the window.
    static void ExpectOrder(int height) {
        EXPECT_LE(Bottom("TrackBlock"), Named("HScroll1").Top);
        EXPECT_LE(Bottom("HScroll1"), Named("Sectores").Top);
        EXPECT_LE(Bottom("Sectores"), Named("Frame1").Height);
        EXPECT_LE(Bottom("Label11"), Named("Sectores").Top);
        EXPECT_EQ(Named("VScroll1").Height, Named("TrackBlock").Height);
        EXPECT_LE(Bottom("Frame1"), Named("LabelFat").Top);
        EXPECT_LE(Bottom("LabelFat"), Named("EditFAT").Top);
        EXPECT_LE(Bottom("EditBat"), Named("EditFAT").Top);
        EXPECT_LE(Bottom("EditFAT"), height);
        EXPECT_GE(Named("EditFAT").Height, 20 * kTwips);
    }
};

TEST_F(MapLayoutTest, BandTitlesHaveALineEach) {
    Show(test::DecbBuilder().Image());
    EXPECT_EQ(Text("Label11"), "Track 0-9\r\n10-19\r\n20-29\r\n30-34\r\n");
    Show(test::DecbBuilder(40).Image());
    EXPECT_EQ(Text("Label11"), "Track 0-9\r\n10-19\r\n20-29\r\n30-39\r\n");
    ShowGeometry(41, 18);
    EXPECT_EQ(Text("Label11"), "Track 0-9\r\n10-19\r\n20-29\r\n30-39\r\n40-40\r\n");
    ShowGeometry(1, 18);
    EXPECT_EQ(Text("Label11"), "Track 0-0\r\n");
    ShowGeometry(0, 18);
    EXPECT_EQ(Text("Label11"), "Track ");
}

TEST_F(MapLayoutTest, FrameAndMapGrowWithTheBands) {
    for (const auto& [tracks, bands] :
         {std::pair{1, 1}, {10, 1}, {11, 2}, {35, 4}, {40, 4}, {80, 8}, {160, 16}, {270, 27}}) {
        ShowGeometry(tracks, 18);
        EXPECT_EQ(Named("Label11").Height, bands * 180 + 60) << tracks;
        EXPECT_EQ(Named("TrackBlock").Height, bands * 180 + 60) << tracks;
        EXPECT_EQ(Named("Frame1").Height, bands * 180 + 60 + 2700) << tracks;
        EXPECT_EQ(TrackBlockPicture.Height, bands * 12 + 2) << tracks;
        ExpectOrder(Principal.Height);
    }
}

TEST_F(MapLayoutTest, TheMapStopsAt5000Twips) {
    for (const int tracks : {280, 5000, 32767}) {
        ShowGeometry(tracks, 18);
        EXPECT_EQ(Named("TrackBlock").Height, 5000);
        EXPECT_EQ(Named("Frame1").Height, 7700);
        EXPECT_EQ(TrackBlockPicture.Height, 331);
        EXPECT_EQ(Named("Label11").Height % 180, 0);  // no title is cut through
        ExpectOrder(Principal.Height);
    }
}

TEST_F(MapLayoutTest, AWindowThatIsTooLowGrows) {
    ResizePrincipal(1000 * kTwips, 600 * kTwips);
    Show(test::DecbBuilder().Image());
    EXPECT_EQ(Principal.Height, Named("Frame1").Top + 3480 + 900);
    ResizePrincipal(1000 * kTwips, 600 * kTwips);
    Show(test::DecbBuilder(80).Image());
    EXPECT_EQ(Principal.Height, Named("Frame1").Top + 4200 + 900);
    EXPECT_EQ(Principal.Width, 1000 * kTwips);
    EXPECT_EQ(Named("Info").Top, Principal.Height - 300);
    ExpectOrder(Principal.Height);
}

TEST_F(MapLayoutTest, AWindowThatIsHighEnoughKeepsItsHeight) {
    const int before = Principal.Height;
    Show(test::DecbBuilder(80).Image());
    EXPECT_EQ(Principal.Height, before);
    Show(test::DecbBuilder().Image());
    EXPECT_EQ(Principal.Height, before);
    EXPECT_EQ(Named("Frame1").Height, 3480);
}

TEST_F(MapLayoutTest, AWindowThatCannotGrowShowsSomeBandsAndScrollsToTheMark) {
    ResizePrincipal(1000 * kTwips, 676 * kTwips);
    Principal.MostHeight = Principal.Height;
    ShowGeometry(160, 18);
    EXPECT_EQ(Principal.Height, 676 * kTwips);
    EXPECT_EQ(Named("TrackBlock").Height, 9 * 180 + 60);
    EXPECT_EQ(TrackBlockPicture.Height, 16 * 12 + 2);
    ExpectOrder(Principal.Height);
    const Control& map = Named("TrackBlock");
    EXPECT_EQ(map.ViewTop, 0);
    Type("Track", "85");
    EXPECT_EQ(map.ViewTop, 0);
    Type("Track", "90");
    EXPECT_EQ(map.ViewTop, 12);
    EXPECT_EQ(Text("Label11").substr(0, 14), "10-19\r\n20-29\r\n");
    Type("Track", "159");
    EXPECT_EQ(map.ViewTop, 7 * 12);
    Type("Track", "70");
    EXPECT_EQ(map.ViewTop, 7 * 12);
    Type("Track", "0");
    EXPECT_EQ(map.ViewTop, 0);
    EXPECT_EQ(Text("Label11").substr(0, 11), "Track 0-9\r\n");
}

TEST_F(MapLayoutTest, AWindowThatBecomesHigherShowsAllBandsAgain) {
    ResizePrincipal(1000 * kTwips, 676 * kTwips);
    Principal.MostHeight = Principal.Height;
    ShowGeometry(160, 18);
    Type("Track", "159");
    ResizePrincipal(1000 * kTwips, 900 * kTwips);
    EXPECT_EQ(Named("TrackBlock").Height, 16 * 180 + 60);
    EXPECT_EQ(Named("TrackBlock").ViewTop, 0);
    EXPECT_EQ(Text("Label11").substr(0, 11), "Track 0-9\r\n");
    ExpectOrder(900 * kTwips);
}

TEST_F(MapLayoutTest, AWindowGrowsNoFurtherThanItCan) {
    ResizePrincipal(1000 * kTwips, 676 * kTwips);
    Principal.MostHeight = 700 * kTwips;
    ShowGeometry(5000, 18);
    EXPECT_EQ(Principal.Height, 700 * kTwips);
    EXPECT_EQ(Named("TrackBlock").Height, 11 * 180 + 60);
    ExpectOrder(700 * kTwips);
    Principal.MostHeight = 600 * kTwips;  // lower than it is: nothing shrinks
    PaintTrackBlock(-1);
    EXPECT_EQ(Principal.Height, 700 * kTwips);
}

TEST_F(MapLayoutTest, AMapWiderThanItsRoomScrollsToTheMarksTrack) {
    Show(test::DragonBuilder(40, 36).Image());
    const Control& map = Named("TrackBlock");
    EXPECT_EQ(TrackBlockPicture.Width, 371);
    EXPECT_EQ(map.Width, 193 * kTwips);
    Type("Track", "0");
    Type("Sector", "1");
    EXPECT_EQ(map.ViewLeft, 0);
    Type("Track", "6");
    EXPECT_EQ(map.ViewLeft, 7 * 37 + 1 - 191);
    EXPECT_EQ(Text("Label11").substr(0, 11), "Track 0-9\r\n");
    Type("Track", "9");
    EXPECT_EQ(map.ViewLeft, 371 - 191);
    Type("Sector", "36");
    EXPECT_EQ(map.ViewLeft, 371 - 191);
    Type("Track", "10");
    EXPECT_EQ(map.ViewLeft, 0);
}

TEST_F(MapLayoutTest, ATrackWiderThanTheRoomKeepsTheMarkInView) {
    ShowGeometry(40, 255);
    const Control& map = Named("TrackBlock");
    for (const int track : {0, 1, 9, 13}) {
        for (int sector = 1; sector <= 255; ++sector) {
            Type("Track", std::to_string(track));
            Type("Sector", std::to_string(sector));
            ASSERT_GE(SectorMap.MarkX, map.ViewLeft);
            ASSERT_LT(SectorMap.MarkX, map.ViewLeft + 191);
            ASSERT_GE(map.ViewLeft, 0);
            ASSERT_LE(map.ViewLeft, TrackBlockPicture.Width - 191);
        }
    }
}

TEST_F(MapLayoutTest, AnotherDiskStartsWhereItsMarkIs) {
    Show(test::DragonBuilder(40, 36).Image());
    Type("Track", "9");
    Show(test::DecbBuilder().Image());
    EXPECT_EQ(Named("TrackBlock").ViewLeft, 0);
    EXPECT_EQ(TrackBlockPicture.Width, 191);
}

TEST_F(MapLayoutTest, ANarrowTrackLeavesTheRestOfTheRoomWhite) {
    ShowGeometry(35, 10);
    EXPECT_EQ(TrackBlockPicture.Width, 191);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 110, 5), 0);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 111, 0), 0xFFFFFF);
}

TEST_F(MapLayoutTest, BuildingTheWindowAnewForgetsTheMap) {
    ShowGeometry(80, 36);
    BuildAgain();
    EXPECT_EQ(TrackBlockPicture.Width, 191);
    EXPECT_EQ(TrackBlockPicture.Height, 50);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 0, 0), 0xFFFFFF);
    EXPECT_EQ(SectorMap.MarkColour, 0);
    EXPECT_EQ(Named("TrackBlock").Surface, &TrackBlockPicture);
    EXPECT_EQ(Named("Sectores").Surface, &SectoresPicture);
    EXPECT_EQ(Named("Frame1").Height, 3480);
    EXPECT_EQ(Text("Label11"), "Traks 0-9 10-19 20-29 30-39 ");
}

}  // namespace
}  // namespace brindlemoor
