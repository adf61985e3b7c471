#include "support/dragon_fixture.h"

#include "core/disk_state.h"
#include "filesystems/dragon.h"

namespace brindlemoor::test {

void DragonTest::SetUp() {
    DiskTest::SetUp();
    Disk.Messages.resize(40);
    Disk.Messages[32] = "Error in disk format,";
    Disk.Messages[33] = "tracks";
    Disk.Messages[34] = "sectors";
}

bool DragonTest::ReadAsDragon(const std::string& image) {
    ResetDisk();
    Disk.DiskFamily = kDragon;
    Disk.ImageBytes = image;
    return ReadDragonDisk();
}

bool Free(int sector) {
    const auto byte =
        static_cast<unsigned char>(Disk.FatComputed.at(static_cast<std::size_t>(sector) / 8));
    return (byte >> sector % 8 & 1) != 0;
}

std::string Bytes(const std::vector<int>& values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

}  // namespace brindlemoor::test
