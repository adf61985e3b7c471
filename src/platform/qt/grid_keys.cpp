#include "platform/qt/grid_keys.h"

#include <QHeaderView>
#include <algorithm>

#include "platform/qt/key_codes.h"
#include "platform/qt/later.h"
#include "platform/qt/shell.h"

namespace brindlemoor {

namespace {

using View = std::shared_ptr<GridView>;

/// The place on the screen below the current cell, or at the grid's upper left corner.
QPoint BelowCell(const GridView& view) {
    const QModelIndex index = view.Widget->currentIndex();
    const QRect cell = index.isValid() ? view.Widget->visualRect(index) : QRect();
    const QRect rows = view.Widget->viewport()->rect();
    const QPoint below(std::clamp(cell.left(), rows.left(), rows.right()),
                       std::clamp(cell.bottom() + 1, rows.top(), rows.bottom()));
    return view.Widget->viewport()->mapToGlobal(below);
}

void PressRightButton(const GridView& view) {
    UserActionAt(BelowCell(view), [&view] { Raise(RecordOf(view.Place).RightClick); });
}

/// The record looks for the cell under the place that it is told. Its row is clicked first, as the
/// mouse does: a grid that has just got the focus goes to a cell without telling the record.
void PressLeftButton(const GridView& view) {
    const QModelIndex index = view.Widget->currentIndex();
    if (!index.isValid() || !view.Record->MouseDown) return;
    if (view.Record->SelectedRow != view.Model->RowNumber(index.row())) {
        view.Widget->selectionModel()->select(
            index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        ClickRow(view, index);
    }
    view.Widget->scrollTo(index);
    const QPoint place = view.Widget->visualRect(index).center();
    UserActionAt(BelowCell(view),
                 [&view, place] { view.Record->MouseDown(kLeftButton, 0, place.x(), place.y()); });
}

/// The section of the header that keys are for, -1 for none.
int CurrentSection(GridView& view) {
    const QModelIndex index = view.Widget->currentIndex();
    if (index.isValid()) view.KeySection = index.column();
    const QHeaderView* header = view.Widget->horizontalHeader();
    const bool there = view.KeySection >= 0 && view.KeySection < header->count() &&
                       !header->isSectionHidden(view.KeySection);
    return there ? view.KeySection : -1;
}

/// The view is filled anew by it, so it comes behind the key.
void ClickHeader(const View& view) {
    const int section = CurrentSection(*view);
    if (section < 0) return;
    RunLater(view->Widget, 0, [view, section] {
        UserAction([&view, section] {
            if (view->Record->HeaderClick) view->Record->HeaderClick(section + 1);
        });
    });
}

void PressRightButtonOnHeader(GridView& view) {
    CurrentSection(view);
    const QHeaderView* header = view.Widget->horizontalHeader();
    const QPoint below = header->mapToGlobal(QPoint(0, header->height()));
    UserActionAt(below, [&view] { Raise(view.Record->HeaderRightClick); });
}

/// Columns that do not show are passed over. The header tells the record of the move.
void MoveSection(GridView& view, int step) {
    const int section = CurrentSection(view);
    if (section < 0) return;
    QHeaderView* header = view.Widget->horizontalHeader();
    const int from = header->visualIndex(section);
    int to = from + step;
    while (to >= 0 && to < header->count() && header->isSectionHidden(header->logicalIndex(to))) {
        to += step;
    }
    if (to >= 0 && to < header->count()) header->moveSection(from, to);
}

void ResizeSection(GridView& view, int step) {
    const int section = CurrentSection(view);
    if (section < 0 || !view.Record->ColumnResized) return;
    const QHeaderView* header = view.Widget->horizontalHeader();
    const int width = std::max(header->sectionSize(section) + step * kGridCharacterWidth,
                               header->minimumSectionSize());
    UserAction([&view, section, width] { view.Record->ColumnResized(section + 1, width); });
}

bool OnKeyWithAlt(GridView& view, const QKeyEvent& event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool right = event.key() == Qt::Key_Right;
    if (event.key() == Qt::Key_Down) {
        PressLeftButton(view);
        return true;
    }
    if (!right && event.key() != Qt::Key_Left) return false;
    const int step = right ? 1 : -1;
    if (shift) {
        ResizeSection(view, step);
    } else {
        MoveSection(view, step);
    }
    return true;
}

}  // namespace

bool OnGridKey(const View& view, const QKeyEvent& event) {
    if (IsMenuKey(event)) {
        PressRightButton(*view);
        return true;
    }
    if (event.modifiers().testFlag(Qt::AltModifier)) return OnKeyWithAlt(*view, event);
    if (event.key() != Qt::Key_F3 && event.key() != Qt::Key_F4) return false;
    if (event.key() == Qt::Key_F3) {
        ClickHeader(view);
    } else {
        PressRightButtonOnHeader(*view);
    }
    return true;
}

}  // namespace brindlemoor
