#include "core/disk_state.h"

#include <algorithm>

#include "core/runtime_failure.h"

namespace brindlemoor {

DiskState Disk;
DirectoryTable DirTable;

DirEntry& DirectoryTable::operator[](std::int64_t row) {
    if (row < 0 || row >= static_cast<std::int64_t>(rows_.size())) Fail(kIndexRange);
    const auto index = static_cast<std::size_t>(row);
    touched_ = std::max(touched_, index + 1);
    return rows_[index];
}

void DirectoryTable::Wipe() {
    for (std::size_t row = 0; row < touched_; ++row) rows_[row] = DirEntry();
    touched_ = 0;
}

std::string MessageText(int number) {
    const auto index = static_cast<std::size_t>(number);
    return index < Disk.Messages.size() ? Disk.Messages[index] : std::string();
}

std::string FamilyName(int family) {
    switch (family) {
        case kDecb:
            return "CoCo";
        case kDragon:
            return "Dragon";
        case kOs9:
            return "OS9/NitrOS9";
        case kFlex:
            return "FLEX/UniFlex";
        default:
            return {};
    }
}

void ResetDisk() {
    Disk.DirCount = 0;
    Disk.DeletedCount = 0;
    Disk.ContinuationCount = 0;
    Disk.DiskFamily = kDecb;
    Disk.UsedSectors = 0;
    Disk.TotalSectors = 0;
    Disk.MaxDirEntries = 0;
    Disk.ImageModified = 0;
    Disk.DirRows = 0;
    Disk.SectorsPerTrack = 0;
    Disk.TrackCount = 0;
    Disk.ImageHeader.clear();
    Disk.DiskName.clear();
    Disk.DiskDate = 0;
    DirTable.Wipe();
}

}  // namespace brindlemoor
