// The fields, scroll bars, mouse and keys of the sector view.

#include "workbench/sector_events.h"

#include <gtest/gtest.h>

#include "core/screen.h"
#include "image/modified_state.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/map_fixture.h"

namespace brindlemoor {
namespace {

using test::DecbBuilder;
using test::Pattern;

class SectorEventsTest : public test::MapTest {
  protected:
    void SetUp() override {
        MapTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "ALPHA   ", "BIN", 2, 0, {0, 1, 2}, Pattern(6000, 1));
        disk.File(1, "BETA    ", "BIN", 2, 0, {4, 2}, Pattern(3000, 1));
        Show(disk.Image(), 1);
        Count();
    }

    /// Sectors drawn since the last call.
    std::size_t Count() {
        const std::size_t lines = script_.DrawnLines.size();
        script_.DrawnLines.clear();
        return lines / 8;
    }

    static std::string Place() { return Text("Track") + "/" + Text("Sector"); }
    static void Go(int track, int sector) {
        Type("Track", std::to_string(track));
        Type("Sector", std::to_string(sector));
    }
    static void Press(int x, int y) { Named("TrackBlock").MouseDown({x, y, true, false}); }
    static void Drag(int x, int y) { Named("TrackBlock").MouseMove({x, y, true, false}); }
    static void Hover(int x, int y) { Named("TrackBlock").MouseMove({x, y, false, false}); }
    static bool Key(int key) { return Named("TrackBlock").Key(key); }
};

// Track and sector

TEST_F(SectorEventsTest, ATrackIsShownOnceAndTheBarFollows) {
    Type("Track", "20");
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(Named("HScroll1").Value, 20);
    EXPECT_EQ(Named("Granulo").Text, "38");
    EXPECT_FALSE(WindowBusy);
}

TEST_F(SectorEventsTest, ATrackBeyondTheDiskIsClamped) {
    Type("Track", "35");
    EXPECT_EQ(Text("Track"), "34");
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(Named("HScroll1").Value, 34);
    Type("Track", "-1");
    EXPECT_EQ(Text("Track"), "0");
    EXPECT_EQ(Count(), 1U);
    Type("Track", "99999999999999999999");
    EXPECT_EQ(Text("Track"), "34");
    Type("Track", "34.5");
    EXPECT_EQ(Text("Track"), "34");
}

TEST_F(SectorEventsTest, AnEndlessRowOfDigitsIsClampedToo) {
    const std::string digits(400, '9');  // no number holds them
    const int lastTrack = Disk.TrackCount - 1;
    const int lastSector = Disk.SectorsPerTrack;
    SetText(PrincipalControl("Track"), digits);
    SetText(PrincipalControl("Sector"), digits);
    EXPECT_EQ(PrincipalControl("Track").Text, std::to_string(lastTrack));
    EXPECT_EQ(PrincipalControl("Sector").Text, std::to_string(lastSector));
    SetText(PrincipalControl("Granulo"), digits);
    EXPECT_EQ(PrincipalControl("Track").Text, std::to_string(lastTrack));
}

TEST_F(SectorEventsTest, ATextThatCountsAsATrackStaysAsItWasTyped) {
    for (const char* text : {"", "abc", "0", " 7", "007", "8x"}) {
        Type("Track", text);
        EXPECT_EQ(Text("Track"), text);
    }
    EXPECT_EQ(Named("HScroll1").Value, 8);
}

TEST_F(SectorEventsTest, WithoutADiskTheTrackIsZero) {
    NewDirectory(kDecb);
    Type("Track", "5");
    EXPECT_EQ(Text("Track"), "0");
    Type("Sector", "5");
    EXPECT_EQ(Text("Sector"), "5");
    Type("Granulo", "12");
    EXPECT_EQ(Place(), "0/1");
    EXPECT_EQ(Count(), 0U);
}

TEST_F(SectorEventsTest, ASectorIsClampedFromOneToTheTracksLast) {
    Type("Sector", "18");
    EXPECT_EQ(Named("VScroll1").Value, 18);
    EXPECT_EQ(Count(), 1U);
    for (const auto& [typed, shown] :
         {std::pair{"19", "18"}, {"0", "1"}, {"", "1"}, {"-3", "1"}, {"x", "1"}, {"7", "7"}}) {
        Type("Sector", typed);
        EXPECT_EQ(Text("Sector"), shown) << typed;
        EXPECT_EQ(Named("VScroll1").Value, std::stoi(shown));
    }
}

TEST_F(SectorEventsTest, WhileTheWindowIsBusyFieldsMoveTheBarsButNothingIsDrawn) {
    const WhileWindowBusy busy;
    Go(12, 40);
    Type("Granulo", "3");
    EXPECT_EQ(Place(), "12/18");
    EXPECT_EQ(Named("HScroll1").Value, 12);
    EXPECT_EQ(Named("VScroll1").Value, 18);
    EXPECT_EQ(Count(), 0U);
    SetValue(Named("HScroll1"), 3);
    SetValue(Named("VScroll1"), 3);
    EXPECT_EQ(Place(), "12/18");
    EXPECT_TRUE(WindowBusy);
}

TEST_F(SectorEventsTest, ATrackRaisesTheMaximumOfABarThatIsTooShort) {
    Named("HScroll1").Maximum = 20;
    Named("VScroll1").Maximum = 9;
    const WhileWindowBusy busy;
    Go(30, 12);
    EXPECT_EQ(Named("HScroll1").Maximum, 30);
    EXPECT_EQ(Named("VScroll1").Maximum, 12);
}

// Granules

TEST_F(SectorEventsTest, AGranuleShowsItsFirstSector) {
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"0", "0/1"},   {"1", "0/10"},     {"33", "16/10"}, {"34", "18/1"}, {"67", "34/10"},
        {"68", "34/1"}, {"9999", "34/10"}, {"-5", "0/1"},   {"what", "0/1"}};
    for (const auto& [granule, place] : rows) {
        Type("Granulo", granule);
        EXPECT_EQ(Place(), place) << granule;
    }
}

TEST_F(SectorEventsTest, AGranuleIsShownAnewEvenWhenNothingMoves) {
    Go(5, 1);
    Count();
    Named("Granulo").Text = "";
    Type("Granulo", "10");
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(Text("Granulo"), "10");
}

// Scroll bars

TEST_F(SectorEventsTest, TheBarsChooseTrackAndSector) {
    SetValue(Named("HScroll1"), 34);
    SetValue(Named("VScroll1"), 18);
    EXPECT_EQ(Place(), "34/18");
    EXPECT_EQ(Text("Granulo"), "67");
    EXPECT_EQ(Count(), 2U);
    SetValue(Named("HScroll1"), 0);
    SetValue(Named("VScroll1"), 1);
    EXPECT_EQ(Place(), "0/1");
}

// The mouse

TEST_F(SectorEventsTest, APressChoosesTheSectorByPlacesWithoutTheGaps) {
    const std::vector<std::tuple<int, int, const char*>> rows = {
        {0, 0, "0/1"},     {1, 5, "0/2"},     {17, 5, "0/18"},    {18, 5, "1/1"},
        {19, 5, "1/1"},    {20, 5, "1/2"},    {188, 11, "9/18"},  {3, 12, "10/4"},
        {93, 47, "34/18"}, {95, 47, "34/18"}, {150, 47, "34/18"}, {3, 500, "34/18"}};
    for (const auto& [x, y, place] : rows) {
        Press(x, y);
        EXPECT_EQ(Place(), place) << x << "," << y;
    }
}

TEST_F(SectorEventsTest, PlacesBesideTheTenTracksAreNoPlace) {
    Go(5, 5);
    for (const int x : {-1, -19, -1000, 189, 190, 5000}) {
        Press(x, 5);
        EXPECT_EQ(Place(), "5/5") << x;
    }
    Press(3, -12);
    EXPECT_EQ(Place(), "0/1");
    Go(5, 5);
    Press(3, -11);  // still the first band
    EXPECT_EQ(Place(), "0/4");
}

TEST_F(SectorEventsTest, DraggingFollowsThePointerAndMovingWithoutAButtonDoesNot) {
    Press(0, 0);
    Drag(20, 13);
    EXPECT_EQ(Place(), "11/2");
    Named("TrackBlock").MouseMove({0, 25, false, true});  // any button will do
    EXPECT_EQ(Place(), "20/1");
    Hover(100, 5);
    EXPECT_EQ(Place(), "20/1");
}

TEST_F(SectorEventsTest, A36SectorDiskTakesTheMouseOnTheFirstFiveTracksOfABand) {
    Show(test::DragonBuilder(40, 36).Image());
    Press(36, 0);
    EXPECT_EQ(Place(), "1/1");
    Press(183, 13);
    EXPECT_EQ(Place(), "14/36");
    Press(185, 13);
    EXPECT_EQ(Place(), "14/36");
    Go(0, 1);
    Press(184, 13);
    EXPECT_EQ(Place(), "0/1");
}

TEST_F(SectorEventsTest, WithoutADiskTheMouseAndTheKeysDoNothing) {
    NewDirectory(kDecb);
    Press(5, 5);
    for (int key = 37; key <= 40; ++key) EXPECT_TRUE(Key(key));
    Disk.TrackCount = 35;
    Press(5, 5);
    EXPECT_TRUE(Key(37));
    EXPECT_EQ(Count(), 0U);
}

// Tool tips

TEST_F(SectorEventsTest, TheTipIsThatOfTheColourUnderThePointer) {
    Go(30, 1);
    Hover(4, 5);  // a file
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Archivo actual");
    Hover(2 * 19 + 3, 5);  // the selected one
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores Usados");
    Hover(19 + 3, 5);  // both
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores Solapados");
    Hover(4, 40);
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores Libres");
    FillBox(TrackBlockPicture, 3, 3, 3, 3, 0x6464C8);
    Hover(3, 3);
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores o Granulos FAT incorrectamente libres");
}

TEST_F(SectorEventsTest, OverAnyOtherColourTheTipStays) {
    Go(30, 1);
    Hover(4, 40);
    for (const auto& [x, y] : {std::pair{0, 0}, {135, 15}, {140, 15}, {150, 45}, {-1, -1}}) {
        Hover(x, y);
        EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores Libres") << x << "," << y;
    }
}

TEST_F(SectorEventsTest, APressSetsTheTipOfWhatItMarked) {
    Press(2, 40);  // marks sector 3 beside it
    EXPECT_EQ(Named("TrackBlock").ToolTip, "Sectores Libres");
}

// Keys

TEST_F(SectorEventsTest, TheArrowsStepASectorOrABand) {
    Go(5, 18);
    EXPECT_TRUE(Key(39));
    EXPECT_EQ(Place(), "6/1");
    EXPECT_TRUE(Key(37));
    EXPECT_EQ(Place(), "5/18");
    EXPECT_TRUE(Key(40));
    EXPECT_EQ(Place(), "15/18");
    EXPECT_TRUE(Key(38));
    EXPECT_EQ(Place(), "5/18");
    EXPECT_TRUE(Key(38));  // no band above
    EXPECT_EQ(Place(), "5/18");
}

TEST_F(SectorEventsTest, TheArrowsStopAtTheDisksEnds) {
    Go(0, 1);
    Key(37);
    EXPECT_EQ(Place(), "0/1");
    Go(34, 18);
    Key(39);
    EXPECT_EQ(Place(), "34/18");
    Key(40);
    EXPECT_EQ(Place(), "34/18");
    Go(25, 1);
    Key(40);  // no track 35
    EXPECT_EQ(Place(), "25/1");
    Go(24, 18);
    Key(40);
    EXPECT_EQ(Place(), "34/18");
}

TEST_F(SectorEventsTest, OtherKeysAreLeftToTheWindow) {
    for (const int key : {9, 13, 27, 36, 41, 65}) EXPECT_FALSE(Key(key)) << key;
}

// The button

TEST_F(SectorEventsTest, TheButtonOpensTheEditorAndLooksAtTheImageBehindIt) {
    Disk.ImageOnOpen = Disk.ImageBytes;
    RefreshModified();
    ASSERT_EQ(Disk.ImageModified, 0);
    script_.OnModal = [](const std::string&) { Disk.ImageBytes[0] = 'x'; };
    Named("EditBat").Click();
    EXPECT_EQ(script_.ModalWindows, std::vector<std::string>{"FatEditor"});
    EXPECT_EQ(Disk.ImageModified, -1);
}

}  // namespace
}  // namespace brindlemoor
