#pragma once

#include <string>

namespace brindlemoor {

/// True when a click on a file of that name opens it as a disk image: its last three characters
/// occur in ".DSK.VDK.OS9.VHD.DMK", case aside. This is a plain search: they need not be a whole
/// extension.
bool HasImageExtension(const std::string& name);

/// Opens the file that is selected in the list `File1`, which is what a click there does: loads it
/// into `Disk.PcFileBytes`, shows it in the viewer and, when its name has an image extension and
/// it is long enough for a directory, reads it as a disk and shows that.
///
/// Messages: those of `LoadPcFile` and `ReadDisk`; "Disco Virtual muy pequeño, como para leer el
/// Directorio" below 78,336 bytes; `Messages[4]` when unsaved changes would be lost. A failure
/// while the disk is read or shown brings up the error box, and the disk open before stands again
/// with all its rows.
void OpenImageFromList();

}  // namespace brindlemoor
