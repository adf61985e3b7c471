#pragma once

#include <QWidget>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

/// A widget that shows the surface of a picture record pixel by pixel inside a thin frame, and
/// reports the mouse to the record's routines in pixels of the surface.
QWidget* MakePicture(QWidget* parent, ControlRef place);

/// Has the widget painted anew when the surface differs from what was shown last.
void ShowPicture(QWidget* widget, const Control& record, const Control& shown);

}  // namespace brindlemoor
