#include "support/decb_builder.h"

namespace brindlemoor::test {

namespace {

constexpr int kFat = 78592;
constexpr int kDirectory = 78848;
constexpr int kName = 82432;

std::size_t GranuleOffset(int granule) {
    return static_cast<std::size_t>(granule > 33 ? granule + 2 : granule) * 2304;
}

}  // namespace

DecbBuilder::DecbBuilder(int tracks) : image_(static_cast<std::size_t>(tracks) * 18 * 256, '\0') {
    for (int offset = kFat; offset < kFat + 68; ++offset) Byte(offset, 255);
    for (int offset = kDirectory; offset < kDirectory + 68 * 32; ++offset) Byte(offset, 255);
}

DecbBuilder& DecbBuilder::Byte(int offset, int value) {
    image_.at(static_cast<std::size_t>(offset)) = static_cast<char>(value);
    return *this;
}

DecbBuilder& DecbBuilder::Fat(int granule, int value) {
    return Byte(kFat + granule, value);
}

DecbBuilder& DecbBuilder::Slot(int slot, const std::string& name8, const std::string& ext3,
                               int type, int format, int firstGranule, int lastSectorBytes) {
    const int offset = kDirectory + slot * 32;
    std::string bytes = name8;
    bytes.resize(8, ' ');
    std::string ext = ext3;
    ext.resize(3, ' ');
    bytes += ext;
    bytes += static_cast<char>(type);
    bytes += static_cast<char>(format);
    bytes += static_cast<char>(firstGranule);
    bytes += static_cast<char>(lastSectorBytes / 256);
    bytes += static_cast<char>(lastSectorBytes % 256);
    bytes.resize(32, '\0');
    image_.replace(static_cast<std::size_t>(offset), 32, bytes);
    return *this;
}

DecbBuilder& DecbBuilder::Delete(int slot) {
    return Byte(kDirectory + slot * 32, 0);
}

DecbBuilder& DecbBuilder::Fill(int granule, int from, int count, int value) {
    const auto start = GranuleOffset(granule) + static_cast<std::size_t>(from);
    const auto bytes = static_cast<std::size_t>(count);
    image_.replace(start, bytes, std::string(bytes, static_cast<char>(value)));
    return *this;
}

DecbBuilder& DecbBuilder::Granule(int granule, const std::string& bytes) {
    image_.replace(GranuleOffset(granule), bytes.size(), bytes);
    return *this;
}

DecbBuilder& DecbBuilder::DiskName(const std::string& name) {
    image_.replace(kName, name.size() + 1, name + '\0');
    return *this;
}

DecbBuilder& DecbBuilder::File(int slot, const std::string& name8, const std::string& ext3,
                               int type, int format, const std::vector<int>& granules,
                               const std::string& bytes) {
    for (std::size_t place = 0; place < granules.size(); ++place) {
        const std::size_t from = place * 2304;
        const std::string piece = bytes.substr(from, 2304);
        Granule(granules[place], piece);
        const bool last = place + 1 == granules.size();
        const auto sectors = static_cast<int>((piece.size() + 255) / 256);
        Fat(granules[place], last ? 192 + sectors : granules[place + 1]);
    }
    const auto lastSector = static_cast<int>(bytes.size() % 256);
    return Slot(slot, name8, ext3, type, format, granules.front(),
                lastSector == 0 ? 256 : lastSector);
}

std::string OneFileDisk() {
    return DecbBuilder().File(0, "HELLO", "BAS", 0, 0, {3}, "bytes").Image();
}

std::string Pattern(std::size_t length, unsigned seed) {
    std::string bytes(length, '\0');
    unsigned state = seed * 2654435761U + 12345;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

}  // namespace brindlemoor::test
