#pragma once

#include <QWidget>
#include <string>

namespace brindlemoor {

/// Shows the window of that name beside the main window, with which it closes:
/// `Platform.ShowWindow`. A name without a window shows nothing.
void ShowDetachedWindow(const std::string& name);

/// The window that stands open under that name, null when there is none.
QWidget* DetachedWindow(const std::string& name);

}  // namespace brindlemoor
