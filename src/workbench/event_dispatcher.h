#pragma once

#include <functional>

namespace brindlemoor {

/// Runs an event routine as the window system does. A `RuntimeFailure` that no routine shaped
/// shows the error box, titled with the program's name, and ends the program; returns false
/// then. A disk that differs from its file is written to a rescue copy before (`RescueImage`), and
/// the box names it.
bool Dispatch(const std::function<void()>& event);

}  // namespace brindlemoor
