#include "filesystems/dragon_bitmap.h"

#include "core/bitmap.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr int kBitmapSectorBytes = 180;
constexpr int kComparedTrackBytes = 4608;  // 18 sectors, also where a track has more
constexpr int kSystemTrackSectors = 18;    // marked as used, also where a track has more
constexpr int kShownSectorsPerTrack = 18;  // of the list of differences, on every disk
constexpr std::size_t kLongestList = 925;  // characters

std::string BitmapOfTrack(int track) {
    const std::int64_t sector = static_cast<std::int64_t>(Disk.SectorsPerTrack) * track;
    return SectorBytes(sector, kBitmapSectorBytes) + SectorBytes(sector + 1, kBitmapSectorBytes);
}

std::string SystemTrack(int track) {
    return SectorBytes(static_cast<std::int64_t>(Disk.SectorsPerTrack) * track,
                       kComparedTrackBytes);
}

/// The sectors of one byte of the bitmap, as track and sector and as sector indices.
std::string ByteLine(int firstSector, int stored, int computed) {
    const int last = firstSector + 7;
    constexpr int kPerTrack = kShownSectorsPerTrack;
    return "\r\n" + PadFormat(firstSector / kPerTrack, "00") + ":" +
           PadFormat(firstSector % kPerTrack + 1, "00") + " - " +
           PadFormat(last / kPerTrack, "00") + "/" + PadFormat(last % kPerTrack + 1, "00") + " [" +
           PadFormat(firstSector, "000") + "-" + PadFormat(last, "000") + "] -> " +
           ByteToBits(stored) + "<>" + ByteToBits(computed);
}

std::string DifferenceList() {
    std::string list;
    // Lines behind the cut need not be made.
    for (int place = 0; place < kDragonBitmapBytes && list.size() < kLongestList; ++place) {
        const int stored = ByteOr(Disk.FatBytes, place, -1);
        const int computed = ByteAt(Disk.FatComputed, place);
        if (stored < 0 || stored == computed) continue;
        list += ByteLine(place * 8, stored, computed);
    }
    return Left(list, static_cast<std::int64_t>(kLongestList));
}

}  // namespace

void MarkDragonSectors(std::string& bitmap, int sector, int count) {
    int start = sector + 1;
    int end = -1;
    std::string mode = "R";
    BitmapOp(bitmap, start, end, mode, count);
}

void ReadDragonBitmap() {
    Disk.FatBytes = BitmapOfTrack(kDragonDirectoryTrack);
    if (Disk.FatBytes != BitmapOfTrack(kDragonCopyTrack)) {
        ShowDiskMessage("ERROR en los FATs, Diferencias entre el TRACK 16 y el 20");
    }
    if (SystemTrack(kDragonDirectoryTrack) != SystemTrack(kDragonCopyTrack)) {
        ShowDiskMessage("ERROR, Diferencias entre el TRACK 16 y el 20");
    }
    Disk.FatComputed.assign(kDragonBitmapBytes, '\xFF');
    for (const int track : {kDragonCopyTrack, kDragonDirectoryTrack}) {
        MarkDragonSectors(Disk.FatComputed, Disk.SectorsPerTrack * track, kSystemTrackSectors);
    }
}

void PutDragonBitmap(std::int64_t firstSector) {
    PutImageBytes(firstSector * kSectorSize, CutBytes(Disk.FatBytes, 0, kBitmapSectorBytes));
    PutImageBytes((firstSector + 1) * kSectorSize,
                  CutBytes(Disk.FatBytes, kBitmapSectorBytes, kBitmapSectorBytes));
}

void SyncDragonBitmap(bool write) {
    if (Disk.DiskFamily != kDragon) return;
    if (!write) {
        Disk.FatBytes = BitmapOfTrack(kDragonDirectoryTrack);
        return;
    }
    for (const int track : {kDragonDirectoryTrack, kDragonCopyTrack}) {
        PutDragonBitmap(static_cast<std::int64_t>(Disk.SectorsPerTrack) * track);
    }
}

void CompareDragonBitmap() {
    if (Disk.FatComputed == Disk.FatBytes) return;
    const Answer answer = Platform.ShowMessage(
        "Bit=0->(Used) Bit=1->(Free)\r\n\r\n"
        "Tr/Se - Tr/Sec  [Sectors]        Actual    <>   Correct" +
            DifferenceList() + "\r\n\r\nEDITAR?",
        "Error!!!... En FAT en los sectores siguientes:", Buttons::YesNo, MessageIcon::Exclamation);
    if (answer == Answer::Yes) Screen.EditFat();
}

}  // namespace brindlemoor
