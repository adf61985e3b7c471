#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// The second options window of the menu: a tab with nothing on it, and buttons that say so.
/// Nothing is stored.
extern Window SpareOptions;

void BuildSpareOptions();

}  // namespace brindlemoor
