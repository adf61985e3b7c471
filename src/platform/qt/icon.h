#pragma once

#include <QIcon>
#include <QPixmap>

namespace brindlemoor {

/// The program's picture, a floppy disk whose label shows a moor under a low sun, drawn for a
/// square of `size` pixels.
QPixmap ProgramPicture(int size);

/// The same in the sizes that desktops ask for, 16 to 256 pixels.
QIcon ProgramIcon();

}  // namespace brindlemoor
