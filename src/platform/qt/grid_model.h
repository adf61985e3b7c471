#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "workbench/grid.h"

namespace brindlemoor {

/// A `Grid` record as Qt's views want it. Only visible rows have a row here; columns are the
/// record's, hidden ones too. The record may change at any time, so every access is checked.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    GridModel(const Grid& grid, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Takes over the record's rows and columns. Returns true when their number or the choice of
    /// visible rows differs, so that the view had to start anew.
    bool Synchronise();

    /// The record's number of the model's row, 0 when there is none.
    int RowNumber(int modelRow) const;

    /// The model's row of the record's row `number`, -1 when it is hidden or not there.
    int ModelRow(int number) const;

    /// The record of a row or cell, null when it is not there.
    const GridRow* RowAt(int modelRow) const;
    const GridCell* CellAt(const QModelIndex& index) const;

    const Grid& Record() const { return grid_; }

  private:
    const Grid& grid_;
    std::vector<int> rows_;  ///< numbers of the visible rows
    int columns_ = 0;
};

}  // namespace brindlemoor
