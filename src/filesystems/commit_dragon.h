#pragma once

namespace brindlemoor {

/// Writes the files' bytes along their extents, and the directory with its copy, into the image of
/// a Dragon disk; the bitmap stays. A file of more than four extents keeps four in its row and
/// gives the others, seven at a time, to the row of its `ContinuationLink`, to the row of that
/// one's, and so on: these rows lose their chain and their names, whatever they were, and none of
/// the file's bytes are written. What would lie behind the end of the image is dropped.
void CommitDragonDisk();

}  // namespace brindlemoor
