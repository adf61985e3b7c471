#include "workbench/cell_edit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "image/save_image.h"
#include "support/disk_fixture.h"
#include "support/dragon_fixture.h"
#include "support/edit_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/event_dispatcher.h"
#include "workbench/file_drag.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

class CellEditTest : public EditTest {
  protected:
    static Control& TextEditor() { return PrincipalControl("txtEdit"); }
    static Control& ListEditor() { return PrincipalControl("ComboEdit"); }

    /// Asks for the edit of a cell of a row that was clicked; true when it began.
    static bool Begin(int row, int col) {
        SelectRow(row);
        bool cancel = false;
        RequestCellEdit(row, col, 0, cancel);
        return !cancel;
    }

    /// Edits a cell of a row, from the first click to the Enter key.
    static void Edit(int row, int col, const std::string& text) {
        ASSERT_TRUE(Begin(row, col));
        Control& editor = col > 2 ? ListEditor() : TextEditor();
        SetText(editor, text);
        EXPECT_TRUE(editor.Key(kKeyEnter));
    }

    static bool Editing() { return ListDirec.Edited.Row != 0; }
    static int Width(int col) { return SeenColumn(ListDirec, col).Width; }
};

// The request

TEST_F(CellEditTest, ColumnsFiveToEighteenCannotBeEdited) {
    for (int col = 5; col <= kDirectoryColumns; ++col) EXPECT_FALSE(Begin(1, col)) << col;
    EXPECT_FALSE(Begin(1, 0));
    EXPECT_FALSE(Editing());
    EXPECT_FALSE(TextEditor().Visible || ListEditor().Visible);
    for (int col = 1; col <= 4; ++col) {
        EXPECT_TRUE(Begin(1, col)) << col;
        CancelCellEdit();
    }
}

TEST_F(CellEditTest, ADeletedRowIsNeverEdited) {
    ASSERT_EQ(Shown(3, 1).substr(0, 4), "?ONE");
    for (int col = 1; col <= 4; ++col) EXPECT_FALSE(Begin(3, col)) << col;
    EXPECT_FALSE(Editing());
}

TEST_F(CellEditTest, TheTextBoxHoldsTheTrimmedCellSelectedInItsFont) {
    ASSERT_TRUE(Begin(1, 1));
    EXPECT_TRUE(TextEditor().Visible);
    EXPECT_FALSE(ListEditor().Visible);
    EXPECT_EQ(TextEditor().Text, "ALPHA");
    EXPECT_EQ(TextEditor().MaxLength, 8);
    EXPECT_EQ(TextEditor().SelStart, 0);
    EXPECT_EQ(TextEditor().SelLength, 5);
    EXPECT_EQ(TextEditor().FocusRequests, 1u);
    EXPECT_EQ(TextEditor().Font, FontKind::FixedBold);
    CancelCellEdit();
    ASSERT_TRUE(Begin(1, 2));
    EXPECT_EQ(TextEditor().Text, "BAS");
    EXPECT_EQ(TextEditor().MaxLength, 3);
    EXPECT_EQ(TextEditor().Font, FontKind::Fixed);
}

TEST_F(CellEditTest, TheListHoldsTheItemsOfItsMessageAndTheCellsText) {
    ASSERT_TRUE(Begin(2, 3));
    EXPECT_TRUE(ListEditor().Visible);
    EXPECT_FALSE(TextEditor().Visible);
    EXPECT_EQ(ListEditor().Items,
              (Texts{"0=BASIC", "1=BASIC data", "2=Machine lenguage", "3=Data text editor"}));
    EXPECT_EQ(ListEditor().Text, "2");
    EXPECT_EQ(ListEditor().SelLength, 1);
    EXPECT_EQ(ListEditor().ListIndex, -1);
    CancelCellEdit();
    ASSERT_TRUE(Begin(2, 4));
    EXPECT_EQ(ListEditor().Items, (Texts{"B=Binary", "A=AscII"}));
    EXPECT_EQ(ListEditor().Text, "B");
}

TEST_F(CellEditTest, AnEmptyCellGivesAnEmptyEditor) {
    SetCellText(ListDirec, 1, 2, "");
    ASSERT_TRUE(Begin(1, 2));
    EXPECT_EQ(TextEditor().Text, "");
    EXPECT_EQ(TextEditor().SelLength, 0);
}

TEST_F(CellEditTest, OfALongerNameTheEditorTakesWhatItHasRoomFor) {
    SetCellText(ListDirec, 1, 1, "a name of OS-9");
    ASSERT_TRUE(Begin(1, 1));
    EXPECT_EQ(TextEditor().Text, "a name o");
}

TEST_F(CellEditTest, AListsColumnIsWiderWhileItsEditorIsOpen) {
    const int type = Width(3);
    const int format = Width(4);
    const std::string totals = PrincipalControl("totales", 0).Text;
    ASSERT_TRUE(Begin(1, 3));
    EXPECT_EQ(Width(3), type + 155);
    EXPECT_NE(PrincipalControl("totales", 0).Text, totals);  // they stay under their columns
    CancelCellEdit();
    EXPECT_EQ(Width(3), type);
    EXPECT_EQ(PrincipalControl("totales", 0).Text, totals);
    Edit(1, 4, "A");
    EXPECT_EQ(Width(4), format);
    ASSERT_TRUE(Begin(1, 4));
    EXPECT_EQ(Width(4), format + 75);
    CancelCellEdit();
    ASSERT_TRUE(Begin(1, 1));
    EXPECT_EQ(Width(3), type);
}

TEST_F(CellEditTest, TheEditorStandsWhereTheGridSaysAfterTheColumnGrew) {
    const int before = Width(3);
    int widthThen = 0;
    ListDirec.PlaceOfCell = [&](int row, int column) {
        widthThen = Width(column);
        return CellPlace{10 * row, 20, widthThen, 17};
    };
    ASSERT_TRUE(Begin(2, 3));
    EXPECT_EQ(widthThen, before + 155);
    EXPECT_EQ(ListEditor().Left, 20 * kTwipsPerPixel);
    EXPECT_EQ(ListEditor().Top, 20 * kTwipsPerPixel);
    EXPECT_EQ(ListEditor().Width, widthThen * kTwipsPerPixel);
    EXPECT_EQ(ListEditor().Height, 17 * kTwipsPerPixel);
    ListDirec.PlaceOfCell = [](int, int) { return CellPlace{1, 2, 3, 4}; };
    ListDirec.Scrolled();
    EXPECT_EQ(ListEditor().Left, 1 * kTwipsPerPixel);
}

// The end

TEST_F(CellEditTest, SevenLowerCaseLettersAreStoredInCapitalsWithoutPadding) {
    Edit(1, 1, "sevenle");
    EXPECT_EQ(DirTable[0].Name, "SEVENLE");
    EXPECT_EQ(Shown(1, 1), "SEVENLE");
    EXPECT_EQ(Slot(0), "SEVENLEBAS" + Bytes({0, 0, 10, 0, 30, 30}));  // one place forward
    EXPECT_EQ(DirTable[0].FullName, "ALPHA.BAS");                     // not made again
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_FALSE(Editing());
    EXPECT_FALSE(TextEditor().Visible);
}

TEST_F(CellEditTest, AFullNameKeepsTheOtherBytesInTheirPlaces) {
    Edit(1, 1, "eightchr");
    EXPECT_EQ(Slot(0), "EIGHTCHRBAS" + Bytes({0, 0, 10, 0, 30}));
    Edit(1, 2, "xyz");
    EXPECT_EQ(Slot(0), "EIGHTCHRXYZ" + Bytes({0, 0, 10, 0, 30}));
    EXPECT_EQ(DirTable[0].Ext, "XYZ");
}

TEST_F(CellEditTest, EnterOnANameThatWasOnlyLookedAtKeepsItsPadding) {
    ASSERT_TRUE(Begin(1, 1));
    ASSERT_EQ(TextEditor().Text, "ALPHA");
    TextEditor().Key(kKeyEnter);
    EXPECT_EQ(Shown(1, 1), "ALPHA   ");
    EXPECT_EQ(DirTable[0].Name, "ALPHA   ");
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellEditTest, LookingAtALongerNameDoesNotCutIt) {
    SetCellText(ListDirec, 1, 1, "a name of OS-9");
    ASSERT_TRUE(Begin(1, 1));
    TextEditor().Key(kKeyEnter);
    EXPECT_EQ(Shown(1, 1), "a name of OS-9");
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellEditTest, OfATypeOfTwoDigitsTheFirstCanBeChosen) {
    DirTable[3].FileType = 12;
    SetCellText(ListDirec, 4, 3, "12");
    ASSERT_TRUE(Begin(4, 3));
    ASSERT_EQ(ListEditor().Text, "12");
    ListEditor().Key(kKeyEnter);
    EXPECT_EQ(DirTable[3].FileType, 12);  // it was only looked at
    ASSERT_TRUE(Begin(4, 3));
    ClickListEntry(ListEditor(), 1);
    ListEditor().Key(kKeyEnter);
    EXPECT_EQ(DirTable[3].FileType, 1);
    EXPECT_EQ(Shown(4, 3), "1");
    EXPECT_EQ(Slot(3)[11], 1);
}

TEST_F(CellEditTest, BlanksTypedBehindAShortNamePadItAgain) {
    Edit(1, 1, "short");
    ASSERT_EQ(DirTable[0].Name, "SHORT");
    Edit(1, 1, "short   ");
    EXPECT_EQ(DirTable[0].Name, "SHORT   ");
    EXPECT_EQ(Slot(0), "SHORT   BAS" + Bytes({0, 0, 10, 0, 30}));
}

TEST_F(CellEditTest, EnterOnAnUnchangedCellChangesNothing) {
    for (int col = 1; col <= 4; ++col) {
        ASSERT_TRUE(Begin(4, col));
        (col > 2 ? ListEditor() : TextEditor()).Key(kKeyEnter);
        EXPECT_FALSE(Editing());
    }
    EXPECT_EQ(Disk.ImageBytes, Original);
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(CellEditTest, ChoosingBinaryInTheListStoresB) {
    ASSERT_TRUE(Begin(4, 4));
    ClickListEntry(ListEditor(), 0);
    EXPECT_EQ(ListEditor().Text, "B=Binary");
    ListEditor().Key(kKeyEnter);
    EXPECT_EQ(DirTable[3].FormatChar, "B");
    EXPECT_EQ(Shown(4, 4), "B");
    EXPECT_EQ(Slot(3), "EIGHTLETTXT" + Bytes({3, 0, 13, 0, 250}));
    Edit(4, 4, "a");
    EXPECT_EQ(DirTable[3].FormatChar, "A");
}

TEST_F(CellEditTest, OfATypeTheFirstCharacterIsTheNumber) {
    ASSERT_TRUE(Begin(4, 3));
    ClickListEntry(ListEditor(), 2);
    ListEditor().Key(kKeyEnter);
    EXPECT_EQ(DirTable[3].FileType, 2);
    EXPECT_EQ(Shown(4, 3), "2");
    EXPECT_EQ(Slot(3)[11], 2);
    Edit(4, 3, "9 lives");
    EXPECT_EQ(DirTable[3].FileType, 9);
}

TEST_F(CellEditTest, EmptyTextsShowTheMessageAndTheEditStaysOpen) {
    for (const int col : {1, 2, 3, 4}) {
        ASSERT_TRUE(Begin(1, col));
        Control& editor = col > 2 ? ListEditor() : TextEditor();
        SetText(editor, "");
        script_.Messages.clear();
        const unsigned focus = editor.FocusRequests;
        editor.Key(kKeyEnter);
        ASSERT_EQ(script_.Messages.size(), 1u);
        EXPECT_EQ(script_.Messages[0].Text, "Please enter some text in cell.");
        EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Exclamation);
        EXPECT_TRUE(Editing());
        EXPECT_TRUE(editor.Visible);
        EXPECT_EQ(editor.FocusRequests, focus + 1);
        EXPECT_EQ(Disk.ImageBytes, Original);
        CancelCellEdit();
    }
}

TEST_F(CellEditTest, EscapeLeavesCellAndImageUnchanged) {
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "OTHER");
    const unsigned focus = PrincipalControl("ListDirec").FocusRequests;
    EXPECT_TRUE(TextEditor().Key(kKeyEscape));
    EXPECT_FALSE(Editing());
    EXPECT_FALSE(TextEditor().Visible);
    EXPECT_EQ(Shown(1, 1), "ALPHA   ");
    EXPECT_EQ(DirTable[0].Name, "ALPHA   ");
    EXPECT_EQ(Disk.ImageBytes, Original);
    EXPECT_EQ(PrincipalControl("ListDirec").FocusRequests, focus + 1);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(CellEditTest, LeavingTheEditorKeepsTheEditAndTheFocusWhereItWent) {
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "EIGHTCHR");
    const unsigned focus = PrincipalControl("ListDirec").FocusRequests;
    TextEditor().Leave();
    EXPECT_EQ(DirTable[0].Name, "EIGHTCHR");
    EXPECT_FALSE(Editing());
    EXPECT_EQ(PrincipalControl("ListDirec").FocusRequests, focus);
    TextEditor().Leave();  // it also loses the focus when it goes
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(CellEditTest, OtherKeysAreTheEditors) {
    ASSERT_TRUE(Begin(1, 1));
    for (const int key : std::vector<int>{kKeyDelete, kKeyTab, kKeyLeft, 'A'}) {
        EXPECT_FALSE(TextEditor().Key(key)) << key;
    }
    EXPECT_TRUE(Editing());
}

TEST_F(CellEditTest, TheRowOfDirCountIsChangedAndNotTheGrids) {
    ASSERT_TRUE(Begin(1, 1));
    Disk.DirCount = 3;
    TextEditor().Text = "EIGHTCHR";
    std::string value;
    bool stay = false;
    FinishCellEdit(1, 1, value, stay);
    EXPECT_FALSE(stay);
    EXPECT_EQ(value, "EIGHTCHR");
    EXPECT_EQ(Shown(1, 1), "EIGHTCHR");
    EXPECT_EQ(DirTable[0].Name, "ALPHA   ");
    EXPECT_EQ(DirTable[3].Name, "EIGHTCHR");
    EXPECT_EQ(Slot(0, 8), "ALPHA   ");
    EXPECT_EQ(Slot(3, 8), "EIGHTCHR");
}

TEST_F(CellEditTest, AnEditDrawsTheSectorWhereItWasWritten) {
    Screen.ShowSectorPlace(17, 3);
    int drawn = 0;
    Screen.DrawSectorMap = [&drawn](int) { ++drawn; };
    Edit(4, 3, "3");
    EXPECT_EQ(drawn, 0);  // nothing differs
    Edit(4, 3, "1");
    EXPECT_EQ(drawn, 1);
}

TEST_F(CellEditTest, TheGridTurnsYellowAtOnce) {
    EXPECT_EQ(ListDirec.BackColour, 16777215);
    Edit(4, 3, "1");
    EXPECT_EQ(ListDirec.BackColour, 65535);
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
    Edit(4, 3, "3");  // undone by hand
    EXPECT_EQ(ListDirec.BackColour, 16777215);
}

// Bad texts

TEST_F(CellEditTest, ATypeThatIsNoNumberFails) {
    for (const char* text : {"X", "-1", " 1", ".", "\xE9"}) {
        ASSERT_TRUE(Begin(4, 3));
        SetText(ListEditor(), text);
        std::string value;
        bool stay = false;
        EXPECT_EQ(FailureOf([&] { FinishCellEdit(4, 3, value, stay); }), kTypeMismatch) << text;
        EXPECT_EQ(DirTable[3].FileType, 3);
        EXPECT_EQ(Disk.ImageBytes, Original);
        CancelCellEdit();
        SetCellText(ListDirec, 4, 3, "3");
    }
}

TEST_F(CellEditTest, TheFailureEndsTheProgramByTheErrorBox) {
    ASSERT_TRUE(Begin(4, 3));
    SetText(ListEditor(), "BASIC");
    EXPECT_FALSE(Dispatch([] { ListEditor().Key(kKeyEnter); }));
    EXPECT_EQ(MessageTexts(script_), Texts{"Run-time error '13':\r\n\r\nType mismatch"});
    EXPECT_TRUE(script_.Ended);
}

TEST_F(CellEditTest, OverlongTextsCountAsFarAsTheFieldGoes) {
    Edit(4, 1, "ninecharsandmore");
    EXPECT_EQ(DirTable[3].Name, "NINECHAR");
    EXPECT_EQ(Slot(4, 32), std::string(32, '\xFF'));  // the next slot
    Edit(4, 2, "long");
    EXPECT_EQ(DirTable[3].Ext, "LON");
    EXPECT_EQ(Slot(3).substr(0, 11), "NINECHARLON");
}

TEST_F(CellEditTest, AccentedLettersAreTheirByte) {
    Edit(4, 1,
         "\xF1"
         "and\xFA te");
    EXPECT_EQ(DirTable[3].Name,
              "\xF1"
              "AND\xFA TE");
    EXPECT_EQ(Slot(3).substr(0, 8), DirTable[3].Name);
}

TEST_F(CellEditTest, AnEditWithoutARowOfTheTableWritesNothing) {
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "OTHER");
    for (const int row : {-1, kDirTableRows}) {
        Disk.DirCount = row;
        std::string value;
        bool stay = false;
        EXPECT_EQ(FailureOf([&] { FinishCellEdit(1, 1, value, stay); }), kIndexRange);
        EXPECT_EQ(Disk.ImageBytes, Original);
        SetCellText(ListDirec, 1, 1, "ALPHA   ");
    }
}

TEST_F(CellEditTest, TheGridAsksOnlyWhileARowIsTheCurrentOne) {
    ASSERT_EQ(Disk.DirCount, Disk.DirRows);  // where filling the grid left it
    ListDirec.EditRequest(1, 1, 0);
    EXPECT_FALSE(Editing());
    SelectRow(1);
    ListDirec.EditRequest(1, 1, 0);
    EXPECT_TRUE(Editing());
}

TEST_F(CellEditTest, ANewRequestKeepsTheOpenEditFirst) {
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "EIGHTCHR");
    ListDirec.EditRequest(1, 2, 0);
    EXPECT_EQ(DirTable[0].Name, "EIGHTCHR");
    EXPECT_EQ(ListDirec.Edited.Column, 2);
    SetText(TextEditor(), "");
    ListDirec.EditRequest(1, 1, 0);
    EXPECT_EQ(ListDirec.Edited.Column, 2);  // it is empty, and stays
}

// A disk behind an open editor

TEST_F(CellEditTest, ReopeningTheDiskCancelsTheEdit) {
    ASSERT_TRUE(Begin(1, 3));
    const int width = Width(3) - 155;
    SetText(ListEditor(), "2");
    ReOpenImage();
    EXPECT_FALSE(Editing());
    EXPECT_FALSE(ListEditor().Visible);
    EXPECT_EQ(Width(3), width);
    EXPECT_EQ(DirTable[0].FileType, 0);
    EXPECT_EQ(Disk.ImageBytes, Original);
}

TEST_F(CellEditTest, AMenuKeepsTheOpenEditBeforeItRuns) {
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "EIGHTCHR");
    EXPECT_TRUE(Principal.BeforeMenu());
    EXPECT_EQ(DirTable[0].Name, "EIGHTCHR");
    EXPECT_TRUE(Principal.BeforeMenu());
    ASSERT_TRUE(Begin(1, 1));
    SetText(TextEditor(), "");
    EXPECT_FALSE(Principal.BeforeMenu());
    EXPECT_TRUE(Editing());
}

TEST_F(CellEditTest, NoDragBeginsWhileAnEditIsOpen) {
    ASSERT_TRUE(Begin(1, 1));
    PrincipalControl("ListDirec").MouseMove({5, 5, true, false});
    EXPECT_TRUE(FileDrag.Source.empty());
    CancelCellEdit();
    PrincipalControl("ListDirec").MouseMove({5, 5, true, false});
    EXPECT_EQ(FileDrag.Source, "ListDirec");
    CancelFileDrag();
}

TEST_F(CellEditTest, AnEditOnAShortImageWritesOnlyWhatIsThere) {
    SelectRow(4);
    Disk.ImageBytes.resize(78848 + 3 * 32 + 4);
    Edit(4, 1, "EIGHTCHR");
    EXPECT_EQ(Disk.ImageBytes.substr(78848 + 96), "EIGH");
    EXPECT_EQ(DirTable[3].Name, "EIGHTCHR");
}

}  // namespace
}  // namespace brindlemoor::test
