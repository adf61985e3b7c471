#include "filesystems/edit_entry.h"

#include <string>

#include "core/disk_state.h"
#include "filesystems/decb_write.h"

namespace brindlemoor {

namespace {

constexpr int kAsciiFile = 255;

}  // namespace

void WriteEditedEntry(int row) {
    const DirEntry& entry = DirTable[row];
    std::string bytes = entry.Name + entry.Ext;
    bytes += static_cast<char>(entry.FileType);
    bytes += static_cast<char>(entry.FormatChar == "B" ? 0 : kAsciiFile);
    bytes += static_cast<char>(entry.FirstUnit);
    bytes += static_cast<char>(entry.LastSectorBytes >> 8);
    bytes += static_cast<char>(entry.LastSectorBytes);
    PutDecbSlot(row, bytes);
}

}  // namespace brindlemoor
