#pragma once

namespace brindlemoor {

/// Writes the rows of `DirTable` back into `ImageBytes`, each family its own way: DECB and Dragon
/// have their directories and their files' bytes written anew, OS-9 gets an image of zero bytes but
/// for LSN 0 and the map, FLEX has its directory read again. Shows no messages but those of reading
/// a FLEX disk.
///
/// Fails, before anything is changed, with 7 on an OS-9 disk of an impossible number of sectors and
/// with 6 on an OS-9 date outside the years 100 to 9999; on FLEX as `ReadFlexDisk` does.
void CommitDirectory();

}  // namespace brindlemoor
