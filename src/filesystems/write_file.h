#pragma once

#include <string>

namespace brindlemoor {

/// Puts `data` into the open disk as the file that `path` names. On DECB and Dragon the row, the
/// bytes and the allocation table in the image change, on DECB the directory slot too; on OS-9 and
/// FLEX the row alone, which is gone at the next reading of the disk.
///
/// `path` may be that of a PC file or a row's `FullName`; what stands behind its last separator is
/// the wanted name. When `data` is empty, the PC file `path` is loaded into it first; if that
/// fails, nothing else happens. What was placed is taken off the front of `data`: on DECB all of
/// it, so that a row's own `Content` is to be given as a copy.
///
/// A live row of the same name brings up the question of `Messages[0]`, again and again until there
/// is another name; an empty answer ends the routine. With `overwrite` nothing is asked: the file
/// gets a row of its own, but the first row of that name is the one whose place in the image is
/// written anew. The granules or sectors of the old file are not freed: who wants to replace a file
/// deletes it before.
///
/// The lowest deleted row is taken, or else the one behind the last; `Messages[16]` when the
/// directory has no room for that, `Messages[18]` when the disk's totals leave no room for the
/// file: nothing is changed then. `Messages[17]` when a DECB disk runs out of granules all the
/// same: the row stays as it was filled. `DirCount` is left at the row that was placed.
///
/// False only when the user gave that question up. A failure (9 when the table has no such row or a
/// name with "[]" upsets a message, 7 when the search for a sector of a Dragon disk never ends)
/// brings up the error box, and rows, image and `PcFileTypeText` are as they were. The filling of
/// the directory grid at the end is not part of this.
bool WriteFileToDisk(const std::string& path, bool overwrite, std::string& data);

}  // namespace brindlemoor
