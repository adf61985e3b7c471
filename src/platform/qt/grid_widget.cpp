#include "platform/qt/grid_widget.h"

#include <QItemSelectionModel>

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

}  // namespace brindlemoor
