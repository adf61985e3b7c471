#include "support/dragon_builder.h"

#include <algorithm>

namespace brindlemoor::test {

namespace {

constexpr int kSector = 256;
constexpr int kGeometry = 360 * kSector + 252;
constexpr int kDirectory = 362 * kSector;
constexpr int kEntries = 160;
constexpr int kEntriesPerSector = 10;
constexpr int kEntry = 25;
constexpr int kUnused = 137;
constexpr int kBitmapBytes = 360;
constexpr int kCopiedBytes = 18 * kSector;

int EntryOffset(int index) {
    return kDirectory + index / kEntriesPerSector * kSector + index % kEntriesPerSector * kEntry;
}

}  // namespace

DragonBuilder::DragonBuilder(int tracks, int sectorsPerTrack)
    : image_(static_cast<std::size_t>(tracks) * static_cast<std::size_t>(sectorsPerTrack) * kSector,
             '\0'),
      sectorsPerTrack_(sectorsPerTrack) {
    Geometry(tracks, sectorsPerTrack, 255 - tracks, 255 - sectorsPerTrack);
    for (int place = 0; place < kBitmapBytes; ++place) BitmapByte(place, 255);
    Use(sectorsPerTrack * 16, 18).Use(sectorsPerTrack * 20, 18);
    for (int index = 0; index < kEntries; ++index) EntryByte(index, 0, kUnused);
}

DragonBuilder& DragonBuilder::Byte(int offset, int value) {
    image_.at(static_cast<std::size_t>(offset)) = static_cast<char>(value);
    return *this;
}

/// A byte that is on track 20 stands on track 16 too.
DragonBuilder& DragonBuilder::SystemByte(int offset, int value) {
    const int track20 = sectorsPerTrack_ * 20 * kSector;
    if (offset >= track20 && offset < track20 + kCopiedBytes) {
        Byte(offset - sectorsPerTrack_ * 4 * kSector, value);
    }
    return Byte(offset, value);
}

DragonBuilder& DragonBuilder::Geometry(int tracks, int sectors, int tracksCheck, int sectorsCheck) {
    SystemByte(kGeometry, tracks).SystemByte(kGeometry + 1, sectors);
    return SystemByte(kGeometry + 2, tracksCheck).SystemByte(kGeometry + 3, sectorsCheck);
}

DragonBuilder& DragonBuilder::EntryByte(int index, int offset, int value) {
    return SystemByte(EntryOffset(index) + offset, value);
}

DragonBuilder& DragonBuilder::Entry(int index, int flags, const std::string& name8,
                                    const std::string& ext3, const std::vector<Extent>& extents,
                                    int lastByte) {
    std::string names = name8;
    names.resize(8, '\0');
    names += ext3;
    names.resize(11, '\0');
    for (int offset = 0; offset < kEntry; ++offset) EntryByte(index, offset, 0);
    EntryByte(index, 0, flags).EntryByte(index, 24, lastByte);
    for (int place = 0; place < 11; ++place) {
        EntryByte(index, 1 + place, names[static_cast<std::size_t>(place)]);
    }
    int offset = 12;
    for (const Extent& extent : extents) {
        EntryByte(index, offset, extent.Sector >> 8).EntryByte(index, offset + 1, extent.Sector);
        EntryByte(index, offset + 2, extent.Count);
        offset += 3;
    }
    return *this;
}

DragonBuilder& DragonBuilder::Continuation(int index, int flags, const std::vector<Extent>& extents,
                                           int lastByte) {
    for (int offset = 0; offset < kEntry; ++offset) EntryByte(index, offset, 0);
    EntryByte(index, 0, flags).EntryByte(index, 24, lastByte);
    int offset = 1;
    for (const Extent& extent : extents) {
        EntryByte(index, offset, extent.Sector >> 8).EntryByte(index, offset + 1, extent.Sector);
        EntryByte(index, offset + 2, extent.Count);
        offset += 3;
    }
    return *this;
}

DragonBuilder& DragonBuilder::BitmapByte(int place, int value) {
    const int sector = sectorsPerTrack_ * 20 + place / 180;
    return SystemByte(sector * kSector + place % 180, value);
}

DragonBuilder& DragonBuilder::Use(int sector, int count) {
    for (int used = sector; used < sector + count; ++used) {
        const int offset = (sectorsPerTrack_ * 20 + used / 1440) * kSector + used % 1440 / 8;
        SystemByte(offset, image_.at(static_cast<std::size_t>(offset)) & ~(1 << used % 8));
    }
    return *this;
}

DragonBuilder& DragonBuilder::Sectors(int sector, const std::string& bytes) {
    image_.replace(static_cast<std::size_t>(sector) * kSector, bytes.size(), bytes);
    return *this;
}

DragonBuilder& DragonBuilder::File(int index, const std::string& name8, const std::string& ext3,
                                   const std::vector<Extent>& extents, const std::string& bytes) {
    std::size_t from = 0;
    for (const Extent& extent : extents) {
        const auto length = static_cast<std::size_t>(extent.Count) * kSector;
        Sectors(extent.Sector, bytes.substr(std::min(from, bytes.size()), length));
        Use(extent.Sector, extent.Count);
        from += length;
    }
    return Entry(index, 0, name8, ext3, extents, static_cast<int>(bytes.size() % kSector));
}

}  // namespace brindlemoor::test
