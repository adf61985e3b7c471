#include "filesystems/free_space.h"

#include <cmath>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/screen.h"
#include "filesystems/decb.h"

namespace brindlemoor {

namespace {

/// Added before a number of units is cut to its whole part.
constexpr double kNearlyOne = 0.999999999999999;

constexpr int kTooLargeMessage = 18;
const char* const kGroupedBytes = "######,###";

void ShowTooLarge(const std::string& text) {
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::Critical);
}

std::string Grouped(std::int64_t bytes) {
    return PadFormat(static_cast<double>(bytes), kGroupedBytes);
}

bool FitsOnFlex(const SpaceNeed& need) {
    if (need.FileSize <= need.FreeSectors * kSectorSize) return true;
    ShowTooLarge(MessageText(kTooLargeMessage) + "\r\n" + DecimalText(need.FreeSectors) +
                 " Sect. * 256 Bytes = " +
                 DecimalText(need.FreeSectors * kDecbGranuleSectors * kSectorSize) +
                 MessageText(15) + "\r\n" + MessageText(20) + DecimalText(need.FileSize));
    return false;
}

}  // namespace

SpaceNeed SpaceNeedOf(std::int64_t fileSize, std::int64_t oldSectors) {
    SpaceNeed need;
    need.FileSize = fileSize;
    need.Unit = Disk.DiskFamily == kDecb ? kDecbGranuleBytes : kSectorSize;
    const double units =
        static_cast<double>(fileSize - oldSectors) / static_cast<double>(need.Unit) + kNearlyOne;
    need.Needed = need.Unit * static_cast<std::int64_t>(std::trunc(units));
    need.FreeSectors = std::int64_t{Disk.TotalUnits} - Disk.UsedSectors;
    return need;
}

bool FitsOnDisk(const SpaceNeed& need, const DiskFileName& name) {
    if (Disk.DiskFamily == kFlex) return FitsOnFlex(need);
    const std::int64_t freeBytes = need.FreeSectors * kSectorSize;
    if (need.Needed <= freeBytes) return true;
    const auto sectorsNeeded = static_cast<std::int64_t>(
        std::trunc(1 + static_cast<double>(need.FileSize - 1) / kSectorSize));
    ShowTooLarge(FillMessage(
        MessageText(kTooLargeMessage),
        {name.Text, Screen.PathDskText(), Grouped(need.FileSize), DecimalText(need.Needed),
         DecimalText(need.Needed / kSectorSize), Grouped(freeBytes), DecimalText(need.FreeSectors),
         Grouped(need.FileSize - freeBytes), DecimalText(sectorsNeeded - need.FreeSectors)}));
    return false;
}

}  // namespace brindlemoor
