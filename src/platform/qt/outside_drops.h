#pragma once

#include <QWidget>

namespace brindlemoor {

/// Lets the user drop files from the desktop's file manager anywhere on `window`, and more kinds of
/// them on the widget `directory` in it: the workbench decides which it takes. The boxes in the
/// window, which take dropped text, leave files to it. Nothing is taken while a box stands before
/// the window.
void TakeOutsideDrops(QWidget* window, QWidget* directory);

}  // namespace brindlemoor
