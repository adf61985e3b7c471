#include "workbench/file_popup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "convert/file_commands.h"
#include "core/languages.h"
#include "support/file_lists_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

using Texts = std::vector<std::string>;

class FilePopupTest : public test::FileListsTest {
  protected:
    void SetUp() override {
        FileListsTest::SetUp();
        script_.OnPopup = [this](const std::string&) {
            Captions_.clear();
            for (const MenuItem& item : MenuOf(Principal, "PopMenu").Items) {
                Captions_.push_back(item.Caption);
            }
            SideAtPopup_ = PopupSide;
        };
    }

    static void RightClick(const char* list) { PrincipalControl(list).RightClick(); }

    Texts Captions_;  ///< of `PopMenu`, while it stood open
    int SideAtPopup_ = -1;
};

// The captions

TEST_F(FilePopupTest, AFileOfThePcStandsInEveryCaption) {
    SetListIndex(Files(), 1);
    RightClick("File1");
    EXPECT_EQ(script_.PopupMenus, (Texts{"MenuPop"}));
    EXPECT_EQ(Captions_,
              (Texts{"View  B.TXT", "Edit  B.TXT", "Edit HEX  B.TXT", "Paint  B.TXT", "-",
                     "Convert  To B.TXT", "Save  To Virtual B.TXT", "Delete  B.TXT"}));
    EXPECT_EQ(SideAtPopup_, 0);
}

TEST_F(FilePopupTest, ARowOfTheDiskStandsInEveryCaption) {
    ListDirec.RowSelected = {false, true};
    RightClick("ListDirec");
    EXPECT_EQ(script_.PopupMenus, (Texts{"MenuPop"}));
    EXPECT_EQ(Captions_, (Texts{"View  BETA.", "Edit  BETA.", "Edit HEX  BETA.", "Paint  BETA.",
                                "-", "Convert  To BETA.", "Save  To PC BETA.", "Delete  BETA."}));
    EXPECT_EQ(SideAtPopup_, 100);
}

TEST_F(FilePopupTest, SeveralFilesStandByTheirNumber) {
    Files().ItemSelected = Flags{true, false, true};
    RightClick("File1");
    EXPECT_EQ(Captions_,
              (Texts{"View  2 Files", "Edit  2 Files", "Edit HEX  2 Files", "Paint  2 Files", "-",
                     "Convert  To 2 Files", "Save  To Virtual 2 Files", "Delete  2 Files"}));
    ListDirec.RowSelected = {true, true};
    RightClick("ListDirec");
    EXPECT_EQ(Captions_[6], "Save  To PC 2 Files");
    EXPECT_EQ(Captions_[7], "Delete  2 Files");
}

TEST_F(FilePopupTest, TheCaptionsFollowTheLanguage) {
    ChooseLanguage("Spanish");
    SetListIndex(Files(), 0);
    RightClick("File1");
    EXPECT_EQ(Captions_,
              (Texts{"Ver  A.BAS", "Editar  A.BAS", "Editar HEX  A.BAS", "Pintar  A.BAS", "-",
                     "Convertir  a A.BAS", "Grabar  a Virtual A.BAS", "Eliminar  A.BAS"}));
    Files().ItemSelected = Flags{true, true, true};
    RightClick("File1");
    EXPECT_EQ(Captions_[5], "Convertir  a 3 Archivos");
    ListDirec.RowSelected = {true, false};
    RightClick("ListDirec");
    EXPECT_EQ(Captions_[6], "Grabar  a PC ALPHA.BAS");
    ChooseLanguage("English");
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[6].Caption, "Save");
}

TEST_F(FilePopupTest, TheTagsKeepTheTextsWhileTheCaptionsAreRebuilt) {
    SetListIndex(Files(), 0);
    RightClick("File1");
    RightClick("File1");
    EXPECT_EQ(Captions_[0], "View  A.BAS");
    SetListIndex(Files(), 1);
    RightClick("File1");
    EXPECT_EQ(Captions_[0], "View  B.TXT");
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[0].Tag, "View");
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[4].Tag, "-");
}

TEST_F(FilePopupTest, TheNameIsThatOfTheEntrySelectedAndNotOfTheOneClickedLast) {
    Files().ListIndex = 2;  // Ctrl and a click took it out of the selection again
    Files().ItemSelected = Flags{false, true, false};
    RightClick("File1");
    EXPECT_EQ(Captions_[0], "View  B.TXT");
    ListDirec.SelectedRow = 1;
    ListDirec.RowSelected = {false, true};
    RightClick("ListDirec");
    EXPECT_EQ(Captions_[0], "View  BETA.");
}

TEST_F(FilePopupTest, TheConversionsKeepTheirCaptions) {
    SetListIndex(Files(), 1);
    RightClick("File1");
    EXPECT_EQ(MenuOf(Principal, "ConvMenu").Items[4].Caption, "-> CAS");
    EXPECT_EQ(MenuOf(Principal, "ConvMenu").Items[2].Caption, "-");
}

// When there is no menu

TEST_F(FilePopupTest, WithNothingSelectedThereIsNoMenu) {
    PopupSide = kDiskSide;
    RightClick("File1");
    PopupSide = kPcSide;
    RightClick("ListDirec");
    EXPECT_TRUE(script_.PopupMenus.empty());
    EXPECT_EQ(PopupSide, kPcSide);
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[0].Caption, "View");
}

TEST_F(FilePopupTest, OverEmptyListsThereIsNoMenu) {
    SetText(PrincipalControl("DirPattern"), "none: *.XYZ");
    ASSERT_TRUE(Files().Items.empty());
    RightClick("File1");
    NewDirectory(kDecb);
    FillDirectoryGrid();
    RightClick("ListDirec");
    EXPECT_TRUE(script_.PopupMenus.empty());
}

TEST_F(FilePopupTest, ARefillOfTheGridForgetsTheSelection) {
    ListDirec.RowSelected = {true, true};
    FillDirectoryGrid();
    EXPECT_EQ(SelectedCount(kDiskSide), 0);
    RightClick("ListDirec");
    EXPECT_TRUE(script_.PopupMenus.empty());
}

// Commands

TEST_F(FilePopupTest, AClickRunsTheCommandOfTheItemsPlace) {
    script_.OnPopup = [](const std::string&) { MenuOf(Principal, "PopMenu").Click(2); };
    ListDirec.RowSelected = {true, false};
    RightClick("ListDirec");
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 2);
    EXPECT_EQ(commands_.Calls[0].Side, 100);
    script_.OnPopup = [](const std::string&) { MenuOf(Principal, "ConvMenu").Click(10); };
    SetListIndex(Files(), 0);
    RightClick("File1");
    ASSERT_EQ(commands_.Calls.size(), 2U);
    EXPECT_EQ(commands_.Calls[1].Index, 30);
    EXPECT_EQ(commands_.Calls[1].Side, 0);
    EXPECT_EQ(commands_.Calls[1].SaveTag, "Save");
}

TEST_F(FilePopupTest, TheFirstConversionIsCommandTwenty) {
    MenuOf(Principal, "ConvMenu").Click(0);
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 20);
}

TEST_F(FilePopupTest, TheDeleteKeyInTheFileListDeletesFilesOfThePc) {
    PopupSide = kDiskSide;
    SetListIndex(Files(), 0);
    EXPECT_TRUE(Files().Key(kKeyDelete));
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 7);
    EXPECT_EQ(commands_.Calls[0].Side, 0);
    EXPECT_EQ(commands_.Calls[0].DeleteTag, "Borrar PC");
    EXPECT_EQ(commands_.Calls[0].SaveTag, "Save");
}

TEST_F(FilePopupTest, TheTagOfTheKeyStaysInTheNextCaption) {
    SetListIndex(Files(), 0);
    Files().Key(kKeyDelete);
    RightClick("File1");
    EXPECT_EQ(Captions_[7], "Borrar PC  A.BAS");
    ChooseLanguage("English");
    RightClick("File1");
    EXPECT_EQ(Captions_[7], "Delete  A.BAS");
}

TEST_F(FilePopupTest, TheDeleteKeyInTheGridDeletesFilesOfTheDisk) {
    ListDirec.RowSelected = {true, false};
    EXPECT_TRUE(ListDirec.Key(kKeyDelete));
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 7);
    EXPECT_EQ(commands_.Calls[0].Side, 100);
    EXPECT_EQ(commands_.Calls[0].DeleteTag, "Delete");
}

TEST_F(FilePopupTest, OtherKeysRunNoCommand) {
    EXPECT_FALSE(Files().Key(kKeyEnter));
    EXPECT_FALSE(Files().Key('A'));
    EXPECT_FALSE(ListDirec.Key(kKeyDown));
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(FilePopupTest, EscapeInTheGridIsTheUndoButton) {
    int undone = 0;
    PrincipalControl("UndoBtn").Click = [&undone] { ++undone; };
    EXPECT_TRUE(ListDirec.Key(kKeyEscape));
    EXPECT_EQ(undone, 1);
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(FilePopupTest, ANewWindowBeginsOnThePcsSide) {
    PopupSide = kDiskSide;
    BuildAgain();
    EXPECT_EQ(PopupSide, 0);
}

}  // namespace
}  // namespace brindlemoor
