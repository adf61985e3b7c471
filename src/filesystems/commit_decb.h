#pragma once

namespace brindlemoor {

/// Writes all directory slots, the bytes of all files along their chains, and the FAT into the
/// image of a DECB disk. A row that is deleted, or whose name begins with "?", has a slot that
/// begins with 0; a granule that no chain holds is free. Behind a file's bytes its last granule is
/// filled with 2295 bytes of 255, as far as they go. What would lie behind the end of the image is
/// dropped.
void CommitDecbDisk();

}  // namespace brindlemoor
