#include "platform/qt/grid_events.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "platform/qt/event_hook.h"
#include "platform/qt/grid_keys.h"
#include "platform/qt/grid_painting.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/later.h"
#include "platform/qt/shell.h"

namespace brindlemoor {

namespace {

using View = std::shared_ptr<GridView>;

/// Tells of the press of a button that was noted last.
void ReportPress(GridView& view) {
    const int button = view.PressedButton;
    view.PressedButton = 0;
    if (button == 0 || !view.Record->MouseDown) return;
    const QPoint place = view.PressedAt;
    UserAction([&view, button, place] {
        view.Record->MouseDown(button, view.PressedHeld, place.x(), place.y());
    });
}

int ButtonNumber(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return kLeftButton;
    if (button == Qt::RightButton) return kRightButton;
    return button == Qt::MiddleButton ? kMiddleButton : 0;
}

void NotePress(GridView& view, const QMouseEvent& mouse) {
    const Qt::KeyboardModifiers held = mouse.modifiers();
    view.PressedButton = ButtonNumber(mouse.button());
    view.PressedHeld = (held.testFlag(Qt::ShiftModifier) ? kShiftHeld : 0) |
                       (held.testFlag(Qt::ControlModifier) ? kControlHeld : 0) |
                       (held.testFlag(Qt::AltModifier) ? kAltHeld : 0);
    view.PressedAt = mouse.position().toPoint();
}

/// Asks for an edit of a cell; its row becomes the current one first, where it is not yet.
void RequestEdit(const View& view, const QModelIndex& index, int key) {
    const int row = view->Model->RowNumber(index.row());
    if (row < 1 || !view->Record->EditRequest) return;
    if (view->Record->SelectedRow != row) ClickRow(*view, index);
    view->Widget->scrollTo(index);
    UserAction([&] { view->Record->EditRequest(row, index.column() + 1, key); });
}

/// F2 and Enter edit the current cell.
bool OnEditKey(const View& view, const QKeyEvent& event) {
    const QModelIndex index = view->Widget->currentIndex();
    const bool asks = event.key() == Qt::Key_F2 || KeyCodeOf(event) == kKeyEnter;
    if (!asks || event.modifiers().testFlag(Qt::ControlModifier) || !index.isValid()) return false;
    RequestEdit(view, index, KeyCodeOf(event));
    return true;
}

void ReportScroll(GridView& view) {
    const int offset = -view.Widget->horizontalScrollBar()->value();
    UserAction([&view, offset] {
        view.Record->ScrollOffsetX = offset;
        Raise(view.Record->Scrolled);
    });
}

/// Whether the user moves in the grid by keys: then the cell that a key would edit is marked.
void SetMovesByKey(GridView& view, bool byKey) {
    if (view.MovesByKey == byKey) return;
    view.MovesByKey = byKey;
    view.Widget->setProperty(kMarksCurrentCell, byKey);
    view.Widget->viewport()->update();
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
    // An editor that did not close when the focus left it has something to be mended first.
    const bool editing = view.Record->Edited.Row != 0;
    if (editing && (press || mouse->button() == Qt::RightButton)) return true;
    if (press) {
        SetMovesByKey(view, false);
        if (event->type() == QEvent::MouseButtonPress) NotePress(view, *mouse);
        const bool onRow = view.Widget->indexAt(mouse->position().toPoint()).isValid();
        if (mouse->button() == Qt::RightButton || !onRow) ReportPress(view);
    }
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
    const bool release = event->type() == QEvent::MouseButtonRelease;
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if ((press || release) && view.Record->Edited.Row != 0) return true;
    if (!release) return false;
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

/// Escape, and F3 when it comes for the third time, give up what was not saved. A key that is held
/// too long must not, nor one that is still held after it closed an editor or a window.
bool MayGiveUpChanges(const QKeyEvent& key) {
    return key.key() == Qt::Key_Escape || key.key() == Qt::Key_F3;
}

bool OnGridEvent(const View& shared, QEvent* event) {
    GridView& view = *shared;
    if (event->type() == QEvent::FocusIn) SetMovesByKey(view, false);
    if (event->type() != QEvent::KeyPress) return false;
    if (view.Record->Edited.Row != 0) return true;  // keys that its editor has no use for
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.isAutoRepeat() && MayGiveUpChanges(key)) return true;
    SetMovesByKey(view, true);
    if (OnEditKey(shared, key)) return true;
    if (OnGridKey(shared, key)) return true;
    const int code = KeyCodeOf(key);
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
    QObject::connect(header, &QHeaderView::sectionClicked, header, [view, header](int section) {
        RunLater(header, 0, [view, section] {
            UserAction([&view, section] {
                if (view->Record->HeaderClick) view->Record->HeaderClick(section + 1);
            });
        });
    });
    HookEvents(header->viewport(), [view](QEvent* event) { return OnHeaderEvent(*view, event); });
}

}  // namespace

void ReportScrollLater(GridView& view) {
    RunLater(view.Widget, 0, [&view] { ReportScroll(view); });
}

void ConnectGridEvents(const View& view) {
    QTableView* table = view->Widget;
    HookEvents(table, [view](QEvent* event) { return OnGridEvent(view, event); });
    HookEvents(table->viewport(), [view](QEvent* event) { return OnCellsEvent(*view, event); });
    ConnectHeader(view);
    QObject::connect(table, &QTableView::pressed, table, [view](const QModelIndex& index) {
        ClickRow(*view, index);
        ReportPress(*view);
    });
    QObject::connect(table, &QTableView::doubleClicked, table, [view](const QModelIndex& index) {
        UserAction([&view] { Raise(RecordOf(view->Place).DoubleClick); });
        RequestEdit(view, index, 0);
    });
    QItemSelectionModel* selection = table->selectionModel();
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, table, [view] {
        if (!IsRefreshing()) view->Record->RowSelected = SelectedRows(*view);
    });
    // A grid that gets the focus also goes to a row by itself: only keys make that a click.
    QObject::connect(selection, &QItemSelectionModel::currentRowChanged, table,
                     [view](const QModelIndex& index) {
                         if (view->MovesByKey && !IsRefreshing()) ClickRow(*view, index);
                     });
    QObject::connect(selection, &QItemSelectionModel::currentColumnChanged, table,
                     [view](const QModelIndex& index) {
                         if (view->MovesByKey && !IsRefreshing())
                             HoverOver(*view, index.column() + 1);
                     });
    for (const QScrollBar* bar : {table->horizontalScrollBar(), table->verticalScrollBar()}) {
        QObject::connect(bar, &QScrollBar::valueChanged, table, [view] { ReportScroll(*view); });
    }
}

}  // namespace brindlemoor
