#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brindlemoor {

/// With a `name`: moves `DirCount` to the first row of that `FullName`, live or deleted, and
/// changes nothing else; without such a row `DirCount` stays. Returns 0.
///
/// Without one: deletes the file of the row `DirCount` and returns -1. The row stays, marked and
/// emptied; its `Chain` stays too with `keepChain`, but not on DECB. On DECB the image loses the
/// slot's first byte, the file's FAT bytes and the bytes of its granules, which become 255; on
/// Dragon the bitmap on track 20 and the entry's flag byte change, also those of an entry that
/// continues it. On OS-9 and FLEX the image stays, so that the file is back when the disk is read
/// again. What would lie behind the end of the image is dropped.
///
/// A row that is deleted already is deleted, and counted, again. Fails with 9 when `DirCount` is no
/// row, with 6 when `UsedSectors` leaves its 32 bits; nothing is changed then.
std::int16_t DeleteDiskFile(const std::optional<std::string>& name = std::nullopt,
                            bool keepChain = false);

/// Deletes the files of the rows that are selected in the directory grid, after asking once: for
/// one file by its name (`Messages[9]`), for several by their number (`Messages[10]`), and fills
/// the grid anew. Cancel leaves the disk as it was.
void DeleteCommand();

}  // namespace brindlemoor
