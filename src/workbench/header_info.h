#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// The dialog that shows the fields of `Disk.ImageHeader`, and writes a new "dk" header from them.
extern Window HeaderInfo;

/// Builds the dialog with all fields empty.
void BuildHeaderInfo();

/// Builds it anew and fills it from the open disk's header, if that has the fixed fields whole.
void OpenHeaderInfo();

}  // namespace brindlemoor
