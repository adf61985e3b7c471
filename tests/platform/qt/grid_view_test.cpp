#include "platform/qt/grid_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/shell.h"
#include "user_actions.h"

namespace brindlemoor::test {
namespace {

/// A grid of the test's own: columns "A" (left) and "SIZE" (number, right) and a hidden "X".
class GridViewTest : public testing::Test {
  protected:
    void SetUp() override {
        AddColumn(Record, {"1", "A", false, 70, true, 0, "", SortKind::Text});
        AddColumn(Record, {"2", "X", false, 60, false, 0, "", SortKind::Text});
        AddColumn(Record, {"3", "SIZE", true, 80, true, 0, "###,###", SortKind::Number});
        Table.Controls.emplace_back();
        Table.Controls[0].Kind = ControlKind::Grid;
    }

    int Row(const std::string& name, double size) {
        const int row = AddRow(Record);
        SetCellText(Record, row, 1, name);
        SetCellText(Record, row, 2, "hidden");
        SetCellNumber(Record, row, 3, size);
        CellOf(Record, row, 3).RightAligned = true;
        return row;
    }

    void Build() {
        Shell = ShellState();
        Top = std::make_unique<QWidget>();
        Top->resize(400, 300);
        View = MakeGridView(Top.get(), Record, {&Table, 0});
        Widget = View->Widget;
        Widget->setGeometry(0, 0, 400, 300);
        AddRefresh(Top.get(), [view = View] { ShowGrid(*view); });
        RefreshWindows();
        Top->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Top.get()));
    }

    std::string Text(int row, int column) const {
        return Widget->model()->index(row, column - 1).data().toString().toStdString();
    }

    /// The pixels of a cell as they are on the screen.
    QImage Pixels(int row, int column) const {
        const QRect place = Widget->visualRect(Widget->model()->index(row, column - 1));
        return Widget->viewport()->grab(place).toImage();
    }

    Grid Record;
    Window Table;
    std::unique_ptr<QWidget> Top;
    std::shared_ptr<GridView> View;
    QTableView* Widget = nullptr;
};

bool HasInk(const QImage& picture, int left, int right, QColor back) {
    for (int x = left; x < right; ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixelColor(x, y) != back) return true;
        }
    }
    return false;
}

TEST_F(GridViewTest, ShowsTextsAndFormattedNumbers) {
    Row("one", 12345);
    Build();
    EXPECT_EQ(Text(0, 1), "one");
    EXPECT_EQ(Text(0, 3), "12,345");
    EXPECT_EQ(Widget->model()->headerData(2, Qt::Horizontal).toString().toStdString(), "SIZE");
    EXPECT_TRUE(Widget->isColumnHidden(1));
    EXPECT_EQ(Widget->columnWidth(0), 70);
    EXPECT_EQ(Widget->rowHeight(0), 17);
}

TEST_F(GridViewTest, HiddenRowsTakeNoPlaceAndRowNumbersStayTheRecords) {
    for (int i = 1; i <= 5; ++i) RowOf(Record, Row(std::to_string(i), i)).Visible = i % 2 == 1;
    int clicked = 0;
    Record.RowClick = [&clicked](int row) { clicked = row; };
    Build();
    ASSERT_EQ(Widget->model()->rowCount(), 3);
    EXPECT_EQ(Text(1, 1), "3");
    ClickCell(Widget, 1, 0);
    EXPECT_EQ(clicked, 3);
    EXPECT_EQ(Record.SelectedRow, 3);
    EXPECT_EQ(Record.RowSelected, (std::vector<bool>{false, false, true, false, false}));
}

TEST_F(GridViewTest, NothingIsShownWhileDrawingIsOff) {
    Row("one", 1);
    Build();
    Record.Redraw = false;
    ClearGrid(Record);
    Row("two", 2);
    Row("three", 3);
    RefreshWindows();
    EXPECT_EQ(Widget->model()->rowCount(), 1);
    Record.Redraw = true;
    RefreshWindows();
    EXPECT_EQ(Widget->model()->rowCount(), 2);
    EXPECT_EQ(Text(1, 1), "three");
}

TEST_F(GridViewTest, ARecordThatLostItsRowsIsPaintedWithoutHarm) {
    for (int i = 0; i < 9; ++i) Row("row", i);
    Build();
    Record.Redraw = false;
    ClearGrid(Record);
    Record.Columns.clear();
    RefreshWindows();
    Widget->viewport()->grab();
    EXPECT_EQ(Text(3, 1), "");
}

TEST_F(GridViewTest, ModelAndViewportStartAnewOnlyWhenRowsDiffer) {
    Row("one", 1);
    Build();
    int resets = 0;
    QObject::connect(Widget->model(), &QAbstractItemModel::modelReset, Widget,
                     [&resets] { ++resets; });
    RefreshWindows();
    SetCellText(Record, 1, 1, "other");
    SetColumnWidth(Record, 1, 90);
    RefreshWindows();
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(Text(0, 1), "other");
    EXPECT_EQ(Widget->columnWidth(0), 90);
    Row("two", 2);
    RefreshWindows();
    EXPECT_EQ(resets, 1);
}

TEST_F(GridViewTest, ColumnsStandInTheirOrder) {
    Row("one", 1);
    Build();
    MoveColumn(Record, 3, 1);
    ColumnOf(Record, 2).Visible = true;
    RefreshWindows();
    const QHeaderView* header = Widget->horizontalHeader();
    EXPECT_EQ(header->visualIndex(2), 0);
    EXPECT_EQ(header->visualIndex(0), 1);
    EXPECT_FALSE(header->isSectionHidden(1));
    EXPECT_EQ(header->sectionSize(1), 60);
    EXPECT_EQ(header->sectionViewportPosition(0), 80);
}

TEST_F(GridViewTest, DraggingAHeaderSetsTheOrderAndTellsOnce) {
    Row("one", 1);
    std::vector<int> moved;
    Record.ColumnMoved = [&moved](int column) { moved.push_back(column); };
    Build();
    const int last = Widget->horizontalHeader()->sectionViewportPosition(2) + 40;
    Drag(Widget->horizontalHeader()->viewport(), QPoint(last, 8), QPoint(3, 8));
    EXPECT_EQ(moved, std::vector<int>{3});
    EXPECT_EQ(ColumnsFromLeft(Record), (std::vector<int>{3, 1, 2}));
}

TEST_F(GridViewTest, DraggingAnEdgeTellsTheWidthOnceAtItsEnd) {
    Row("one", 1);
    std::vector<std::pair<int, int>> resized;
    Record.ColumnResized = [&](int column, int width) {
        resized.emplace_back(column, width);
        SetColumnWidth(Record, column, width);
    };
    Build();
    Drag(Widget->horizontalHeader()->viewport(), QPoint(69, 8), QPoint(99, 8));
    EXPECT_EQ(resized, (std::vector<std::pair<int, int>>{{1, 100}}));
    EXPECT_EQ(Widget->columnWidth(0), 100);
}

TEST_F(GridViewTest, CellsHaveTheirColoursAndTheRestTheRows) {
    for (int i = 0; i < 3; ++i) Row("H", 1);
    Record.AlternateRowBackColour = 0x112233;
    CellOf(Record, 1, 1).BackColour = 0x8080FF;
    CellOf(Record, 1, 1).ForeColour = 0x00FF00;
    Build();
    const QImage coloured = Pixels(0, 1);
    EXPECT_EQ(coloured.pixelColor(60, 1), QColor(0xFF, 0x80, 0x80));
    EXPECT_EQ(Pixels(0, 3).pixelColor(1, 1), QColor(Qt::white));
    EXPECT_EQ(Pixels(1, 1).pixelColor(60, 1), QColor(0x33, 0x22, 0x11));
    EXPECT_EQ(Pixels(2, 1).pixelColor(60, 1), QColor(Qt::white));
    Record.BackColour = 65535;
    RefreshWindows();
    EXPECT_EQ(Pixels(2, 1).pixelColor(60, 1), QColor(Qt::yellow));
    EXPECT_EQ(Widget->viewport()->grab().toImage().pixelColor(390, 250), QColor(Qt::yellow));
}

TEST_F(GridViewTest, TextStandsInSevenPixelCellsBehindMarginAndIndent) {
    Row("H H", 1);
    CellOf(Record, 1, 1).Indent = 13;
    CellOf(Record, 1, 1).Bold = true;
    Build();
    const QImage cell = Pixels(0, 1);
    const QColor back = Qt::white;
    const int start = kGridCellMargin + 13;
    EXPECT_FALSE(HasInk(cell, 0, start, back));
    EXPECT_TRUE(HasInk(cell, start, start + 7, back));
    EXPECT_FALSE(HasInk(cell, start + 7, start + 14, back));
    EXPECT_TRUE(HasInk(cell, start + 14, start + 21, back));
    EXPECT_FALSE(HasInk(cell, start + 21, 70, back));
}

TEST_F(GridViewTest, NumbersEndAtTheRightMargin) {
    Row("", 7);
    Build();
    const QImage cell = Pixels(0, 3);
    const int end = 80 - kGridCellMargin;
    EXPECT_TRUE(HasInk(cell, end - 7, end, Qt::white));
    EXPECT_FALSE(HasInk(cell, 0, end - 7, Qt::white));
    EXPECT_FALSE(HasInk(cell, end, 80, Qt::white));
}

TEST_F(GridViewTest, ALongTextIsCutWithoutDots) {
    Row(std::string(30, 'H'), 1);
    Row(std::string(9, 'H'), 1);
    Build();
    EXPECT_EQ(Pixels(0, 1).copy(0, 0, 66, 17), Pixels(1, 1).copy(0, 0, 66, 17));
    EXPECT_FALSE(HasInk(Pixels(0, 3), 0, 60, Qt::white));  // nothing runs into the next column
}

TEST_F(GridViewTest, NarrowHeadersShowTheirText) {
    Row("one", 1);
    ColumnOf(Record, 1).Header = "T";
    ColumnOf(Record, 1).Width = 17;
    Build();
    QWidget* header = Widget->horizontalHeader()->viewport();
    const QImage with = header->grab(QRect(0, 0, 17, 20)).toImage();
    ColumnOf(Record, 1).Header = "";
    RefreshWindows();
    const QImage without = header->grab(QRect(0, 0, 17, 20)).toImage();
    int differing = 0;
    for (int x = 0; x < 17; ++x) {
        for (int y = 0; y < 20; ++y) differing += with.pixel(x, y) != without.pixel(x, y) ? 1 : 0;
    }
    EXPECT_GT(differing, 10);
    EXPECT_EQ(Widget->columnWidth(0), 17);
}

TEST_F(GridViewTest, ArrowKeysClickRowsAndShiftExtends) {
    for (int i = 0; i < 4; ++i) Row("row", i);
    std::vector<int> clicked;
    Record.RowClick = [&clicked](int row) { clicked.push_back(row); };
    Build();
    ClickCell(Widget, 0, 0);
    QTest::keyClick(Widget, Qt::Key_Down);
    QTest::keyClick(Widget, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(clicked, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Record.RowSelected, (std::vector<bool>{false, true, true, false}));
    ClickCell(Widget, 0, 2, Qt::ControlModifier);
    EXPECT_EQ(Record.RowSelected, (std::vector<bool>{true, true, true, false}));
}

TEST_F(GridViewTest, TheSelectionOfTheRecordIsShown) {
    for (int i = 0; i < 3; ++i) Row("row", i);
    Build();
    Record.RowSelected = {false, true, true};
    Record.SelectedRow = 2;
    RefreshWindows();
    EXPECT_EQ(Widget->selectionModel()->selectedRows(0).size(), 2);
    EXPECT_EQ(Widget->currentIndex().row(), 1);
    ClearGrid(Record);
    Row("new", 1);
    RefreshWindows();
    EXPECT_TRUE(Widget->selectionModel()->selectedRows(0).isEmpty());
    EXPECT_EQ(Record.SelectedRow, 0);
}

TEST_F(GridViewTest, KeysAndTheRightButtonReachTheRecord) {
    Row("one", 1);
    std::vector<int> keys;
    int rights = 0;
    int headerRights = 0;
    Record.Key = [&keys](int key) {
        keys.push_back(key);
        return true;
    };
    Record.HeaderRightClick = [&headerRights] { ++headerRights; };
    Table.Controls[0].RightClick = [&rights] { ++rights; };
    Build();
    QTest::keyClick(Widget, Qt::Key_Escape);
    QTest::keyClick(Widget, Qt::Key_Delete);
    QTest::mouseClick(Widget->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseClick(Widget->horizontalHeader()->viewport(), Qt::RightButton, Qt::NoModifier,
                      QPoint(5, 5));
    EXPECT_EQ(keys, (std::vector<int>{kKeyEscape, kKeyDelete}));
    EXPECT_EQ(rights, 1);
    EXPECT_EQ(headerRights, 1);
    EXPECT_EQ(Record.SelectedRow, 0);
}

TEST_F(GridViewTest, ScrollingGoesByPixelsBothWays) {
    Row("one", 1);
    ColumnOf(Record, 1).Width = 900;
    int scrolled = 0;
    Record.Scrolled = [&scrolled] { ++scrolled; };
    Build();
    Widget->horizontalScrollBar()->setValue(5);
    EXPECT_EQ(Record.ScrollOffsetX, -5);
    EXPECT_EQ(scrolled, 1);
    Record.ScrollOffsetX = -20;
    RefreshWindows();
    EXPECT_EQ(Widget->horizontalScrollBar()->value(), 20);
    EXPECT_EQ(scrolled, 1);
    Record.ScrollOffsetX = -100000;  // further than the view goes: the record hears where it is
    RefreshWindows();
    QApplication::processEvents();
    EXPECT_EQ(Record.ScrollOffsetX, -Widget->horizontalScrollBar()->maximum());
    EXPECT_EQ(scrolled, 2);
}

TEST_F(GridViewTest, TheLargestDirectoryIsShownToItsLastRow) {
    for (int i = 1; i <= 1701; ++i) Row("NAME" + std::to_string(i), i * 1000.0);
    Build();
    ASSERT_EQ(Widget->model()->rowCount(), 1701);
    Widget->verticalScrollBar()->setValue(Widget->verticalScrollBar()->maximum());
    EXPECT_EQ(Text(1700, 1), "NAME1701");
    EXPECT_EQ(Text(1700, 3), "1,701,000");
}

}  // namespace
}  // namespace brindlemoor::test
