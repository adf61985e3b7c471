#pragma once

#include <QAbstractItemView>

#include "platform/qt/control_ref.h"

namespace brindlemoor {

/// Lets the user drag what is selected in `list`, whose control is `place`, and drop there what
/// comes from another such list. The drag is the program's own: it begins when the mouse went far
/// enough with the left button down on an entry, shows `FileDrag`'s image as the pointer, keeps
/// the selection as it was, and ends with the button or the Escape key. Meanwhile, and until the
/// button is up, the list itself sees neither mouse nor keys.
void FollowDrags(QAbstractItemView* list, ControlRef place);

}  // namespace brindlemoor
