#pragma once

#include <string>

#include "workbench/control.h"

namespace brindlemoor {

/// What a screen reader says of a control of `window`, in the language in force. In this order: the
/// control's own `AccessibleName`; for the editor of a cell the long name of its column; the name
/// that a table has for it, where nothing that stands in the window would do; the caption that
/// stands to the left of it, or above it, without the colons at its end. Empty for what says itself
/// by the caption that it shows (buttons, check boxes, frames, labels), and where there is none.
std::string SpokenName(const Window& window, const Control& control);

}  // namespace brindlemoor
