#include "platform/qt/grid_model.h"

#include <algorithm>
#include <utility>

#include "platform/qt/text.h"

namespace brindlemoor {

GridModel::GridModel(const Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const GridCell* cell = CellAt(index);
    if (cell == nullptr) return {};
    if (role == Qt::DisplayRole) return ToText(ShownText(grid_, *cell, index.column() + 1));
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(Qt::AlignVCenter |
                                (cell->RightAligned ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto column = static_cast<std::size_t>(section);
    if (orientation != Qt::Horizontal || column >= grid_.Columns.size()) return {};
    if (role == Qt::DisplayRole) return ToText(grid_.Columns[column].Header);
    if (role == Qt::DecorationRole) return grid_.Columns[column].HeaderPicture;
    if (role == Qt::TextAlignmentRole) {
        const bool right = grid_.Columns[column].RightAligned;
        return static_cast<int>(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

bool GridModel::Synchronise() {
    std::vector<int> rows;
    int number = 0;
    for (const GridRow& row : grid_.Rows) {
        ++number;
        if (row.Visible) rows.push_back(number);
    }
    const int columns = static_cast<int>(grid_.Columns.size());
    if (rows == rows_ && columns == columns_) return false;
    beginResetModel();
    rows_ = std::move(rows);
    columns_ = columns;
    endResetModel();
    return true;
}

int GridModel::RowNumber(int modelRow) const {
    if (modelRow < 0 || modelRow >= static_cast<int>(rows_.size())) return 0;
    return rows_[static_cast<std::size_t>(modelRow)];
}

int GridModel::ModelRow(int number) const {
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), number);
    if (found == rows_.end() || *found != number) return -1;
    return static_cast<int>(found - rows_.begin());
}

const GridRow* GridModel::RowAt(int modelRow) const {
    const int number = RowNumber(modelRow);
    if (number < 1 || number > static_cast<int>(grid_.Rows.size())) return nullptr;
    return &grid_.Rows[static_cast<std::size_t>(number) - 1];
}

const GridCell* GridModel::CellAt(const QModelIndex& index) const {
    const GridRow* row = index.isValid() ? RowAt(index.row()) : nullptr;
    const auto column = static_cast<std::size_t>(index.column());
    if (row == nullptr || column >= row->Cells.size() || column >= grid_.Columns.size()) {
        return nullptr;
    }
    return &row->Cells[column];
}

}  // namespace brindlemoor
