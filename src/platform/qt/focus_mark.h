#pragma once

#include <QWidget>

namespace brindlemoor {

/// Has a list, a grid or a box of several lines show by its frame whether it has the focus. The
/// style marks only an entry in it, and there may be none. Other widgets are left to the style.
void MarkFocus(QWidget* widget);

}  // namespace brindlemoor
