#include "support/flex_builder.h"

#include <algorithm>

namespace brindlemoor::test {

namespace {

constexpr int kSector = 256;
constexpr int kRecord = 2 * kSector;
constexpr int kDirectory = 4 * kSector;
constexpr int kSlots = 16;  ///< offset of the slots in a directory sector
constexpr int kSlot = 24;
constexpr int kSlotsPerSector = 10;
constexpr int kData = 4;
constexpr std::size_t kDataBytes = 252;

}  // namespace

FlexBuilder::FlexBuilder(int tracks, int sectorsPerTrack)
    : image_(static_cast<std::size_t>(tracks) * static_cast<std::size_t>(sectorsPerTrack) * kSector,
             '\0'),
      sectorsPerTrack_(sectorsPerTrack) {
    Label("TEST", 1).Record(38, tracks - 1).Record(39, sectorsPerTrack);
    const int last = std::min(sectorsPerTrack, 14);
    for (int sector = 5; sector < last; ++sector) Link({0, sector}, {0, sector + 1});
}

FlexBuilder& FlexBuilder::Byte(int offset, int value) {
    image_.at(static_cast<std::size_t>(offset)) = static_cast<char>(value);
    return *this;
}

FlexBuilder& FlexBuilder::Record(int offset, int value) {
    return Byte(kRecord + offset, value);
}

FlexBuilder& FlexBuilder::Label(const std::string& label, int number) {
    std::string name = label;
    name.resize(10, '\0');
    image_.replace(kRecord + 16, 10, name);
    return Record(26, number);
}

FlexBuilder& FlexBuilder::SlotByte(int slot, int offset, int value) {
    return Byte(kDirectory + slot / kSlotsPerSector * kSector + kSlots +
                    slot % kSlotsPerSector * kSlot + offset,
                value);
}

FlexBuilder& FlexBuilder::Slot(int slot, const std::string& name, const std::string& ext,
                               FlexPlace first, FlexPlace last, int sectors) {
    std::string bytes = name;
    bytes.resize(8, '\0');
    bytes += ext;
    bytes.resize(kSlot, '\0');
    for (int offset = 0; offset < kSlot; ++offset) {
        SlotByte(slot, offset, bytes[static_cast<std::size_t>(offset)]);
    }
    SlotByte(slot, 13, first.Track).SlotByte(slot, 14, first.Sector);
    SlotByte(slot, 15, last.Track).SlotByte(slot, 16, last.Sector);
    return SlotByte(slot, 17, sectors >> 8).SlotByte(slot, 18, sectors);
}

int FlexBuilder::Offset(FlexPlace place) const {
    return (place.Track * sectorsPerTrack_ + place.Sector - 1) * kSector;
}

FlexBuilder& FlexBuilder::Link(FlexPlace place, FlexPlace next) {
    return Byte(Offset(place), next.Track).Byte(Offset(place) + 1, next.Sector);
}

FlexBuilder& FlexBuilder::Data(FlexPlace place, int from, const std::string& bytes) {
    image_.replace(static_cast<std::size_t>(Offset(place) + from), bytes.size(), bytes);
    return *this;
}

FlexBuilder& FlexBuilder::File(int slot, const std::string& name, const std::string& ext,
                               const std::vector<FlexPlace>& places, const std::string& bytes) {
    for (std::size_t place = 0; place < places.size(); ++place) {
        Data(places[place], kData, bytes.substr(place * kDataBytes, kDataBytes));
        const bool last = place + 1 == places.size();
        Link(places[place], last ? FlexPlace{} : places[place + 1]);
        const auto number = static_cast<int>(place) + 1;
        Byte(Offset(places[place]) + 2, number >> 8).Byte(Offset(places[place]) + 3, number);
    }
    return Slot(slot, name, ext, places.front(), places.back(), static_cast<int>(places.size()));
}

std::string FlexReading(const std::string& bytes) {
    const std::size_t sectors = (bytes.size() + kDataBytes - 1) / kDataBytes;
    std::string whole = bytes;
    whole.resize(sectors * kDataBytes, '\0');
    return whole.erase((sectors - 1) * kDataBytes, 12);
}

}  // namespace brindlemoor::test
