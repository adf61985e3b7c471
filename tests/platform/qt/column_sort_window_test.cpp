#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <string>

#include "core/disk_state.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

std::string SmallDisk() {
    DecbBuilder disk;
    disk.File(0, "MOON    ", "BAS", 0, 0, {40}, Pattern(40, 1));
    disk.File(1, "APPLE   ", "TXT", 3, 255, {41}, Pattern(41, 2));
    disk.File(2, "ZEBRA   ", "BIN", 2, 0, {42}, Pattern(42, 3));
    return disk.Image();
}

class SortWindowTest : public WindowTest {
  protected:
    QHeaderView* Header() const { return Directory()->horizontalHeader(); }

    void OpenSmall() {
        WriteTestFile(PcFolder, "SMALL.DSK", SmallDisk());
        EndProgram();
        StartProgram();
        ClickFile("SMALL.DSK");
    }

    void ClickHeader(int section) const {
        const int x =
            Header()->sectionViewportPosition(section) + Header()->sectionSize(section) / 2;
        QTest::mouseClick(Header()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, 8));
        QTest::qWait(1);
    }

    std::string Names() const {
        std::string names;
        for (int row = 0; row < Directory()->model()->rowCount(); ++row) {
            names += Cell(row, 1).substr(0, 5);
        }
        return names;
    }

    /// The right end of a header, where its picture is.
    QImage HeaderEnd(int section) const {
        const int right =
            Header()->sectionViewportPosition(section) + Header()->sectionSize(section);
        return Header()->viewport()->grab(QRect(right - 13, 2, 11, 16)).toImage();
    }
};

TEST_F(SortWindowTest, ClicksOnAHeaderSortUpwardsDownwardsAndGiveUp) {
    OpenSmall();
    const int width = Header()->sectionSize(0);
    const QImage none = HeaderEnd(0);
    ClickHeader(0);
    EXPECT_EQ(Names(), "APPLEMOON ZEBRA");
    EXPECT_EQ(Header()->sectionSize(0), width + 25);
    const QImage up = HeaderEnd(0);
    ClickHeader(0);
    EXPECT_EQ(Names(), "ZEBRAMOON APPLE");
    const QImage down = HeaderEnd(0);
    EXPECT_NE(up, none);
    EXPECT_NE(down, none);
    EXPECT_NE(up, down);
    EXPECT_TRUE(Find<QPushButton>("UndoBtn")->isEnabled());
    ClickHeader(0);
    EXPECT_EQ(Names(), "MOON APPLEZEBRA");
    EXPECT_EQ(Header()->sectionSize(0), width);
    EXPECT_EQ(HeaderEnd(0), none);
    EXPECT_FALSE(Find<QPushButton>("UndoBtn")->isEnabled());
}

TEST_F(SortWindowTest, TheArrowPointsUpForUpwards) {
    OpenSmall();
    ClickHeader(0);
    const auto inkInRow = [](const QImage& picture, int from, int to) {
        int ink = 0;
        for (int y = from; y < to; ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                ink += picture.pixelColor(x, y).lightness() < 100 ? 1 : 0;
            }
        }
        return ink;
    };
    const QImage up = HeaderEnd(0);
    ClickHeader(0);
    const QImage down = HeaderEnd(0);
    EXPECT_LT(inkInRow(up, 0, 8), inkInRow(up, 8, 16));
    EXPECT_GT(inkInRow(down, 0, 8), inkInRow(down, 8, 16));
}

TEST_F(SortWindowTest, FilesAboveAByteOfSizeShowTheErrorBoxAndStayAsTheyAre) {
    ClickFile("COCO.DSK");
    std::string text;
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            text = qobject_cast<QMessageBox*>(dialog)->text().toStdString();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        ClickHeader(0);
        EXPECT_TRUE(QTest::qWaitFor([&box] { return box.Came(); }));
    }
    EXPECT_EQ(text, "Run-time error '5':\n\nInvalid procedure call or argument");
    EXPECT_EQ(ExitCode, -1);
    EXPECT_EQ(Names(), "ALPHABETA GAMMA");
    EXPECT_EQ(Disk.ImageBytes, Disk.ImageOnOpen);
    EXPECT_FALSE(Find<QPushButton>("UndoBtn")->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(SortWindowTest, DraggingAHeaderOrItsEdgeSortsNothing) {
    OpenSmall();
    const int second = Header()->sectionViewportPosition(1) + Header()->sectionSize(1) / 2;
    Drag(Header()->viewport(), QPoint(second, 8), QPoint(4, 8));
    QTest::qWait(1);
    EXPECT_EQ(Header()->visualIndex(1), 0);
    const int edge = Header()->sectionViewportPosition(0) + Header()->sectionSize(0) - 1;
    Drag(Header()->viewport(), QPoint(edge, 8), QPoint(edge + 20, 8));
    QTest::qWait(1);
    EXPECT_EQ(Names(), "MOON APPLEZEBRA");
    EXPECT_TRUE(ListDirec.SortColumns.empty());
    EXPECT_EQ(Disk.ImageBytes, SmallDisk());
}

TEST_F(SortWindowTest, AnotherDiskIsShownWithoutTheSorting) {
    OpenSmall();
    const int width = Header()->sectionSize(0);
    ClickHeader(0);
    const WhenOpen question(Box::Dialog,
                            [](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); });
    ClickFile("OTHER.DSK");
    EXPECT_EQ(Names(), "SINGL");
    EXPECT_EQ(Header()->sectionSize(0), width);
    EXPECT_TRUE(ListDirec.SortColumns.empty());
}

TEST_F(SortWindowTest, AnEmptyEditorKeepsTheHeaderFromSorting) {
    OpenSmall();
    ClickCell(Directory(), 0, 0);
    QTest::keyClick(Directory(), Qt::Key_F2);
    auto* editor = Find<QLineEdit>("txtEdit");
    QTest::keyClick(editor, Qt::Key_Delete);
    int boxes = 0;
    {
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            ++boxes;
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        ClickHeader(0);
    }
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(Names(), "MOON APPLEZEBRA");
    QTest::keyClick(editor, Qt::Key_Escape);
    ClickHeader(0);
    EXPECT_EQ(Names(), "APPLEMOON ZEBRA");
}

}  // namespace
}  // namespace brindlemoor::test
