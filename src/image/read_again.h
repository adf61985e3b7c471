#pragma once

namespace brindlemoor {

/// Reads the open disk anew from the image as it is now, with `ReadDisk`. The container's header is
/// the same before and after. Fails as `ReadDisk` does.
void ReadDiskAgain();

}  // namespace brindlemoor
