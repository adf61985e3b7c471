#include "platform/qt/grid_events.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "platform/qt/event_hook.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/later.h"
#include "platform/qt/shell.h"

namespace brindlemoor {

namespace {

using View = std::shared_ptr<GridView>;

void ClickRow(const View& view, const QModelIndex& index) {
    const int row = view->Model->RowNumber(index.row());
    if (row < 1) return;
    const std::vector<bool> selected = SelectedRows(*view);
    UserAction([&] {
        Grid& grid = *view->Record;
        grid.SelectedRow = row;
        grid.RowSelected = selected;
        if (grid.RowClick) grid.RowClick(row);
        Raise(RecordOf(view->Place).Click);
    });
}

void ReportScroll(GridView& view) {
    const int offset = -view.Widget->horizontalScrollBar()->value();
    UserAction([&view, offset] {
        view.Record->ScrollOffsetX = offset;
        Raise(view.Record->Scrolled);
    });
}

void HoverOver(GridView& view, int column) {
    if (view.HoverColumn == column) return;
    view.HoverColumn = column;
    if (!view.Record->MouseOver) return;
    UserAction([&view, column] { view.Record->MouseOver(column); });
}

/// A column was dragged to its new width, or fitted by a double click on its edge.
void ReportResize(GridView& view) {
    const int column = view.ResizedColumn;
    view.ResizedColumn = 0;
    if (column < 1 || !view.Record->ColumnResized) return;
    const int width = view.Widget->horizontalHeader()->sectionSize(column - 1);
    UserAction([&view, column, width] { view.Record->ColumnResized(column, width); });
}

bool OnCellsEvent(GridView& view, QEvent* event) {
    if (event->type() == QEvent::Leave) HoverOver(view, 0);
    if (event->type() == QEvent::MouseMove) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        HoverOver(view, view.Widget->columnAt(mouse->position().toPoint().x()) + 1);
    }
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!press && !release) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (press) view.MovesByKey = false;
    if (mouse->button() != Qt::RightButton) return false;
    // The right button chooses nothing: its menu is for the rows that are selected.
    if (release) UserAction([&view] { Raise(RecordOf(view.Place).RightClick); });
    return true;
}

bool OnHeaderEvent(GridView& view, QEvent* event) {
    QHeaderView* header = view.Widget->horizontalHeader();
    if (event->type() == QEvent::Leave) HoverOver(view, 0);
    if (event->type() == QEvent::MouseMove) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const bool dragging = mouse->buttons() != Qt::NoButton;
        const int x = mouse->position().toPoint().x();
        if (!dragging) HoverOver(view, header->logicalIndexAt(x) + 1);
    }
    if (event->type() != QEvent::MouseButtonRelease) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::RightButton) {
        UserAction([&view] { Raise(view.Record->HeaderRightClick); });
        return true;
    }
    // The header has to end its own drag before the record is shown in it again.
    if (view.ResizedColumn > 0) {
        RunLater(header, 0, [&view] { ReportResize(view); });
    }
    return false;
}

bool OnGridEvent(GridView& view, QEvent* event) {
    if (event->type() == QEvent::FocusIn) view.MovesByKey = false;
    if (event->type() != QEvent::KeyPress) return false;
    view.MovesByKey = true;
    const int code = KeyCodeOf(*static_cast<QKeyEvent*>(event));
    if (code == 0 || !view.Record->Key) return false;
    bool dropped = false;
    UserAction([&] { dropped = view.Record->Key(code); });
    return dropped;
}

void ConnectHeader(const View& view) {
    QHeaderView* header = view->Widget->horizontalHeader();
    QObject::connect(header, &QHeaderView::sectionMoved, header,
                     [view](int section, int /*from*/, int to) {
                         UserAction([&] {
                             MoveColumn(*view->Record, section + 1, to + 1);
                             if (view->Record->ColumnMoved) view->Record->ColumnMoved(section + 1);
                         });
                     });
    QObject::connect(header, &QHeaderView::sectionResized, header,
                     [view](int section, int /*from*/, int to) {
                         if (!IsRefreshing() && to > 0) view->ResizedColumn = section + 1;
                     });
    HookEvents(header->viewport(), [view](QEvent* event) { return OnHeaderEvent(*view, event); });
}

}  // namespace

void ReportScrollLater(GridView& view) {
    RunLater(view.Widget, 0, [&view] { ReportScroll(view); });
}

void ConnectGridEvents(const View& view) {
    QTableView* table = view->Widget;
    HookEvents(table, [view](QEvent* event) { return OnGridEvent(*view, event); });
    HookEvents(table->viewport(), [view](QEvent* event) { return OnCellsEvent(*view, event); });
    ConnectHeader(view);
    QObject::connect(table, &QTableView::pressed, table,
                     [view](const QModelIndex& index) { ClickRow(view, index); });
    QObject::connect(table, &QTableView::doubleClicked, table,
                     [view] { UserAction([&view] { Raise(RecordOf(view->Place).DoubleClick); }); });
    QItemSelectionModel* selection = table->selectionModel();
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, table, [view] {
        if (!IsRefreshing()) view->Record->RowSelected = SelectedRows(*view);
    });
    // A grid that gets the focus also goes to a row by itself: only keys make that a click.
    QObject::connect(selection, &QItemSelectionModel::currentRowChanged, table,
                     [view](const QModelIndex& index) {
                         if (view->MovesByKey && !IsRefreshing()) ClickRow(view, index);
                     });
    QObject::connect(table->horizontalScrollBar(), &QScrollBar::valueChanged, table,
                     [view] { ReportScroll(*view); });
}

}  // namespace brindlemoor
