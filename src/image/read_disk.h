#pragma once

namespace brindlemoor {

/// Reads the open disk anew from `Disk.ImageBytes`, which holds the whole file: takes the
/// container's header off (it goes to `Disk.ImageHeader`), decides the family, settles the
/// geometry, and fills `DirTable`, with every file's bytes in its row. Findings show a message and
/// reading goes on. An empty image leaves an empty table.
///
/// Fails with 5, 6, 9 or 11 on images that the rules of a container or family cannot hold; `Disk`
/// and `DirTable` are half filled then.
void ReadDisk();

}  // namespace brindlemoor
