#pragma once

#include <string>
#include <string_view>

#include "core/disk_state.h"

namespace brindlemoor {

/// The 16 bytes of a DECB directory slot that say something about the row's file.
std::string DecbSlotBytes(const DirEntry& row);

/// Writes the 16 bytes of a row's slot into the image; the other 16 stay.
void PutDecbSlot(int row, const std::string& slot);

/// Puts `data` on a DECB disk as the file of the row `DirCount`: granules, slot and FAT. A row that
/// has a chain already begins the search for each granule at the next one of it. Takes what was
/// placed off the front of `data`.
///
/// Returns false after `Messages[17]` when granules ran out: what was placed by then stays in the
/// image, the FAT there stays as it was.
bool PlaceDecbFile(std::string_view& data);

}  // namespace brindlemoor
