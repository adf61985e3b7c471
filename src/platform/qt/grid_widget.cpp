#include "platform/qt/grid_widget.h"

#include <QItemSelectionModel>

#include "platform/qt/shell.h"

namespace brindlemoor {

std::vector<bool> SelectedRows(const GridView& view) {
    std::vector<bool> selected(view.Record->Rows.size(), false);
    for (const QItemSelectionRange& range : view.Widget->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const auto number = static_cast<std::size_t>(view.Model->RowNumber(row));
            if (number >= 1 && number <= selected.size()) selected[number - 1] = true;
        }
    }
    return selected;
}

void ClickRow(const GridView& view, const QModelIndex& index) {
    const int row = view.Model->RowNumber(index.row());
    if (row < 1) return;
    const std::vector<bool> selected = SelectedRows(view);
    UserAction([&] {
        Grid& grid = *view.Record;
        grid.SelectedRow = row;
        grid.RowSelected = selected;
        if (grid.RowClick) grid.RowClick(row);
        Raise(RecordOf(view.Place).Click);
    });
}

}  // namespace brindlemoor
