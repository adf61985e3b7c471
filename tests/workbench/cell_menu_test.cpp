#include "workbench/cell_menu.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/disk_fixture.h"
#include "support/dragon_fixture.h"
#include "support/edit_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

class CellMenuTest : public EditTest {
  protected:
    void SetUp() override {
        EditTest::SetUp();
        ListDirec.CellUnder = [this](int, int) { return Under; };
    }

    /// Presses the left button on a cell of a row, which the press selects, and picks an item of
    /// the menu; -1 lets the menu go.
    void Press(int row, int column, int item) {
        SelectRow(row);
        Under = {row, column};
        script_.OnPopup = [this, item](const std::string& menu) {
            Menu& items = MenuOf(Principal, menu == "MenuType" ? "TypeMenu" : "FormMenu");
            for (const MenuItem& one : items.Items) {
                Checks += one.Checked ? 'x' : '-';
                Greyed += one.Enabled ? '-' : 'g';
            }
            if (item >= 0) items.Click(item);
        };
        Checks.clear();
        Greyed.clear();
        CellMouseDown(kLeftButton, 0, 3, 4);
    }

    CellNumbers Under;
    std::string Checks;  ///< of the items when the menu came up
    std::string Greyed;
};

TEST_F(CellMenuTest, TheButtonWithNumberOnePopsUpTheMenusOfTypeAndFormat) {
    Press(2, 3, -1);
    EXPECT_EQ(script_.PopupMenus, Texts{"MenuType"});
    EXPECT_EQ(Checks, "--x-");
    EXPECT_EQ(Greyed, "----");
    Press(4, 4, -1);
    EXPECT_EQ(script_.PopupMenus, (Texts{"MenuType", "MenuForm"}));
    EXPECT_EQ(Checks, "-x");
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellMenuTest, OtherColumnsAndOtherButtonsPopUpNothing) {
    for (const int column : {0, 1, 2, 5, 18}) Press(1, column, 0);
    Under = {1, 3};
    for (const int button : {0, kRightButton, kMiddleButton}) CellMouseDown(button, 0, 3, 4);
    Under = {0, 0};
    CellMouseDown(kLeftButton, 0, 3, 4);
    ListDirec.CellUnder = nullptr;
    CellMouseDown(kLeftButton, 0, 3, 4);
    EXPECT_TRUE(script_.PopupMenus.empty());
}

TEST_F(CellMenuTest, APressMakesTheSelectedRowTheCurrentOne) {
    SelectRow(4);
    Disk.DirCount = 0;
    CellMouseDown(kRightButton, 0, 0, 0);
    EXPECT_EQ(Disk.DirCount, 3);
    ListDirec.RowSelected.assign(4, false);
    Disk.DirCount = 1;
    CellMouseDown(kLeftButton, 0, 0, 0);
    EXPECT_EQ(Disk.DirCount, 1);  // nothing is selected
}

TEST_F(CellMenuTest, TheChoiceGoesToCellRowAndImageAndShowsAtOnce) {
    Press(4, 3, 1);
    EXPECT_EQ(Shown(4, 3), "1");
    EXPECT_EQ(DirTable[3].FileType, 1);
    EXPECT_EQ(Slot(3), "EIGHTLETTXT" + Bytes({1, 255, 13, 0, 250}));
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(ListDirec.BackColour, 65535);
    Press(4, 4, 0);
    EXPECT_EQ(Shown(4, 4), "B");
    EXPECT_EQ(DirTable[3].FormatChar, "B");
    EXPECT_EQ(Slot(3)[12], 0);
}

TEST_F(CellMenuTest, AClickOnAnItemChecksThatOneOnly) {
    Press(1, 3, 3);
    std::string checks;
    for (const MenuItem& item : MenuOf(Principal, "TypeMenu").Items) {
        checks += item.Checked ? 'x' : '-';
    }
    EXPECT_EQ(checks, "---x");
    EXPECT_EQ(FailureOf([] { MenuOf(Principal, "TypeMenu").Click(4); }), kIndexRange);
}

TEST_F(CellMenuTest, ChoosingWhatIsThereChangesNothing) {
    Press(4, 3, 3);
    Press(4, 4, 1);
    EXPECT_EQ(Disk.ImageBytes, Original);
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(CellMenuTest, TheTypeCellOfADeletedRowOpensTheMenuWithAllItemsGreyed) {
    Press(3, 3, -1);
    EXPECT_EQ(script_.PopupMenus, Texts{"MenuType"});
    EXPECT_EQ(Greyed, "gggg");
    Press(3, 4, -1);
    EXPECT_EQ(Greyed, "gg");
    Press(1, 3, -1);
    EXPECT_EQ(Greyed, "----");
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellMenuTest, AnEmptyCellChecksEveryItemAndTakesNone) {
    SetCellText(ListDirec, 1, 4, "");
    Press(1, 4, 0);
    EXPECT_EQ(Checks, "xx");
    EXPECT_EQ(Shown(1, 4), "");
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellMenuTest, ATypeOfTwoDigitsTakesTwoCharactersWhichAreNoNumber) {
    SetCellText(ListDirec, 1, 3, "12");
    Press(1, 3, -1);
    EXPECT_EQ(Checks, "----");
    EXPECT_EQ(FailureOf([this] { Press(1, 3, 1); }), kTypeMismatch);
    EXPECT_EQ(Shown(1, 3), "12");
    EXPECT_EQ(DirTable[0].FileType, 0);
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellMenuTest, WithoutACurrentRowNothingPopsUp) {
    Under = {1, 3};
    ASSERT_EQ(Disk.DirCount, Disk.DirRows);
    CellMouseDown(kLeftButton, 0, 3, 4);
    Disk.DirCount = -1;
    CellMouseDown(kLeftButton, 0, 3, 4);
    EXPECT_TRUE(script_.PopupMenus.empty());
}

TEST_F(CellMenuTest, TheHelperTellsAChangeOnlyWhereThereIsOne) {
    int refreshed = 0;
    Screen.ShowModified = [&refreshed] { ++refreshed; };
    std::string value = "A";
    int changed = 5;
    ChooseFromMenu("MenuForm", "FormMenu", value, false, changed);
    EXPECT_EQ(changed, 5);
    EXPECT_EQ(value, "A");
    EXPECT_EQ(refreshed, 0);
    script_.OnPopup = [](const std::string&) { MenuOf(Principal, "FormMenu").Click(0); };
    ChooseFromMenu("MenuForm", "FormMenu", value, false, changed);
    EXPECT_EQ(changed, -1);
    EXPECT_EQ(value, "B");
    EXPECT_EQ(refreshed, 1);
}

}  // namespace
}  // namespace brindlemoor::test
