#include "platform/qt/grid_view.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/colours.h"
#include "platform/qt/grid_events.h"
#include "platform/qt/grid_painting.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

namespace {

constexpr int kRowHeight = 17;
constexpr int kNarrowestColumn = 5;  ///< still wide enough to be taken by the mouse

void ShapeWidget(QTableView* table) {
    table->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setCornerButtonEnabled(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->viewport()->setMouseTracking(true);
    table->setItemDelegate(new GridDelegate(table));
    auto* header = new GridHeader(table);
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(kNarrowestColumn);
    header->viewport()->setMouseTracking(true);
    table->setHorizontalHeader(header);
    QHeaderView* rows = table->verticalHeader();
    rows->hide();
    rows->setMinimumSectionSize(kRowHeight);
    rows->setDefaultSectionSize(kRowHeight);
    rows->setSectionResizeMode(QHeaderView::Fixed);
}

void ShowColumns(GridView& view) {
    QHeaderView* header = view.Widget->horizontalHeader();
    int visual = 0;
    for (const int column : ColumnsFromLeft(*view.Record)) {
        const int section = column - 1;
        const GridColumn& record = view.Record->Columns[static_cast<std::size_t>(section)];
        if (header->visualIndex(section) != visual) {
            header->moveSection(header->visualIndex(section), visual);
        }
        ++visual;
        if (header->isSectionHidden(section) == record.Visible) {
            header->setSectionHidden(section, !record.Visible);
        }
        const int width = std::max(record.Width, kNarrowestColumn);
        if (record.Visible && header->sectionSize(section) != width) {
            header->resizeSection(section, width);
        }
    }
    header->viewport()->update();
}

void ShowRowHeights(GridView& view) {
    QHeaderView* rows = view.Widget->verticalHeader();
    for (int row = 0; row < view.Model->rowCount(); ++row) {
        const GridRow* record = view.Model->RowAt(row);
        if (record != nullptr && rows->sectionSize(row) != record->Height) {
            rows->resizeSection(row, record->Height);
        }
    }
}

void ShowGridColours(GridView& view) {
    const Grid& grid = *view.Record;
    const bool same = view.ShownBackColour == grid.BackColour &&
                      view.ShownAlternateColour == grid.AlternateRowBackColour;
    if (same) return;
    view.ShownBackColour = grid.BackColour;
    view.ShownAlternateColour = grid.AlternateRowBackColour;
    QPalette palette;
    palette.setColor(QPalette::Base, ColourOf(grid.BackColour));
    view.Widget->viewport()->setPalette(palette);
    view.Widget->viewport()->update();
}

/// The rows selected in the record, as ranges of the model's rows.
QItemSelection WantedSelection(const GridView& view) {
    QItemSelection wanted;
    const int lastColumn = view.Model->columnCount() - 1;
    if (lastColumn < 0) return wanted;
    const std::vector<bool>& selected = view.Record->RowSelected;
    for (int row = 0; row < view.Model->rowCount(); ++row) {
        const auto number = static_cast<std::size_t>(view.Model->RowNumber(row));
        if (number > selected.size() || !selected[number - 1]) continue;
        wanted.select(view.Model->index(row, 0), view.Model->index(row, lastColumn));
    }
    return wanted;
}

bool SameRows(const GridView& view, const std::vector<bool>& selected) {
    for (std::size_t number = 1; number <= view.Record->RowSelected.size(); ++number) {
        if (view.Model->ModelRow(static_cast<int>(number)) < 0) continue;
        if (view.Record->RowSelected[number - 1] != selected[number - 1]) return false;
    }
    return true;
}

void ShowSelection(GridView& view) {
    QItemSelectionModel* shown = view.Widget->selectionModel();
    if (!SameRows(view, SelectedRows(view))) {
        shown->select(WantedSelection(view), QItemSelectionModel::ClearAndSelect);
    }
    const int current = view.Model->ModelRow(view.Record->SelectedRow);
    if (shown->currentIndex().row() == current) return;
    const QHeaderView* header = view.Widget->horizontalHeader();
    int section = 0;
    for (int visual = header->count() - 1; visual >= 0; --visual) {
        const int candidate = header->logicalIndex(visual);
        if (!header->isSectionHidden(candidate)) section = candidate;
    }
    const QModelIndex index = current < 0 ? QModelIndex() : view.Model->index(current, section);
    shown->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void ShowToolTip(const GridView& view) {
    const QString tip = ToText(view.Record->ToolTip);
    if (view.Widget->viewport()->toolTip() == tip) return;
    view.Widget->viewport()->setToolTip(tip);
    view.Widget->horizontalHeader()->viewport()->setToolTip(tip);
}

CellPlace PlaceOfCell(const GridView& view, const CellNumbers& cell) {
    RefreshWindows();  // the columns may have other widths by now
    const QModelIndex index = view.Model->index(view.Model->ModelRow(cell.Row), cell.Column - 1);
    const QRect place = view.Widget->visualRect(index);
    return {place.x(), place.y(), place.width(), place.height()};
}

CellNumbers CellUnder(const GridView& view, QPoint place) {
    const QModelIndex index = view.Widget->indexAt(place);
    if (!index.isValid()) return {};
    return {view.Model->RowNumber(index.row()), index.column() + 1};
}

/// The record asks the view as long as there is one.
void AnswerRecord(const std::shared_ptr<GridView>& view) {
    const std::weak_ptr<GridView> weak = view;
    view->Record->PlaceOfCell = [weak](int row, int column) {
        const auto there = weak.lock();
        return there ? PlaceOfCell(*there, {row, column}) : CellPlace();
    };
    view->Record->CellUnder = [weak](int x, int y) {
        const auto there = weak.lock();
        return there ? CellUnder(*there, {x, y}) : CellNumbers();
    };
}

}  // namespace

std::shared_ptr<GridView> MakeGridView(QWidget* parent, Grid& grid, ControlRef place) {
    auto view = std::make_shared<GridView>();
    view->Widget = new QTableView(parent);
    view->Model = new GridModel(grid, view->Widget);
    view->Record = &grid;
    view->Place = place;
    ShapeWidget(view->Widget);
    view->Widget->setModel(view->Model);
    ConnectGridEvents(view);
    AnswerRecord(view);
    return view;
}

void ShowGrid(GridView& view) {
    const Grid& grid = *view.Record;
    if (!grid.Redraw) return;
    if (!view.ShownOnce || grid.Revision != view.ShownRevision) {
        view.Model->Synchronise();
        ShowColumns(view);
        ShowRowHeights(view);
        view.Widget->viewport()->update();
        view.ShownRevision = grid.Revision;
        view.ShownOnce = true;
    }
    ShowGridColours(view);
    ShowSelection(view);
    ShowToolTip(view);
    QScrollBar* bar = view.Widget->horizontalScrollBar();
    if (bar->value() != -grid.ScrollOffsetX) bar->setValue(-grid.ScrollOffsetX);
    if (bar->value() != -grid.ScrollOffsetX) ReportScrollLater(view);
}

}  // namespace brindlemoor
