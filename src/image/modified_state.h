#pragma once

namespace brindlemoor {

/// Sets `Disk.ImageModified` to -1 when `Disk.ImageOnOpen` differs from `Disk.ImageHeader` followed
/// by `Disk.ImageBytes`, to 0 otherwise, and has the window show it. Run it after each change of
/// the image.
void RefreshModified();

}  // namespace brindlemoor
