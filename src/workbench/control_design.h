#pragma once

#include <string>
#include <vector>

#include "workbench/control.h"

namespace brindlemoor {

/// A rectangle of a window in pixels.
struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// A control as a window's table holds it, with everything else at its usual value.
Control Designed(const std::string& name, ControlKind kind, Place place, std::string text = {});

/// A combo box; an editable one takes free text. None of its items is chosen.
Control DesignedList(const std::string& name, Place place, std::vector<std::string> items,
                     bool editable);

/// The list, standing on one of its items from the start.
Control ListAt(Control control, int index);

Control WithFont(Control control, FontKind font);

/// The control inside a frame of the window.
Control Within(const std::string& frame, Control control);

/// The control with what a screen reader says of it: the caption that stands beside it, without
/// the colons at its end.
Control Spoken(const std::string& caption, Control control);

Control Invisible(Control control);

}  // namespace brindlemoor
