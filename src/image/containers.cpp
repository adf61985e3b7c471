#include "image/containers.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

constexpr int kShortestDkHeader = 12;
constexpr int kDkNameOffset = 12;
constexpr int kJvcSectorsPerTrack = 18;

constexpr int kDmkHeaderBytes = 16;
constexpr int kDmkTracks = 35;
constexpr int kDmkTrackBytes = 6400;
constexpr int kDmkFirstData = 216;
constexpr int kDmkSlotBytes = 338;
constexpr int kDmkGapOffset = 144;
constexpr int kDmkGapBytes = 32;
constexpr char kDmkGapByte = 'N';
constexpr std::array<int, 18> kDmkSkew = {0, 7, 14, 3,  10, 17, 6, 4,  1,
                                          8, 9, 5,  11, 12, 13, 2, 15, 16};

/// The first `length` bytes of the image become its header.
void CutHeader(int length) {
    Disk.ImageHeader = Left(Disk.ImageBytes, length);
    Disk.ImageBytes.erase(0, Disk.ImageHeader.size());
}

/// Returns the length of the "dk" header, 0 when there is none. The fields behind the length are
/// read from the image that is left, not from the header: that is this container's rule here.
int RemoveDkHeader() {
    if (LowerCase(Left(Disk.ImageBytes, 2)) != "dk") return 0;
    // Two bytes, lowest first, make a signed number: 32,768 and more count as too short.
    int length = WholeNumber16(BytesToNumber(CutBytes(Disk.ImageBytes, 2, 2), ""));
    if (length < kShortestDkHeader) length = kShortestDkHeader;
    CutHeader(length);
    const int tracks = ByteOr(Disk.ImageBytes, 7, 0);
    const bool knownTracks = tracks == 35 || tracks == 40 || tracks == 80;
    Disk.TrackCount = static_cast<std::int16_t>(knownTracks ? tracks : 35);
    const int sides = ByteOr(Disk.ImageBytes, 8, 0);
    Disk.SideCount = static_cast<std::int16_t>(sides == 1 || sides == 2 ? sides : 1);
    const int nameLength = ByteOr(Disk.ImageBytes, 11, 0) / 8;
    Disk.DiskName = CutBytes(Disk.ImageHeader, kDkNameOffset, nameLength);
    return length;
}

/// The tracks of a JVC image of `size` bytes. A header length is all that is known as a size.
std::int16_t JvcTracks(int size, int headerLength, int sizeCode, bool attributes) {
    const double sectorBytes = std::ldexp(128.0, sizeCode) * Disk.SectorsPerTrack;
    const double divisor = attributes ? sectorBytes + 1 : sectorBytes;
    if (divisor == 0 || Disk.SideCount == 0) Fail(kDivisionByZero);
    return WholeNumber16((size - headerLength) / divisor / Disk.SideCount);
}

void RemoveHeaderByExtension(int dkLength, int firstByte) {
    const std::string ending = Right(Disk.DiskName, 4);
    if (ending != ".JV3" && ending != ".JV1" && ending != ".JVC") return;
    if (firstByte != kJvcSectorsPerTrack) return;
    const int length = dkLength % 256;
    int sizeCode = 0;
    bool attributes = false;
    if (length > 4) {
        Disk.SectorsPerTrack = static_cast<std::int16_t>(ByteOr(Disk.ImageBytes, 0, 0));
        Disk.SideCount = static_cast<std::int16_t>(ByteOr(Disk.ImageBytes, 1, 0));
        sizeCode = ByteOr(Disk.ImageBytes, 2, 0);
        attributes = ByteOr(Disk.ImageBytes, 4, 0) != 0;
    }
    if (sizeCode != 1) {
        Platform.ShowMessage("Solo se aceptan Sectores de 256 bytes", Disk.AppTitle, Buttons::Ok,
                             MessageIcon::Exclamation);
    }
    Disk.TrackCount = JvcTracks(dkLength, length, sizeCode, attributes);
    CutHeader(length);
}

bool HasDmkGap(const std::string& image) {
    return CutBytes(image, kDmkGapOffset, kDmkGapBytes) == std::string(kDmkGapBytes, kDmkGapByte);
}

/// A DMK file becomes plain sectors: always 35 tracks of 18.
void FlattenDmk(int firstByte) {
    if (!HasDmkGap(Disk.ImageBytes) || firstByte != 0) return;
    CutHeader(kDmkHeaderBytes);
    Disk.TrackCount = static_cast<std::int16_t>(ByteOr(Disk.ImageHeader, 1, 0));
    std::string sectors;
    sectors.reserve(static_cast<std::size_t>(kDmkTracks) * kDmkSkew.size() * kSectorSize);
    for (int track = 0; track < kDmkTracks; ++track) {
        for (const int slot : kDmkSkew) {
            const int offset = kDmkTrackBytes * track + kDmkFirstData + kDmkSlotBytes * slot;
            sectors += CutBytes(Disk.ImageBytes, offset, kSectorSize);
        }
    }
    Disk.ImageBytes = std::move(sectors);
}

}  // namespace

void RemoveContainer() {
    const int dkLength = RemoveDkHeader();
    const int firstByte = ByteOr(Disk.ImageBytes, 0, -1);
    RemoveHeaderByExtension(dkLength, firstByte);
    FlattenDmk(firstByte);
}

bool IsDmkFile(const std::string& file) {
    return HasDmkGap(file) && ByteOr(file, 0, -1) == 0;
}

}  // namespace brindlemoor
