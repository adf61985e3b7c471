#include "workbench/screen_entries.h"

#include <gtest/gtest.h>

#include "core/byte_helpers.h"
#include "core/languages.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

using test::FailureOf;
using test::WriteTestFile;
using Texts = std::vector<std::string>;

/// The window as it was built, before any start-up.
class ScreenTest : public test::WorkbenchTest {
  protected:
    static Control& Widths() { return PrincipalControl("Anchos"); }

    static Texts Captions(const std::string& menu) {
        Texts captions;
        for (const MenuItem& item : MenuOf(Principal, menu).Items) captions.push_back(item.Caption);
        return captions;
    }
};

// The disk's side

TEST_F(ScreenTest, TheSectorsPlaceStandsInItsTwoFields) {
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    Screen.ShowSectorPlace(17, 3);
    EXPECT_EQ(PrincipalControl("Track").Text, "17");
    EXPECT_EQ(PrincipalControl("Sector").Text, "3");
}

TEST_F(ScreenTest, TheGranuleFieldComesAndGoes) {
    Screen.ShowGranuleField(false);
    EXPECT_FALSE(PrincipalControl("Granulo").Visible);
    Screen.ShowGranuleField(true);
    EXPECT_TRUE(PrincipalControl("Granulo").Visible);
}

TEST_F(ScreenTest, AModifiedImageIsShownInYellow) {
    const Menu& files = MenuOf(Principal, "FilesMenu");
    for (const bool modified : {true, false}) {
        Disk.ImageModified = modified ? -1 : 0;
        Screen.ShowModified();
        EXPECT_EQ(ListDirec.BackColour, modified ? 65535 : 16777215);
        EXPECT_EQ(PrincipalControl("UndoBtn").Enabled, modified);
        EXPECT_EQ(files.Items[3].Enabled, modified);
        EXPECT_EQ(files.Items[5].Enabled, modified);
        EXPECT_TRUE(files.Items[6].Enabled);
        EXPECT_TRUE(PrincipalControl("SaveBtn").Enabled);
    }
}

TEST_F(ScreenTest, TheGridIsFilled) {
    Start();
    Screen.FillDirectoryGrid();
    EXPECT_EQ(ListDirec.Columns.size(), 18U);
}

// The PC's side

TEST_F(ScreenTest, ThePcListNamesItsFolderAndItsSelectedFile) {
    EXPECT_EQ(Screen.PcListFolder(), PcFolder);
    EXPECT_EQ(Screen.PcListName(), "");
    WriteTestFile(PcFolder, "A.TXT", "a");
    BuildAgain();
    SetListIndex(PrincipalControl("File1"), 0);
    EXPECT_EQ(Screen.PcListName(), "A.TXT");
}

TEST_F(ScreenTest, ThePathsStandInTheirControls) {
    Screen.SetFilePath("/a/b");
    EXPECT_EQ(PrincipalControl("FilePath").Text, "/a/b");
    Screen.SetPathDsk("/c/d");
    EXPECT_EQ(PrincipalControl("PathDsk").Text, "/c/d");
    EXPECT_EQ(Screen.PathDskText(), "/c/d");
}

// Captions, lists and menus of a language

TEST_F(ScreenTest, ACaptionIsKeptInTheTagToo) {
    Screen.SetCaptionAndTag("Label3", "CoCo Directory:");
    EXPECT_EQ(PrincipalControl("Label3").Text, "CoCo Directory:");
    EXPECT_EQ(PrincipalControl("Label3").Tag, "CoCo Directory:");
    EXPECT_EQ(FailureOf([] { Screen.SetCaptionAndTag("Label99", "x"); }), 730);
}

TEST_F(ScreenTest, ListItemsReplaceTheOldOnesAndThoseBeyondStay) {
    Screen.SetListItems("Anchos", {"Auto", "lines (13)"});
    EXPECT_EQ(Widths().Items,
              (Texts{"Auto", "lines (13)", "Lineas (13+10)", "Lineas (0)", "Todo", "256"}));
    Screen.SetListItems("Anchos", {"Auto", "1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(Widths().Items, (Texts{"Auto", "1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(Widths().ListIndex, 0);
    EXPECT_EQ(Widths().Text, "Auto");
    EXPECT_EQ(FailureOf([] { Screen.SetListItems("Anchuras", {"a"}); }), 730);
}

TEST_F(ScreenTest, TheChosenEntryFollowsItsNewText) {
    WindowBusy = true;
    SetListIndex(PrincipalControl("VerAsc"), 1);
    Screen.SetListItems("VerAsc", {"Auto", "Compressed", "ASC CoCo"});
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 1);
    EXPECT_EQ(PrincipalControl("VerAsc").Text, "Compressed");
}

TEST_F(ScreenTest, AnItemThatIsThePresentTextIsChosen) {
    WindowBusy = true;
    Screen.SetControlText("Anchos", "lines (0)");
    EXPECT_EQ(Widths().ListIndex, -1);
    Screen.SetListItems("Anchos", {"Auto", "a", "b", "lines (0)"});
    EXPECT_EQ(Widths().ListIndex, 3);
    EXPECT_EQ(Widths().Text, "lines (0)");
}

TEST_F(ScreenTest, AnItemThatIsThePresentTextIsChosenAlsoWhenItIsNew) {
    WindowBusy = true;
    Screen.SetControlText("Anchos", "32");
    Screen.SetListItems("Anchos", {"Auto", "a", "b", "c", "d", "e", "32"});
    EXPECT_EQ(Widths().Items.size(), 7U);
    EXPECT_EQ(Widths().ListIndex, 6);
    EXPECT_EQ(Widths().Text, "32");
}

TEST_F(ScreenTest, AFreeTextStaysWhenNoItemIsIt) {
    WindowBusy = true;
    Screen.SetControlText("Anchos", "40");
    Screen.SetListItems("Anchos", {"Auto", "lines (13)"});
    EXPECT_EQ(Widths().Text, "40");
    EXPECT_EQ(Widths().ListIndex, -1);
}

TEST_F(ScreenTest, MenuItemsTakeTheirTextAsCaptionAndTag) {
    Screen.SetMenuItems("PopMenu", {"View", "Edit"});
    const Menu& menu = MenuOf(Principal, "PopMenu");
    ASSERT_EQ(menu.Items.size(), 8U);
    EXPECT_EQ(menu.Items[0].Caption, "View");
    EXPECT_EQ(menu.Items[0].Tag, "View");
    EXPECT_EQ(menu.Items[2].Caption, "Editar HEX");
    EXPECT_EQ(menu.Items[5].SubMenu, "ConvMenu");
    EXPECT_EQ(FailureOf([] { Screen.SetMenuItems("NoMenu", {"a"}); }), 730);
}

TEST_F(ScreenTest, TheColumnsMenuIsFoundCaseAside) {
    Screen.SetMenuItems("ColumnsMenu", {"Name", "Extension"});
    EXPECT_EQ(MenuOf(Principal, "columnsMenu").Items[1].Caption, "Extension");
}

TEST_F(ScreenTest, OnlyTheConversionMenuTakesMoreItemsThanItHas) {
    const Texts eight = {"1", "2", "3", "4", "5", "6", "7", "8"};
    Screen.SetMenuItems("ConvMenu", eight);
    EXPECT_EQ(Captions("ConvMenu"), eight);
    Screen.SetMenuItems("ConvMenu", {"uno"});
    EXPECT_EQ(Captions("ConvMenu").size(), 8U);
    EXPECT_EQ(Captions("ConvMenu")[0], "uno");
    EXPECT_EQ(FailureOf([&] { Screen.SetMenuItems("MainMenu", eight); }), 9);
    EXPECT_EQ(Captions("MainMenu"), (Texts{"1", "2", "3"}));
}

TEST_F(ScreenTest, TheLanguageMenuHoldsTheSectionsInItsTags) {
    Screen.SetLanguageMenu({"English", "Spanish"}, {"Ingles", "Castellano"}, "Spanish");
    const Menu& menu = MenuOf(Principal, "LanguageMenu");
    EXPECT_EQ(Captions("LanguageMenu"), (Texts{"Ingles", "Castellano"}));
    EXPECT_EQ(menu.Items[0].Tag, "English");
    EXPECT_EQ(menu.Items[1].Tag, "Spanish");
    EXPECT_FALSE(menu.Items[0].Checked);
    EXPECT_TRUE(menu.Items[1].Checked);
    EXPECT_EQ(Settings.LanguageIndex, 1);
    Screen.SetLanguageMenu({"English", "Spanish"}, {"a", "b"}, "English");
    EXPECT_TRUE(menu.Items[0].Checked);
    EXPECT_FALSE(menu.Items[1].Checked);
    EXPECT_EQ(Settings.LanguageIndex, 0);
}

TEST_F(ScreenTest, AThirdLanguageOrAMissingCaptionFailsWith9) {
    EXPECT_EQ(FailureOf([] { Screen.SetLanguageMenu({"a", "b", "c"}, {"a", "b", "c"}, "a"); }), 9);
    EXPECT_EQ(FailureOf([] { Screen.SetLanguageMenu({"a", "b"}, {"a"}, "a"); }), 9);
    Screen.SetLanguageMenu({"a", "b"}, {"1", "2", "3"}, "a");
    EXPECT_EQ(Captions("LanguageMenu"), (Texts{"1", "2"}));
}

TEST_F(ScreenTest, AStoredIndexIsChosenWhereTheListHasIt) {
    WindowBusy = true;
    Screen.SetControlIndex("VerAsc", 2);
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2);
    for (const int index : {3, -2, 32767}) {
        Screen.SetControlIndex("VerAsc", index);
        EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2) << index;
    }
    Screen.SetControlIndex("VerAsc", -1);
    EXPECT_EQ(PrincipalControl("VerAsc").Text, "");
    EXPECT_EQ(FailureOf([] { Screen.SetControlIndex("Ver", 0); }), 730);
}

TEST_F(ScreenTest, TheAlternateRowsTakeTheColour) {
    Screen.SetAlternateRowColour(0x123456);
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0x123456);
}

// The grid's headers

TEST_F(ScreenTest, HeadersOfAGridWithoutColumnsStayOut) {
    Screen.SetGridHeaders();
    EXPECT_TRUE(ListDirec.Redraw);
    EXPECT_TRUE(ListDirec.Columns.empty());
}

TEST_F(ScreenTest, TheFirstSixteenHeadersAreSetWithTheDrawingOff) {
    Start();
    FillDirectoryGrid();
    for (std::string& header : Settings.ColumnHeaderList) header += "*";
    Screen.SetGridHeaders();
    EXPECT_FALSE(ListDirec.Redraw);
    EXPECT_EQ(ListDirec.Columns[0].Header, "NAME*");
    EXPECT_EQ(ListDirec.Columns[15].Header, "BLS*");
    EXPECT_EQ(ListDirec.Columns[16].Header, "NCDE");
    EXPECT_EQ(ListDirec.Columns[17].Header, "Granules Or Sectors secuence   ");
    Settings.ColumnHeaderList.resize(15);
    EXPECT_EQ(FailureOf([] { Screen.SetGridHeaders(); }), 9);
}

// The language as a whole

TEST_F(ScreenTest, RestoringAPatternRunsItsEventThoughTheWindowIsBusy) {
    GiveDefaultSettings("\r\n[Audio Options]", "\r\nMuestraActual=2\r\n[Audio Options]");
    ApplyLanguage("English");
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 2);
    EXPECT_EQ(PrincipalControl("DirPattern").Text, "Disks Dragon: *.VDK;*.OS9;*.VHD;*.CAS;*.WAV");
    EXPECT_EQ(PrincipalControl("File1").Pattern, "*.VDK");
}

TEST_F(ScreenTest, BothLanguagesGoOverTheDesignWithoutAFailure) {
    GiveDefaultSettings();
    ApplyLanguage("Spanish");
    EXPECT_EQ(Widths().Items, (Texts{"Auto", "lineas (13)", "lineas (13 + 10)", "lineas (0)",
                                     "Todo", "32", "256"}));
    EXPECT_EQ(Captions("MainMenu"), (Texts{"Archivos", "Opciones", "Ayuda"}));
    ApplyLanguage("English");
    EXPECT_EQ(Widths().Items,
              (Texts{"Auto", "lines (13)", "lines (13 + 10)", "lines (0)", "All", "32", "256"}));
    EXPECT_EQ(Captions("MainMenu"), (Texts{"Files", "Options", "Help"}));
    EXPECT_EQ(MenuOf(Principal, "OptionsMenu").Items[0].Caption, "Language");
    EXPECT_EQ(MenuOf(Principal, "OptionsMenu").Items[0].SubMenu, "LanguageMenu");
    EXPECT_EQ(PrincipalControl("VerContinuaciones").Tag, "View # Continues");
}

TEST_F(ScreenTest, MorePatternsThanTheDesignHasAreAdded) {
    GiveDefaultSettings("All files: *.*", "All files: *.*,Mine: *.MNE");
    ApplyLanguage("English");
    ASSERT_EQ(PrincipalControl("DirPattern").Items.size(), 7U);
    EXPECT_EQ(PrincipalControl("DirPattern").Items[6], "Mine: *.MNE");
}

}  // namespace
}  // namespace brindlemoor
