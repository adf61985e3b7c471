#include "image/read_again.h"

#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "image/read_disk.h"

namespace brindlemoor {

void ReadDiskAgain() {
    const std::string header = Disk.ImageHeader;
    // A "dk" header says the disk's name too, and is read as it was. Others cannot stand in front
    // of the sectors: that of a DMK file belongs to tracks that are no longer there.
    if (LowerCase(Left(header, 2)) == "dk") Disk.ImageBytes.insert(0, header);
    ReadDisk();
    Disk.ImageHeader = header;
}

}  // namespace brindlemoor
