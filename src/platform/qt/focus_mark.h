#pragma once

#include <QWidget>

#include "workbench/control.h"

namespace brindlemoor {

/// Has a list, a grid, a box of several lines or a picture that takes keys show that it has the
/// focus: by its frame, and by a ring around that. The style marks only an entry of a list, and
/// there may be none; a picture's frame alone is lost beside what it shows. Other widgets are left
/// to the style.
void MarkFocus(QWidget* widget, ControlKind kind);

}  // namespace brindlemoor
