#pragma once

#include <memory>

#include "platform/qt/grid_widget.h"

namespace brindlemoor {

/// Connects what the user does in the view to the record and its event routines.
void ConnectGridEvents(const std::shared_ptr<GridView>& view);

/// Reports the view's horizontal place as a scroll of the user, once the records have been shown:
/// the view could not go where the record wanted it.
void ReportScrollLater(GridView& view);

}  // namespace brindlemoor
