#pragma once

namespace brindlemoor {

/// True when `Disk.ImageOnOpen` differs from `Disk.ImageHeader` followed by `Disk.ImageBytes`.
bool DiffersFromFile();

/// Sets `Disk.ImageModified` to -1 when the disk differs from its file, to 0 otherwise, and has the
/// window show it. Run it after each change of the image.
void RefreshModified();

}  // namespace brindlemoor
