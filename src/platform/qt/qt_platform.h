#pragma once

#include "core/platform.h"

namespace brindlemoor {

/// The platform of the real program: Qt's boxes and menus over the main window, the desktop's
/// browser, the PC's drives. Every box shows the changed records before it opens.
PlatformTable QtPlatform();

}  // namespace brindlemoor
