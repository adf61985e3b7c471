#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// Check boxes of the header's flags, one a bit from bit 0 on.
inline constexpr int kHeaderFlags = 4;

/// The table of the header editor's controls, with no routine connected and no field filled.
Window DesignedHeaderInfo();

}  // namespace brindlemoor
