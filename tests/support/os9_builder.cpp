#include "support/os9_builder.h"

#include <stdexcept>

namespace brindlemoor::test {

namespace {

constexpr int kSector = 256;
constexpr int kDirectoryAttributes = 0xBF;

std::string BigEndianBytes(std::int64_t value, int width) {
    std::string bytes;
    for (int byte = width - 1; byte >= 0; --byte) bytes += static_cast<char>(value >> (8 * byte));
    return bytes;
}

int SectorsFor(std::size_t bytes) {
    return static_cast<int>((bytes + kSector - 1) / kSector);
}

}  // namespace

std::string Os9Name(const std::string& name) {
    std::string marked = name;
    marked.back() = static_cast<char>(marked.back() | 0x80);
    return marked;
}

std::string Os9Entry(const std::string& name, int lsn) {
    std::string entry = name;
    entry.resize(29, '\0');
    return entry + BigEndianBytes(lsn, 3);
}

Os9Builder::Os9Builder(int sectors, int sectorsPerTrack)
    : image_(static_cast<std::size_t>(sectors) * kSector, '\0') {
    const int mapBytes = (sectors + 7) / 8;
    root_ = 1 + SectorsFor(static_cast<std::size_t>(mapBytes));
    Number(0, 3, sectors).Number(3, 1, sectorsPerTrack).Number(4, 2, mapBytes);
    Number(6, 2, 1).Number(8, 3, root_).Number(13, 1, 0xFF).Number(17, 2, sectorsPerTrack);
    Mark(0, root_);
    RootNames({});
}

Os9Builder& Os9Builder::Byte(int offset, int value) {
    image_.at(static_cast<std::size_t>(offset)) = static_cast<char>(value);
    return *this;
}

Os9Builder& Os9Builder::Number(int offset, int width, std::int64_t value) {
    return Put(offset, BigEndianBytes(value, width));
}

Os9Builder& Os9Builder::Put(int offset, const std::string& bytes) {
    const auto start = static_cast<std::size_t>(offset);
    if (start + bytes.size() > image_.size()) throw std::out_of_range("behind the disk's end");
    image_.replace(start, bytes.size(), bytes);
    return *this;
}

Os9Builder& Os9Builder::DiskName(const std::string& name) {
    return Put(31, Os9Name(name));
}

Os9Builder& Os9Builder::Descriptor(int lsn, const Os9Descriptor& fields) {
    std::string sector = BigEndianBytes(fields.Attributes, 1) + BigEndianBytes(fields.Owner, 2) +
                         fields.Modified + BigEndianBytes(fields.Links, 1) +
                         BigEndianBytes(fields.Size, 4) + fields.Created;
    for (const Os9Segment& segment : fields.Segments) {
        sector += BigEndianBytes(segment.Start, 3) + BigEndianBytes(segment.Sectors, 2);
    }
    sector.resize(kSector, '\0');
    return Put(lsn * kSector, sector);
}

Os9Builder& Os9Builder::File(int lsn, const std::string& bytes) {
    Os9Descriptor fields;
    fields.Size = static_cast<std::int64_t>(bytes.size());
    const int sectors = SectorsFor(bytes.size());
    if (sectors > 0) fields.Segments = {{lsn + 1, sectors}};
    Mark(lsn, 1 + sectors);
    return Descriptor(lsn, fields).Put((lsn + 1) * kSector, bytes);
}

Os9Builder& Os9Builder::Directory(int lsn, int parent, const Os9Names& names) {
    std::string entries = Os9Entry(Os9Name(".."), parent) + Os9Entry(Os9Name("."), lsn);
    for (const auto& [name, descriptor] : names) entries += Os9Entry(Os9Name(name), descriptor);
    File(lsn, entries);
    return Byte(lsn * kSector, kDirectoryAttributes);
}

void Os9Builder::Mark(int lsn, int count) {
    for (int sector = lsn; sector < lsn + count; ++sector) {
        char& byte = image_.at(static_cast<std::size_t>(kSector + sector / 8));
        byte = static_cast<char>(byte | 0x80 >> sector % 8);
    }
}

}  // namespace brindlemoor::test
