#pragma once

#include <QKeyEvent>
#include <memory>

#include "platform/qt/grid_widget.h"

namespace brindlemoor {

/// What the mouse does on the grid and its header, by keys. Each runs the same event routine with
/// the same arguments as the mouse does, for the current cell or its column:
///
///     Menu, Shift+F10       the right button on the rows
///     Alt+Down              a press of the left button on the cell
///     F3                    a click on the header
///     F4                    the right button on the header
///     Alt+Left, Alt+Right   the column moves a place to the left or right
///     Shift with these      the column becomes narrower or wider by a character
///
/// True when the key was one of these. A grid that was filled anew has no current cell; the keys
/// of the header are then for the column where it was last.
bool OnGridKey(const std::shared_ptr<GridView>& view, const QKeyEvent& event);

}  // namespace brindlemoor
