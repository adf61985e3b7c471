#pragma once

#include <QCursor>
#include <QPixmap>
#include <string>

namespace brindlemoor {

/// The images of a drag between the lists, by the name of their control: `Drag`, sheets of paper
/// under the pointer, and `NoDrop`, a crossed circle. 32 by 32 pixels for a `scale` of 1.
QPixmap DragPicture(const std::string& name, qreal scale = 1);

/// The same as the mouse's pointer: the arrow's tip, or the middle of the circle, is what points.
QCursor DragCursor(const std::string& name, qreal scale = 1);

}  // namespace brindlemoor
