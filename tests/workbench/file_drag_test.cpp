#include "workbench/file_drag.h"

#include <gtest/gtest.h>

#include <string>

#include "convert/file_commands.h"
#include "support/file_lists_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

/// Two files are selected in the PC's list and one row in the disk's.
class FileDragTest : public test::FileListsTest {
  protected:
    void SetUp() override {
        FileListsTest::SetUp();
        Files().ItemSelected = Flags{true, false, true};
        ListDirec.RowSelected = {false, true};
    }

    static void Move(Control& list, bool left = true) { list.MouseMove({5, 5, left, !left}); }

    /// Starts a drag from one list and moves it over the other.
    static void DragOver(Control& from, Control& to) {
        Move(from);
        MoveFileDrag(nullptr, &from);
        MoveFileDrag(&from, nullptr);
        MoveFileDrag(nullptr, &to);
    }
};

// The start

TEST_F(FileDragTest, NothingIsDraggedAtFirst) {
    EXPECT_EQ(FileDrag.Source, "");
    EXPECT_EQ(FileDrag.Icon, "");
}

TEST_F(FileDragTest, AMoveWithTheLeftButtonOverSelectedFilesStartsADrag) {
    Move(Files());
    EXPECT_EQ(FileDrag.Source, "File1");
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
}

TEST_F(FileDragTest, AMoveWithTheLeftButtonOverASelectedRowStartsADrag) {
    Move(Directory());
    EXPECT_EQ(FileDrag.Source, "ListDirec");
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
}

TEST_F(FileDragTest, WithoutTheLeftButtonNothingStarts) {
    Move(Files(), false);
    Move(Directory(), false);
    EXPECT_EQ(FileDrag.Source, "");
}

TEST_F(FileDragTest, WithNothingSelectedNothingStarts) {
    Files().ItemSelected = Flags{false, false, false};
    ListDirec.RowSelected = {false, false};
    Move(Files());
    Move(Directory());
    EXPECT_EQ(FileDrag.Source, "");
    Files().ItemSelected.clear();
    ListDirec.RowSelected.clear();
    Move(Files());
    Move(Directory());
    EXPECT_EQ(FileDrag.Source, "");
}

TEST_F(FileDragTest, ADragUnderWayIsNotStartedAnew) {
    DragOver(Files(), Directory());
    Move(Directory());
    Move(Files());
    EXPECT_EQ(FileDrag.Source, "File1");
    EXPECT_EQ(FileDrag.Icon, "Drag");
}

// The pointer

TEST_F(FileDragTest, FilesMayBeDroppedOverTheDirectoryOnly) {
    Move(Files());
    MoveFileDrag(nullptr, &Files());
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
    MoveFileDrag(&Files(), &Directory());
    EXPECT_EQ(FileDrag.Icon, "Drag");
    MoveFileDrag(&Directory(), nullptr);
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
    MoveFileDrag(nullptr, &PrincipalControl("Dir1"));
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
}

TEST_F(FileDragTest, RowsMayBeDroppedOverTheFileListOnly) {
    Move(Directory());
    MoveFileDrag(nullptr, &Directory());
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
    MoveFileDrag(&Directory(), &Files());
    EXPECT_EQ(FileDrag.Icon, "Drag");
    MoveFileDrag(&Files(), &Directory());
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
}

TEST_F(FileDragTest, EachTargetLooksAtTheNameOfTheSource) {
    Move(Files());
    Directory().DragEnter("ListDirec");
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
    Files().DragEnter("File1");
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
    Directory().DragEnter("File1");
    EXPECT_EQ(FileDrag.Icon, "Drag");
    Directory().DragLeave("ListDirec");
    EXPECT_EQ(FileDrag.Icon, "Drag");
    Directory().DragLeave("File1");
    EXPECT_EQ(FileDrag.Icon, "NoDrop");
}

TEST_F(FileDragTest, WithoutADragThePointerMeansNothing) {
    MoveFileDrag(&Files(), &Directory());
    EXPECT_EQ(FileDrag.Icon, "");
}

// The end

TEST_F(FileDragTest, FilesDroppedOnTheDirectoryAreSavedIntoTheImage) {
    PopupSide = kDiskSide;
    DragOver(Files(), Directory());
    DropFileDrag(&Directory());
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 6);
    EXPECT_EQ(commands_.Calls[0].SaveTag, "Copiar PC");
    EXPECT_EQ(commands_.Calls[0].Side, 0);
    EXPECT_EQ(FileDrag.Source, "");
    EXPECT_EQ(FileDrag.Icon, "");
}

TEST_F(FileDragTest, RowsDroppedOnTheFileListAreSavedAsFilesOfThePc) {
    PopupSide = kPcSide;
    DragOver(Directory(), Files());
    DropFileDrag(&Files());
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 6);
    EXPECT_EQ(commands_.Calls[0].SaveTag, "Copiar DSK");
    EXPECT_EQ(commands_.Calls[0].Side, 100);
}

TEST_F(FileDragTest, EachDropSetsItsTagAgainAndItStays) {
    DragOver(Files(), Directory());
    DropFileDrag(&Directory());
    DragOver(Directory(), Files());
    DropFileDrag(&Files());
    DragOver(Files(), Directory());
    DropFileDrag(&Directory());
    ASSERT_EQ(commands_.Calls.size(), 3U);
    EXPECT_EQ(commands_.Calls[1].SaveTag, "Copiar DSK");
    EXPECT_EQ(commands_.Calls[2].SaveTag, "Copiar PC");
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[6].Tag, "Copiar PC");
    PrincipalControl("File1").RightClick();
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[6].Caption, "Copiar PC  To Virtual 2 Files");
}

TEST_F(FileDragTest, ADropOnTheSourceItselfDoesNothing) {
    for (Control* list : {&Files(), &Directory()}) {
        Move(*list);
        DropFileDrag(list);
        EXPECT_EQ(FileDrag.Source, "");
    }
    EXPECT_TRUE(commands_.Calls.empty());
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[6].Tag, "Save");
}

TEST_F(FileDragTest, ADropElsewhereDoesNothing) {
    for (Control* target : {static_cast<Control*>(nullptr), &PrincipalControl("Dir1")}) {
        DragOver(Files(), Directory());
        DropFileDrag(target);
        EXPECT_EQ(FileDrag.Source, "");
    }
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(FileDragTest, AnAbandonedDragDropsNothing) {
    DragOver(Files(), Directory());
    CancelFileDrag();
    EXPECT_EQ(FileDrag.Icon, "");
    DropFileDrag(&Directory());
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(FileDragTest, TheDragIsOverWhenTheCommandRuns) {
    std::string source = "none yet";
    RunFileCommand = [&source](int) { source = FileDrag.Source; };
    DragOver(Files(), Directory());
    DropFileDrag(&Directory());
    EXPECT_EQ(source, "");
}

TEST_F(FileDragTest, TheSelectionStays) {
    DragOver(Files(), Directory());
    DropFileDrag(&Directory());
    EXPECT_EQ(Files().ItemSelected, (Flags{true, false, true}));
    EXPECT_EQ(ListDirec.RowSelected, (Flags{false, true}));
}

}  // namespace
}  // namespace brindlemoor
