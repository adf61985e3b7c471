#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <string>

#include "core/disk_state.h"
#include "keyboard_fixture.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

/// A disk that can be sorted: its files' sizes are numbers of granules.
std::string SmallDisk() {
    DecbBuilder disk;
    disk.File(0, "ZEBRA   ", "BIN", 2, 0, {42}, Pattern(42, 3));
    disk.File(1, "APPLE   ", "TXT", 3, 255, {41}, Pattern(41, 2));
    return disk.Image();
}

bool IsFirstMarked(QWidget* menu) {
    return static_cast<QMenu*>(menu)->activeAction() == menu->actions().at(0);
}

/// The grid of "COCO.DSK": ALPHA, BETA and GAMMA show.
class GridKeysTest : public KeyboardTest {
  protected:
    void SetUp() override {
        KeyboardTest::SetUp();
        GoToFile("COCO.DSK");
    }

    QHeaderView* Header() const { return Directory()->horizontalHeader(); }

    /// A disk that can be sorted, its first cell being the current one.
    void OpenSmallDisk() {
        WriteTestFile(PcFolder, "SMALL.DSK", SmallDisk());
        EndProgram();
        StartProgram();
        GoToFile("SMALL.DSK");
        GoToCell(0, 0);
    }

    /// The key is held down so long that the system sends it again.
    void Repeat(Qt::Key key) const {
        QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(Directory(), &again);
        QTest::qWait(20);
    }

    /// Where a popup that the key brings up stands, on the screen.
    QPoint PlaceOfPopup(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) const {
        QPoint place;
        const WhenOpen popup(Box::Menu, [&place](QWidget* menu) {
            place = menu->pos();
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        Key(key, held);
        return place;
    }
};

TEST_F(GridKeysTest, TheMenuKeyAndShiftF10BringUpTheCommandsAtTheRow) {
    GoToCell(1, 0);
    const QRect row = Directory()->visualRect(Directory()->currentIndex());
    const QPoint below = Directory()->viewport()->mapToGlobal(row.bottomLeft() + QPoint(0, 1));
    for (const bool shifted : {false, true}) {
        const WhenOpen popup(Box::Menu, [below](QWidget* menu) {
            EXPECT_NE(ItemOf(menu, "View  BETA.BIN"), nullptr);
            EXPECT_EQ(menu->pos(), below);
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        Key(shifted ? Qt::Key_F10 : Qt::Key_Menu, shifted ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

TEST_F(GridKeysTest, TheListOfFilesHasItsCommandsByKeyToo) {
    GoToFile("NOTE.TXT");
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        EXPECT_NE(ItemOf(menu, "View  NOTE.TXT"), nullptr);
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    Key(Qt::Key_Menu);
}

TEST_F(GridKeysTest, RowsAreChosenByShiftAndArrows) {
    GoToCell(0, 0);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        EXPECT_NE(ItemOf(menu, "View  2 Files"), nullptr) << ItemText(menu->actions().at(0));
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    Key(Qt::Key_Menu);
}

TEST_F(GridKeysTest, ACellIsEditedByF2InTheRowWhereTheArrowsWent) {
    GoToCell(1, 0);
    Key(Qt::Key_F2);
    ASSERT_TRUE(Find<QLineEdit>("txtEdit")->isVisible());
    TypeIn(Window_.Widget.get(), "other");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(1, 1), "OTHER");
    EXPECT_EQ(DirTable[1].Name, "OTHER");
    EXPECT_EQ(DirTable[0].Name, "ALPHA   ");
}

TEST_F(GridKeysTest, AltAndDownBringUpTheTypesOfACell) {
    GoToCell(1, 2);
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        EXPECT_EQ(menu->actions().size(), 4);
        ASSERT_TRUE(QTest::qWaitFor([&] { return IsFirstMarked(menu); }));
        QTest::keyClick(menu, Qt::Key_Return);
    });
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(DirTable[1].FileType, 0);
    EXPECT_EQ(Cell(1, 3), "0");
}

TEST_F(GridKeysTest, F3SortsByTheColumnAsAClickOnItsHeaderDoes) {
    OpenSmallDisk();
    Key(Qt::Key_F3);
    ASSERT_TRUE(QTest::qWaitFor([] { return !ListDirec.SortColumns.empty(); }));
    EXPECT_EQ(ListDirec.SortColumns[0].Column, 1);
    EXPECT_EQ(ListDirec.SortColumns[0].Order, 1);
    EXPECT_EQ(Cell(0, 1).substr(0, 5), "APPLE");
    Key(Qt::Key_F3);  // the grid was filled anew: the same column is meant
    EXPECT_TRUE(QTest::qWaitFor([] { return ListDirec.SortColumns[0].Order == 2; }));
    EXPECT_EQ(Cell(0, 1).substr(0, 5), "ZEBRA");
    EXPECT_EQ(Window_.Widget->focusWidget(), Directory());
}

TEST_F(GridKeysTest, F4ListsTheColumnsAsARightClickOnTheHeaderDoes) {
    GoToCell(0, 0);
    ASSERT_FALSE(Header()->isSectionHidden(1));
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        EXPECT_EQ(menu->actions().size(), 18);
        ASSERT_TRUE(QTest::qWaitFor([&] { return IsFirstMarked(menu); }));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    Key(Qt::Key_F4);
    EXPECT_TRUE(Header()->isSectionHidden(1));
    EXPECT_FALSE(SeenColumn(ListDirec, 2).Visible);
}

TEST_F(GridKeysTest, TheListOfColumnsComesBelowTheHeader) {
    GoTo(Directory());
    const QPoint header = Header()->mapToGlobal(QPoint(0, Header()->height()));
    EXPECT_EQ(PlaceOfPopup(Qt::Key_F4), header);
}

TEST_F(GridKeysTest, AltAndArrowsMoveTheColumnAndTheOrderIsStored) {
    GoToCell(0, 0);
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Header()->visualIndex(0), 1);
    EXPECT_EQ(Stored("ColumnOrder").substr(0, 6), "2,1,3,");
    Key(Qt::Key_Left, Qt::AltModifier);
    Key(Qt::Key_Left, Qt::AltModifier);  // the first goes no further
    EXPECT_EQ(Stored("ColumnOrder").substr(0, 6), "1,2,3,");
}

TEST_F(GridKeysTest, WithShiftTheyMakeItNarrowerAndWider) {
    GoToCell(0, 1);
    const int width = Header()->sectionSize(1);
    Key(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Header()->sectionSize(1), width + 7);
    EXPECT_EQ(SeenColumn(ListDirec, 2).Width, width + 7);
    for (int step = 0; step < 100; ++step) Key(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Header()->sectionSize(1), Header()->minimumSectionSize());
    EXPECT_TRUE(Header()->sectionSize(1) > 0);
}

TEST_F(GridKeysTest, AKeyHeldDownSortsOnceAndUndoesNothing) {
    OpenSmallDisk();
    Key(Qt::Key_F3);
    for (int repeat = 0; repeat < 4; ++repeat) Repeat(Qt::Key_F3);
    ASSERT_EQ(ListDirec.SortColumns.size(), 1U);
    EXPECT_EQ(ListDirec.SortColumns[0].Order, 1);
    const std::string sorted = Disk.ImageBytes;
    ASSERT_TRUE(sorted != Disk.ImageOnOpen);
    Repeat(Qt::Key_Escape);
    EXPECT_TRUE(Disk.ImageBytes == sorted);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Disk.ImageBytes == Disk.ImageOnOpen);
}

TEST_F(GridKeysTest, AltAndDownAreForTheRowWithTheCellAlsoWhenNoKeyWentThere) {
    GoToCell(0, 2);
    Key(Qt::Key_Left, Qt::AltModifier);
    Key(Qt::Key_Left, Qt::AltModifier);
    EndProgram();
    StartProgram();
    GoToFile("COCO.DSK");
    GoTo(Directory());
    ASSERT_EQ(Directory()->currentIndex().column(), 2);
    const WhenOpen popup(Box::Menu, [](QWidget* menu) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return IsFirstMarked(menu); }));
        QTest::keyClick(menu, Qt::Key_Return);
    });
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(DirTable[0].FileType, 0);
    EXPECT_EQ(ListDirec.SelectedRow, 1);
}

TEST_F(GridKeysTest, AnEmptyGridTakesTheKeysAndDoesNothing) {
    EndProgram();
    StartProgram();
    UserAction([] { ClearGrid(ListDirec); });
    GoTo(Directory());
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_F3, Qt::Key_Menu}) Key(key);
    Key(Qt::Key_Down, Qt::AltModifier);
    QApplication::processEvents();
    EXPECT_TRUE(ListDirec.SortColumns.empty());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(GridKeysTest, TheNameOfTheColumnIsTold) {
    GoToCell(0, 0);
    Key(Qt::Key_Right);
    EXPECT_EQ(Directory()->viewport()->toolTip().toStdString(),
              MenuOf(Principal, "columnsMenu").Items[1].Caption);
}

}  // namespace
}  // namespace brindlemoor::test
