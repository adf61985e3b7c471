#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <string>

#include "core/disk_state.h"
#include "platform/qt/grid_widget.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

TEST_F(WindowTest, TheCheckBoxShowsDeletedRows) {
    ClickFile("COCO.DSK");
    auto* box = Find<QCheckBox>("VerBorrados");
    ASSERT_TRUE(box->isEnabled());
    EXPECT_EQ(box->text().toStdString(), "View 1 Deleted");
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    EXPECT_EQ(Directory()->model()->rowCount(), 4);
    EXPECT_EQ(Cell(2, 1).substr(0, 4), "?ONE");
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(Directory()->model()->rowCount(), 3);
    EXPECT_FALSE(Find<QCheckBox>("VerContinuaciones")->isEnabled());
}

TEST_F(WindowTest, DraggingTheEdgeOfAHeaderStoresTheWidths) {
    ClickFile("COCO.DSK");
    QHeaderView* header = Directory()->horizontalHeader();
    const int before = header->sectionSize(0);
    const int edge = header->sectionViewportPosition(0) + before - 1;
    Drag(header->viewport(), QPoint(edge, 8), QPoint(edge + 42, 8));
    EXPECT_EQ(ColumnOf(ListDirec, 1).Width, before + 42);
    EXPECT_EQ(header->sectionSize(0), before + 42);
    EXPECT_EQ(Stored("ColumnWidths").substr(0, 4), std::to_string(before + 42) + ",");
}

TEST_F(WindowTest, DraggingAHeaderStoresTheOrder) {
    ClickFile("COCO.DSK");
    QHeaderView* header = Directory()->horizontalHeader();
    const int second = header->sectionViewportPosition(1) + header->sectionSize(1) / 2;
    Drag(header->viewport(), QPoint(second, 8), QPoint(4, 8));
    EXPECT_EQ(header->visualIndex(1), 0);
    EXPECT_EQ(Stored("ColumnOrder").substr(0, 6), "2,1,3,");
    EXPECT_EQ(ColumnsFromLeft(ListDirec)[0], 2);
}

TEST_F(WindowTest, TheHeadersMenuHidesAColumn) {
    ClickFile("COCO.DSK");
    QHeaderView* header = Directory()->horizontalHeader();
    ASSERT_FALSE(header->isSectionHidden(5));
    {
        const WhenOpen menu(Box::Menu, [](QWidget* box) {
            EXPECT_EQ(box->actions().size(), 18);
            EXPECT_TRUE(ItemOf(box, "Used Granules")->isChecked());
            EXPECT_FALSE(ItemOf(box, "Used Sectors")->isChecked());
            ClickItem(box, "Used Granules");
        });
        QTest::mouseClick(header->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 8));
    }
    EXPECT_TRUE(header->isSectionHidden(5));
    EXPECT_FALSE(header->isSectionHidden(6));
    ClickFile("COCO.DSK");  // the next fill goes by the settings again
    EXPECT_FALSE(header->isSectionHidden(5));
}

TEST_F(WindowTest, TheColumnUnderTheMouseNamesItselfInTheToolTip) {
    ClickFile("COCO.DSK");
    QWidget* cells = Directory()->viewport();
    const QRect place = Directory()->visualRect(Directory()->model()->index(0, 6));
    QTest::mouseMove(cells, place.center());
    QMouseEvent move(QEvent::MouseMove, place.center(), cells->mapToGlobal(place.center()),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(cells, &move);
    EXPECT_EQ(cells->toolTip().toStdString(), "Size");
}

TEST_F(WindowTest, TotalsBeginAtTheGridsFirstColumnInItsCharacters) {
    ClickFile("COCO.DSK");
    const QTableView* grid = Directory();
    EXPECT_EQ(grid->frameWidth(), kGridFrameWidth);
    EXPECT_EQ(grid->viewport()->x(), kGridFrameWidth);
    for (int line = 0; line < 3; ++line) {
        auto* label = Find<QLabel>("totales", line);
        EXPECT_EQ(label->x(), grid->x());
        EXPECT_EQ(label->text().toStdString(), PrincipalControl("totales", line).Text);
    }
    // "Max:" and then blanks: the first letter's cell has ink, the cells of the blanks have none.
    auto* label = Find<QLabel>("totales", 1);
    ASSERT_EQ(label->text().left(6).toStdString(), "Max:  ");
    const QImage picture = label->grab().toImage();
    const QColor back = picture.pixelColor(0, 0);
    const auto inked = [&](int from, int to) {
        for (int x = from; x < to; ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y) != back) return true;
            }
        }
        return false;
    };
    EXPECT_FALSE(inked(0, kGridFrameWidth));
    for (int cell = 0; cell < 6; ++cell) {
        const int x = kGridFrameWidth + cell * kGridCharacterWidth;
        EXPECT_EQ(inked(x, x + kGridCharacterWidth), cell < 4) << cell;
    }
}

TEST_F(WindowTest, ScrollingTheGridSidewaysMovesTheTotals) {
    ClickFile("COCO.DSK");
    Window_.Widget->resize(1000, 700);
    QApplication::processEvents();
    QScrollBar* bar = Directory()->horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 14);
    const std::string before = PrincipalControl("totales", 0).Text;
    bar->setValue(14);
    EXPECT_EQ(ListDirec.ScrollOffsetX, -14);
    EXPECT_EQ(Find<QLabel>("totales", 0)->text().toStdString(), before.substr(2));
}

TEST_F(WindowTest, AChangedDiskColoursTheGridAndFreesUndo) {
    ClickFile("COCO.DSK");
    auto* undo = Find<QPushButton>("UndoBtn");
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(Directory()->viewport()->palette().color(QPalette::Base), QColor(Qt::white));
    UserAction([] {
        Disk.ImageBytes[0] = 'x';
        SetChecked(PrincipalControl("VerBorrados"), true);  // fills the grid
    });
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(Directory()->viewport()->palette().color(QPalette::Base), QColor(Qt::yellow));
}

}  // namespace
}  // namespace brindlemoor::test
