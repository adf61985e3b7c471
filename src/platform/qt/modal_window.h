#pragma once

#include <string>

namespace brindlemoor {

/// Shows the window of that name until the user closes it. A name without a window does nothing.
void RunModalWindow(const std::string& name);

}  // namespace brindlemoor
