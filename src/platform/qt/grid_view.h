#pragma once

#include <memory>

#include "platform/qt/grid_widget.h"

namespace brindlemoor {

/// Makes the view of `grid` with the user's actions connected to the record; `place` is its
/// control. The view lives as long as its widget.
std::shared_ptr<GridView> MakeGridView(QWidget* parent, Grid& grid, ControlRef place);

/// Shows the record, unless its drawing is switched off. Costs next to nothing when neither
/// `Revision`, the colours nor the selection differ from what is shown.
void ShowGrid(GridView& view);

}  // namespace brindlemoor
