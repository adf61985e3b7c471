#include "platform/qt/list_drags.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTest>
#include <string>
#include <utility>
#include <vector>

#include "core/disk_state.h"
#include "platform/qt/drag_pictures.h"
#include "platform/qt/shell.h"
#include "support/command_record.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/file_drag.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Flags = std::vector<bool>;

/// The program with "COCO.DSK" open, whose three rows and the PC's three files are dragged.
class ListDragsTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        ClickFile("COCO.DSK");
        QApplication::processEvents();
    }

    void TearDown() override {
        if (held_ != nullptr) Release();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        WindowTest::TearDown();
    }

    static QPoint MiddleOf(QAbstractItemView* list, int row) {
        QRect place = list->visualRect(list->model()->index(row, 0));
        return place.intersected(list->viewport()->rect()).center();
    }

    void Press(QAbstractItemView* list, int row, Qt::KeyboardModifiers modifiers = {}) {
        held_ = list->viewport();
        at_ = held_->mapToGlobal(MiddleOf(list, row));
        QTest::mousePress(held_, Qt::LeftButton, modifiers, held_->mapFromGlobal(at_));
    }

    /// Moves the mouse to a place of another widget; the one that was pressed gets the events.
    void MoveTo(QWidget* widget, QPoint place) { MoveToScreen(widget->mapToGlobal(place)); }

    void MoveBy(int x, int y) { MoveToScreen(at_ + QPoint(x, y)); }

    void MoveToScreen(QPoint place) {
        at_ = place;
        QMouseEvent move(QEvent::MouseMove, held_->mapFromGlobal(QPointF(at_)), QPointF(at_),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(held_, &move);
    }

    void Release() {
        QWidget* widget = std::exchange(held_, nullptr);
        QMouseEvent release(QEvent::MouseButtonRelease, widget->mapFromGlobal(QPointF(at_)),
                            QPointF(at_), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &release);
        QApplication::processEvents();
    }

    void OverGrid() { MoveTo(Directory()->viewport(), MiddleOf(Directory(), 2)); }
    void OverFiles() { MoveTo(Files()->viewport(), MiddleOf(Files(), 2)); }

    /// The image of the pointer, empty while it is the usual one.
    static std::string Pointer() {
        const QCursor* cursor = QApplication::overrideCursor();
        if (cursor == nullptr) return "";
        const QImage shown = cursor->pixmap().toImage();
        for (const char* name : {"Drag", "NoDrop"}) {
            if (shown == DragPicture(name).toImage()) return name;
        }
        return "another";
    }

    static Flags& SelectedFiles() { return PrincipalControl("File1").ItemSelected; }

    CommandRecord commands_;

  private:
    QWidget* held_ = nullptr;  ///< where the left button is down
    QPoint at_;                ///< the mouse, on the screen
};

// From the PC to the disk

TEST_F(ListDragsTest, AFileDroppedOnTheGridIsSavedIntoTheImage) {
    Press(Files(), 1);
    EXPECT_EQ(Pointer(), "");
    MoveBy(0, 12);
    EXPECT_EQ(Pointer(), "NoDrop");
    EXPECT_EQ(FileDrag.Source, "File1");
    OverGrid();
    EXPECT_EQ(Pointer(), "Drag");
    Release();
    EXPECT_EQ(Pointer(), "");
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 6);
    EXPECT_EQ(commands_.Calls[0].Side, 0);
    EXPECT_EQ(commands_.Calls[0].SaveTag, "Copiar PC");
    EXPECT_EQ(FileDrag.Source, "");
}

TEST_F(ListDragsTest, ThePointerTellsWhereTheGridIs) {
    Press(Files(), 1);
    OverGrid();
    EXPECT_EQ(Pointer(), "Drag");
    MoveTo(Find<QWidget>("Info"), QPoint(5, 5));
    EXPECT_EQ(Pointer(), "NoDrop");
    MoveTo(Directory()->horizontalHeader()->viewport(), QPoint(5, 5));
    EXPECT_EQ(Pointer(), "Drag");
    MoveToScreen(Window_.Widget->mapToGlobal(QPoint(-200, -200)));
    EXPECT_EQ(Pointer(), "NoDrop");
    Release();
    EXPECT_TRUE(commands_.Calls.empty());
}

// From the disk to the PC

TEST_F(ListDragsTest, ARowDroppedOnTheFilesIsSavedOnThePc) {
    Press(Directory(), 1);
    MoveBy(12, 0);
    EXPECT_EQ(Pointer(), "NoDrop");
    EXPECT_EQ(FileDrag.Source, "ListDirec");
    OverFiles();
    EXPECT_EQ(Pointer(), "Drag");
    Release();
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Index, 6);
    EXPECT_EQ(commands_.Calls[0].Side, 100);
    EXPECT_EQ(commands_.Calls[0].SaveTag, "Copiar DSK");
    EXPECT_EQ(ListDirec.RowSelected, (Flags{false, true, false, false}));
}

// Drops that do nothing

TEST_F(ListDragsTest, ADropOnTheSourceDoesNothing) {
    for (QAbstractItemView* list :
         {static_cast<QAbstractItemView*>(Files()), static_cast<QAbstractItemView*>(Directory())}) {
        Press(list, 0);
        MoveTo(list->viewport(), MiddleOf(list, 2));
        EXPECT_EQ(Pointer(), "NoDrop");
        Release();
        EXPECT_EQ(Pointer(), "");
    }
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(ListDragsTest, ADropElsewhereDoesNothing) {
    for (const char* name : {"Dir1", "FilePath", "Info", "Drive1"}) {
        Press(Directory(), 0);
        MoveTo(Find<QWidget>(name), QPoint(10, 10));
        EXPECT_EQ(Pointer(), "NoDrop") << name;
        Release();
    }
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(ListDragsTest, EscapeEndsADragAndTheButtonThenDropsNothing) {
    int undone = 0;
    PrincipalControl("UndoBtn").Click = [&undone] { ++undone; };
    ClickCell(Directory(), 0, 0);
    ClickCell(Directory(), 1, 0, Qt::ControlModifier);
    Press(Directory(), 0);
    OverFiles();
    EXPECT_EQ(Pointer(), "Drag");
    QTest::keyClick(Directory(), Qt::Key_Escape);
    EXPECT_EQ(Pointer(), "");
    EXPECT_EQ(FileDrag.Source, "");
    OverFiles();
    MoveTo(Directory()->viewport(), MiddleOf(Directory(), 2));
    EXPECT_EQ(Pointer(), "");
    Release();
    EXPECT_TRUE(commands_.Calls.empty());
    EXPECT_EQ(undone, 0);
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, true, false, false}));
    QTest::keyClick(Directory(), Qt::Key_Escape);
    EXPECT_EQ(undone, 1);
}

TEST_F(ListDragsTest, KeysAndTheOtherButtonDoNothingWhileDragging) {
    std::vector<int> chosen;
    MenuOf(Principal, "FilesMenu").Click = [&chosen](int index) { chosen.push_back(index); };
    Press(Files(), 1);
    OverGrid();
    QTest::keyClick(Files(), Qt::Key_Home);
    QTest::keyClick(Files(), Qt::Key_Delete);
    QTest::keyClick(Files(), Qt::Key_O, Qt::ControlModifier);
    QTest::mouseClick(Files()->viewport(), Qt::RightButton, Qt::NoModifier, MiddleOf(Files(), 1));
    EXPECT_EQ(SelectedFiles(), (Flags{false, true, false}));
    EXPECT_TRUE(commands_.Calls.empty());
    EXPECT_TRUE(chosen.empty());
    EXPECT_EQ(Pointer(), "Drag");
    Release();
    EXPECT_EQ(commands_.Calls.size(), 1U);
}

TEST_F(ListDragsTest, AButtonThatWentUpUnseenEndsTheDrag) {
    Press(Files(), 1);
    OverGrid();
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 5),
                     Files()->viewport()->mapToGlobal(QPointF(5, 5)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(Files()->viewport(), &move);
    EXPECT_EQ(Pointer(), "");
    Release();
    EXPECT_TRUE(commands_.Calls.empty());
}

TEST_F(ListDragsTest, ADragWhoseEndWasNeverSeenEndsWithTheNextPress) {
    Press(Files(), 1);
    OverGrid();
    Press(Directory(), 0);  // the release went elsewhere
    EXPECT_EQ(Pointer(), "");
    OverFiles();
    EXPECT_EQ(FileDrag.Source, "ListDirec");
    EXPECT_EQ(Pointer(), "Drag");
    Release();
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(commands_.Calls[0].Side, 100);
}

// Presses and selections

TEST_F(ListDragsTest, AShakyClickIsNoDrag) {
    Press(Directory(), 0);
    MoveBy(3, 2);
    MoveBy(-2, 3);
    EXPECT_EQ(Pointer(), "");
    Release();
    EXPECT_EQ(FileDrag.Source, "");
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, false, false, false}));
    Press(Files(), 2);
    MoveBy(0, 9);  // another entry, yet not far enough
    Release();
    EXPECT_EQ(PrincipalControl("FilePath").Text, PcFolder + "/OTHER.DSK");
    EXPECT_EQ(SelectedFiles(), (Flags{false, false, true}));
}

TEST_F(ListDragsTest, APressOnASelectedFileKeepsTheSelectionForTheDrag) {
    ClickEntry(Files(), 2, Qt::ControlModifier);
    Disk.PcFileBytes = "untouched";
    Press(Files(), 0);
    ASSERT_EQ(Disk.PcFileBytes.size(), 9U);  // no file was loaded
    EXPECT_EQ(SelectedFiles(), (Flags{true, false, true}));
    OverGrid();
    Release();
    ASSERT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(SelectedFiles(), (Flags{true, false, true}));
    EXPECT_EQ(Files()->selectionModel()->selectedIndexes().size(), 2);
    EXPECT_EQ(Disk.PcFileBytes.size(), 9U);
}

TEST_F(ListDragsTest, AClickOnASelectedFileSelectsItAloneAndOpensIt) {
    ClickEntry(Files(), 2, Qt::ControlModifier);
    Press(Files(), 0);
    EXPECT_EQ(PrincipalControl("FilePath").Text, PcFolder + "/OTHER.DSK");
    Release();
    EXPECT_EQ(SelectedFiles(), (Flags{true, false, false}));
    EXPECT_EQ(Files()->selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(PrincipalControl("FilePath").Text, PcFolder + "/COCO.DSK");
}

TEST_F(ListDragsTest, APressOnASelectedRowKeepsTheSelectionForTheDrag) {
    ClickCell(Directory(), 0, 0);
    ClickCell(Directory(), 1, 0, Qt::ControlModifier);
    Press(Directory(), 0);
    OverFiles();
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, true, false, false}));
    Release();
    EXPECT_EQ(commands_.Calls.size(), 1U);
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, true, false, false}));
    Press(Directory(), 0);
    Release();
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, false, false, false}));
}

TEST_F(ListDragsTest, WhatTheMousePassesWhileDraggingIsNotSelected) {
    Press(Files(), 0);
    MoveTo(Files()->viewport(), MiddleOf(Files(), 1));
    MoveTo(Files()->viewport(), MiddleOf(Files(), 2));
    OverGrid();
    Release();
    EXPECT_EQ(SelectedFiles(), (Flags{true, false, false}));
    Press(Directory(), 0);
    MoveTo(Directory()->viewport(), MiddleOf(Directory(), 2));
    Release();
    EXPECT_EQ(ListDirec.RowSelected, (Flags{true, false, false, false}));
}

TEST_F(ListDragsTest, APressBelowTheEntriesStartsNoDrag) {
    const QRect last = Files()->visualItemRect(Files()->item(2));
    QTest::mousePress(Files()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      last.bottomLeft() + QPoint(30, 30));
    const QPointF first = MiddleOf(Files(), 0);
    QMouseEvent move(QEvent::MouseMove, first, Files()->viewport()->mapToGlobal(first),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Files()->viewport(), &move);
    EXPECT_EQ(FileDrag.Source, "");
    EXPECT_EQ(Pointer(), "");
    QTest::mouseRelease(Files()->viewport(), Qt::LeftButton, Qt::NoModifier, first.toPoint());
}

TEST_F(ListDragsTest, WithoutADiskThereIsNothingToDrag) {
    EndProgram();
    StartProgram();
    UserAction([] {
        DirTable.Wipe();
        Disk.DirRows = 0;
        ClearGrid(ListDirec);
    });
    QTest::mousePress(Directory()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 60),
                     Directory()->viewport()->mapToGlobal(QPointF(60, 60)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Directory()->viewport(), &move);
    EXPECT_EQ(FileDrag.Source, "");
    QTest::mouseRelease(Directory()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 60));
}

// The pictures

TEST(DragPicture, TheTwoPicturesDifferAndHaveInk) {
    const QImage drag = DragPicture("Drag").toImage();
    const QImage noDrop = DragPicture("NoDrop").toImage();
    EXPECT_EQ(drag.size(), QSize(32, 32));
    EXPECT_EQ(noDrop.size(), QSize(32, 32));
    EXPECT_NE(drag, noDrop);
    EXPECT_EQ(noDrop.pixelColor(16, 16), QColor(0xB3, 0x2B, 0x2B));
    EXPECT_EQ(noDrop.pixelColor(1, 1).alpha(), 0);
    EXPECT_GT(drag.pixelColor(2, 6).alpha(), 128);
    EXPECT_EQ(drag.pixelColor(31, 0).alpha(), 0);
    EXPECT_EQ(DragPicture("Drag", 2).size(), QSize(64, 64));
}

TEST(DragPicture, ThePointersTipIsTheArrowsAndTheCirclesMiddle) {
    EXPECT_EQ(DragCursor("Drag").hotSpot(), QPoint(1, 1));
    EXPECT_EQ(DragCursor("NoDrop").hotSpot(), QPoint(16, 16));
}

}  // namespace
}  // namespace brindlemoor::test
