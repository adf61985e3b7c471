#include "workbench/spoken_name.h"

#include <gtest/gtest.h>

#include <string>

#include "core/byte_helpers.h"
#include "core/settings.h"
#include "workbench/control_design.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class SpokenNameTest : public testing::Test {
  protected:
    void SetUp() override { Settings = SettingsState(); }
    void TearDown() override { Settings = SettingsState(); }

    void Caption(Place place, const std::string& text) {
        Table.Controls.push_back(Designed("Label", ControlKind::Label, place, text));
    }

    static Control Field() { return Designed("Field", ControlKind::TextBox, {100, 100, 80, 24}); }

    std::string NameOf(const Control& control) const { return SpokenName(Table, control); }

    Window Table;
};

TEST_F(SpokenNameTest, TheNearestCaptionOnTheLeftNamesAField) {
    Caption({0, 100, 40, 24}, "Far:");
    Caption({50, 100, 40, 24}, "Near :");
    Caption({50, 130, 40, 24}, "Next row:");
    Caption({190, 100, 40, 24}, "Right");
    EXPECT_EQ(NameOf(Field()), "Near");
}

TEST_F(SpokenNameTest, ACaptionAboveNamesAFieldThatHasNoneOnItsLeft) {
    Caption({100, 40, 80, 24}, "Higher");
    Caption({100, 72, 80, 24}, "Above:");
    Caption({200, 72, 80, 24}, "Beside that");
    EXPECT_EQ(NameOf(Field()), "Above");
    Table.Controls.pop_back();
    Table.Controls.pop_back();
    EXPECT_EQ(NameOf(Field()), "");
}

TEST_F(SpokenNameTest, CaptionsOfOtherFramesAndHiddenOrEmptyOnesDoNotCount) {
    Caption({50, 100, 40, 24}, "Framed");
    Table.Controls.back().Container = "Frame";
    Caption({50, 100, 40, 24}, "Hidden");
    Table.Controls.back().Visible = false;
    Caption({50, 100, 40, 24}, " :");
    EXPECT_EQ(NameOf(Field()), "");
    Control framed = Field();
    framed.Container = "Frame";
    EXPECT_EQ(NameOf(framed), "Framed");
}

TEST_F(SpokenNameTest, ACellEditorIsCalledByItsColumnsLongName) {
    Menu columns;
    columns.Name = "columnsMenu";
    columns.Items.resize(2);
    columns.Items[0].Caption = "File name";
    columns.Items[1].Caption = "Extension";
    Control editor = Field();
    editor.Container = "ListDirec";
    ListDirec = Grid();
    ListDirec.Edited.Column = 2;
    EXPECT_EQ(NameOf(editor), "");
    Table.Menus.push_back(columns);
    EXPECT_EQ(NameOf(editor), "Extension");
    ListDirec.Edited.Column = 3;
    EXPECT_EQ(NameOf(editor), "");
    ListDirec.Edited.Column = 0;
    EXPECT_EQ(NameOf(editor), "");
    ListDirec = Grid();
}

TEST_F(SpokenNameTest, AControlsOwnNameComesFirst) {
    Caption({50, 100, 40, 24}, "Caption");
    Control field = Field();
    field.AccessibleName = "Own:";
    EXPECT_EQ(NameOf(field), "Own:");
}

TEST_F(SpokenNameTest, WhatShowsItsCaptionSaysItself) {
    Caption({50, 100, 40, 24}, "Caption");
    for (const auto kind : {ControlKind::Button, ControlKind::CheckBox, ControlKind::OptionButton,
                            ControlKind::Frame, ControlKind::Label}) {
        Control control = Field();
        control.Kind = kind;
        EXPECT_EQ(NameOf(control), "");
    }
}

TEST_F(SpokenNameTest, TheTableNamesInTheLanguageInForce) {
    Table.Name = "Principal";
    Caption({50, 100, 40, 24}, "Sector:");
    Control granule = Field();
    granule.Name = "Granulo";
    EXPECT_EQ(NameOf(granule), "Granule");
    Settings.LanguageIndex = 1;
    EXPECT_EQ(NameOf(granule), "Gr\xE1nulo");
    Table.Name = "Other";
    EXPECT_EQ(NameOf(granule), "Sector");
}

TEST_F(SpokenNameTest, TheViewersNamesHoldInBothWindows) {
    Control picture = Field();
    picture.Name = "Archivo";
    picture.Kind = ControlKind::Picture;
    for (const char* window : {"Principal", "Archivos"}) {
        Table.Name = window;
        EXPECT_EQ(NameOf(picture), "Contents of the file");
    }
}

}  // namespace
}  // namespace brindlemoor::test
