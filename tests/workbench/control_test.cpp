#include "workbench/control.h"

#include <gtest/gtest.h>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

/// A control that counts the runs of its routines.
struct Counted {
    Control Record;
    int Changes = 0;
    int Clicks = 0;

    explicit Counted(ControlKind kind, std::vector<std::string> items = {}) {
        Record.Kind = kind;
        Record.Items = std::move(items);
        Record.Change = [this] { ++Changes; };
        Record.Click = [this] { ++Clicks; };
    }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

Window TwoLines() {
    Window window;
    for (int index = 0; index < 2; ++index) {
        Control control;
        control.Name = "totales";
        control.Index = index;
        window.Controls.push_back(control);
    }
    Menu menu;
    menu.Name = "columnsMenu";
    menu.Items.resize(2);
    window.Menus.push_back(menu);
    return window;
}

TEST(ControlLookUp, FindsAControlByNameAndIndexCaseAside) {
    Window window = TwoLines();
    EXPECT_EQ(&ControlOf(window, "totales"), &window.Controls[0]);
    EXPECT_EQ(&ControlOf(window, "TOTALES", 1), &window.Controls[1]);
    EXPECT_EQ(FindControl(window, "totales", 1), &window.Controls[1]);
}

TEST(ControlLookUp, FailsWith730WhereThereIsNone) {
    Window window = TwoLines();
    EXPECT_EQ(FailureOf([&] { ControlOf(window, "totales", 2); }), 730);
    EXPECT_EQ(FailureOf([&] { ControlOf(window, "total"); }), 730);
    EXPECT_EQ(FailureOf([&] { ControlOf(window, ""); }), 730);
    EXPECT_EQ(FailureOf([&] { MenuOf(window, "columns"); }), 730);
    EXPECT_EQ(FindControl(window, "totales", 2), nullptr);
    EXPECT_EQ(FindMenu(window, "columnsMenus"), nullptr);
}

TEST(ControlLookUp, FindsAMenuCaseAside) {
    Window window = TwoLines();
    EXPECT_EQ(&MenuOf(window, "ColumnsMenu"), &window.Menus[0]);
    EXPECT_EQ(FindMenu(window, "COLUMNSMENU"), &window.Menus[0]);
}

TEST(ControlLookUp, AnItemThatTheMenuLacksFailsWith9) {
    Window window = TwoLines();
    Menu& menu = MenuOf(window, "columnsMenu");
    EXPECT_EQ(&ItemOf(menu, 1), &menu.Items[1]);
    EXPECT_EQ(FailureOf([&] { ItemOf(menu, 2); }), 9);
    EXPECT_EQ(FailureOf([&] { ItemOf(menu, -1); }), 9);
}

TEST(ControlText, ChangeRunsOnlyWhenTheTextDiffers) {
    Counted box(ControlKind::TextBox);
    SetText(box.Record, "a");
    SetText(box.Record, "a");
    EXPECT_EQ(box.Changes, 1);
    EXPECT_EQ(box.Record.Text, "a");
    SetText(box.Record, "");
    EXPECT_EQ(box.Changes, 2);
    EXPECT_EQ(box.Clicks, 0);
}

TEST(ControlText, TheChangeRoutineSeesTheNewText) {
    Control box;
    std::string seen;
    box.Change = [&] { seen = box.Text; };
    SetText(box, "new");
    EXPECT_EQ(seen, "new");
}

TEST(ControlText, AFreeTextLeavesTheListsEntry) {
    Counted list(ControlKind::ComboBox, {"one", "two"});
    list.Record.Editable = true;
    SetListIndex(list.Record, 1);
    SetText(list.Record, "40");
    EXPECT_EQ(list.Record.ListIndex, -1);
    EXPECT_EQ(list.Record.Text, "40");
    EXPECT_EQ(list.Changes, 1);
    EXPECT_EQ(list.Clicks, 1);  // the one of `SetListIndex`
}

TEST(ControlText, ControlsWithoutRoutinesTakeAnyChange) {
    Control control;
    control.Items = {"one"};
    control.Maximum = 3;
    SetText(control, "a");
    SetListIndex(control, 0);
    SetValue(control, 3);
    SetChecked(control, true);
    EXPECT_EQ(control.Text, "a");
    EXPECT_EQ(control.ListIndex, 0);
    EXPECT_EQ(control.Value, 3);
    EXPECT_TRUE(control.Checked);
}

TEST(ControlList, ChoosingSetsTheTextAndClicksOnlyWhenTheIndexDiffers) {
    Counted list(ControlKind::ComboBox, {"one", "two"});
    SetListIndex(list.Record, 1);
    EXPECT_EQ(list.Record.Text, "two");
    EXPECT_EQ(list.Clicks, 1);
    SetListIndex(list.Record, 1);
    EXPECT_EQ(list.Clicks, 1);
    SetListIndex(list.Record, -1);
    EXPECT_EQ(list.Record.Text, "");
    EXPECT_EQ(list.Record.ListIndex, -1);
    EXPECT_EQ(list.Clicks, 2);
    EXPECT_EQ(list.Changes, 0);
}

TEST(ControlList, AnIndexOutsideTheListFailsWith9AndChangesNothing) {
    Counted list(ControlKind::ComboBox, {"one", "two"});
    SetListIndex(list.Record, 0);
    for (const int index : {2, -2}) {
        EXPECT_EQ(FailureOf([&] { SetListIndex(list.Record, index); }), 9) << index;
        EXPECT_EQ(FailureOf([&] { ClickListEntry(list.Record, index); }), 9) << index;
    }
    EXPECT_EQ(list.Record.ListIndex, 0);
    EXPECT_EQ(list.Record.Text, "one");
    EXPECT_EQ(list.Clicks, 1);
}

TEST(ControlList, TheUsersClickRunsAlsoOnTheEntryAlreadyChosen) {
    Counted list(ControlKind::FileList, {"A.DSK", "B.DSK"});
    ClickListEntry(list.Record, 1);
    ClickListEntry(list.Record, 1);
    EXPECT_EQ(list.Clicks, 2);
    EXPECT_EQ(list.Record.ListIndex, 1);
}

TEST(ControlList, ChoosingAFileMakesItTheOnlyOneSelected) {
    Counted list(ControlKind::FileList, {"A.DSK", "B.DSK", "C.DSK"});
    list.Record.ItemSelected = {true, true, false};
    SetListIndex(list.Record, 2);
    EXPECT_EQ(list.Record.ItemSelected, (std::vector<bool>{false, false, true}));
    SetListIndex(list.Record, -1);
    EXPECT_EQ(list.Record.ItemSelected, (std::vector<bool>{false, false, false}));
    EXPECT_EQ(list.Record.Text, "");
}

TEST(ControlList, AnItemIsReplacedOrAddedWithoutAnEvent) {
    Counted list(ControlKind::ComboBox, {"one", "two"});
    SetItem(list.Record, 1, "dos");
    SetItem(list.Record, 2, "tres");
    SetItem(list.Record, 9, "diez");
    EXPECT_EQ(list.Record.Items, (std::vector<std::string>{"one", "dos", "tres", "diez"}));
    EXPECT_EQ(list.Record.Text, "");
    EXPECT_EQ(list.Changes + list.Clicks, 0);
}

TEST(ControlList, TheTextFollowsTheChosenItem) {
    Counted list(ControlKind::ComboBox, {"one", "two"});
    SetListIndex(list.Record, 0);
    SetItem(list.Record, 1, "dos");
    EXPECT_EQ(list.Record.Text, "one");
    SetItem(list.Record, 0, "uno");
    EXPECT_EQ(list.Record.Text, "uno");
    EXPECT_EQ(list.Record.ListIndex, 0);
    EXPECT_EQ(list.Changes, 0);
    EXPECT_EQ(list.Clicks, 1);
}

TEST(ControlValue, ChangeRunsOnlyWhenTheValueDiffers) {
    Counted bar(ControlKind::HorizontalBar);
    bar.Record.Minimum = 1;
    bar.Record.Maximum = 18;
    bar.Record.Value = 1;
    SetValue(bar.Record, 1);
    EXPECT_EQ(bar.Changes, 0);
    SetValue(bar.Record, 18);
    SetValue(bar.Record, 1);
    EXPECT_EQ(bar.Changes, 2);
}

TEST(ControlValue, AValueOutsideTheBarFailsWith9AndChangesNothing) {
    Counted bar(ControlKind::VerticalBar);
    bar.Record.Minimum = 1;
    bar.Record.Maximum = 18;
    bar.Record.Value = 5;
    EXPECT_EQ(FailureOf([&] { SetValue(bar.Record, 0); }), 9);
    EXPECT_EQ(FailureOf([&] { SetValue(bar.Record, 19); }), 9);
    EXPECT_EQ(bar.Record.Value, 5);
    EXPECT_EQ(bar.Changes, 0);
}

TEST(ControlCheck, ClickRunsOnlyWhenTheCheckDiffers) {
    Counted box(ControlKind::CheckBox);
    SetChecked(box.Record, false);
    EXPECT_EQ(box.Clicks, 0);
    SetChecked(box.Record, true);
    SetChecked(box.Record, true);
    EXPECT_EQ(box.Clicks, 1);
    EXPECT_TRUE(box.Record.Checked);
}

}  // namespace
}  // namespace brindlemoor
