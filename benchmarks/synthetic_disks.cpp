#include "synthetic_disks.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>
#include <vector>

namespace brindlemoor::benchmarks {

namespace {

constexpr int kSector = 256;

/// A disk in the making: all bytes of the data area differ, so that no copy is cheaper than
/// another.
class Image {
  public:
    explicit Image(std::size_t bytes) : bytes_(bytes, '\0') {
        std::uint32_t state = 1;
        for (char& byte : bytes_) {
            state = state * 1664525U + 1013904223U;
            byte = static_cast<char>(state >> 24);
        }
    }

    void Put(int offset, const std::string& bytes) {
        bytes_.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
    }
    void Byte(int offset, int value) {
        bytes_.at(static_cast<std::size_t>(offset)) = static_cast<char>(value);
    }
    void Fill(int offset, int count, int value) {
        Put(offset, std::string(static_cast<std::size_t>(count), static_cast<char>(value)));
    }
    void Copy(int from, int to, int count) {
        Put(to, bytes_.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count)));
    }
    void ClearBit(int offset, int bit) {
        char& byte =
            bytes_.at(static_cast<std::size_t>(offset) + static_cast<std::size_t>(bit / 8));
        byte = static_cast<char>(byte & ~(1 << bit % 8));
    }

    std::string Take() { return std::move(bytes_); }

  private:
    std::string bytes_;
};

/// `value` in `width` bytes, high byte first.
std::string Number(int value, int width) {
    std::string bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift);
    }
    return bytes;
}

constexpr int kOs9Bytes = 44533120;
constexpr int kOs9Sectors = kOs9Bytes / kSector;
constexpr int kOs9SectorsPerTrack = 18;
constexpr int kOs9MapBytes = (kOs9Sectors + 7) / 8;
constexpr int kOs9Root = 1 + (kOs9MapBytes + kSector - 1) / kSector;
constexpr int kOs9Directories = 4;  // in the root, and in each of these
constexpr int kOs9Files = 80;       // in each directory
constexpr int kOs9LargestFile = 55000;
constexpr int kOs9Entry = 32;

/// Lays files and directories one behind the other.
class Os9Writer {
  public:
    std::string Build() {
        image_.Fill(0, kSector, 0);
        image_.Put(0, Number(kOs9Sectors, 3) + Number(kOs9SectorsPerTrack, 1) +
                          Number(kOs9MapBytes, 2) + Number(1, 2) + Number(kOs9Root, 3));
        image_.Put(17, Number(kOs9SectorsPerTrack, 2));
        image_.Fill(kSector, kOs9MapBytes, 0xFF);
        std::vector<int> entries;
        entries.reserve(kOs9Directories);
        const int root = TakeDirectory(kOs9Directories);
        for (int top = 0; top < kOs9Directories; ++top) {
            entries.push_back(AddDirectory(root, kOs9Directories));
        }
        EndDirectory(root, root, entries);
        if (next_ > kOs9Sectors) throw std::logic_error("the files are larger than the disk");
        return image_.Take();
    }

  private:
    /// Takes the sectors of a directory of `count` entries, and returns the LSN of its descriptor.
    int TakeDirectory(int count) {
        const int lsn = next_;
        next_ += 1 + ((count + 2) * kOs9Entry + kSector - 1) / kSector;
        return lsn;
    }

    int AddDirectory(int parent, int directories) {
        const int lsn = TakeDirectory(directories + kOs9Files);
        std::vector<int> entries;
        entries.reserve(kOs9Directories + kOs9Files);
        for (int i = 0; i < directories; ++i) entries.push_back(AddDirectory(lsn, 0));
        for (int i = 0; i < kOs9Files; ++i) entries.push_back(AddFile());
        EndDirectory(lsn, parent, entries);
        return lsn;
    }

    void EndDirectory(int lsn, int parent, const std::vector<int>& entries) {
        std::string bytes = Entry("..", parent) + Entry(".", lsn);
        for (const int entry : entries) bytes += Entry("f" + std::to_string(entry), entry);
        const auto size = static_cast<int>(bytes.size());
        const int sectors = (size + kSector - 1) / kSector;
        Descriptor(lsn, 0xBF, size, Number(lsn + 1, 3) + Number(sectors, 2));
        image_.Fill((lsn + 1) * kSector, sectors * kSector, 0);
        image_.Put((lsn + 1) * kSector, bytes);
    }

    /// Every second file has three segments, as on a disk that was in use for a while.
    int AddFile() {
        const int lsn = next_;
        size_ = (size_ + 20011) % kOs9LargestFile;
        const int size = size_ + 1;
        const int sectors = (size + kSector - 1) / kSector;
        const int first = lsn + 1;
        std::string segments = Number(first, 3) + Number(sectors, 2);
        if (lsn % 2 == 0 && sectors > 2) {
            const int half = sectors / 2;
            segments = Number(first, 3) + Number(half, 2) + Number(first + half, 3) + Number(1, 2) +
                       Number(first + half + 1, 3) + Number(sectors - half - 1, 2);
        }
        Descriptor(lsn, 0x1B, size, segments);
        next_ += 1 + sectors;
        return lsn;
    }

    void Descriptor(int lsn, int attributes, int size, const std::string& segments) {
        image_.Fill(lsn * kSector, kSector, 0);
        image_.Put(lsn * kSector, Number(attributes, 1) + Number(0, 2) + "\x5A\1\2\3\4\1" +
                                      Number(size, 4) + "\x5A\1\2" + segments);
    }

    static std::string Entry(std::string name, int lsn) {
        name.back() = static_cast<char>(name.back() | 0x80);
        name.resize(kOs9Entry - 3, '\0');
        return name + Number(lsn, 3);
    }

    Image image_{static_cast<std::size_t>(kOs9Bytes)};
    int next_ = kOs9Root;
    int size_ = 0;
};

constexpr int kFloppyBytes = 737280;
constexpr int kFloppyTracks = 80;
constexpr int kFloppySectors = 36;  // of a track, both sides

constexpr int kDragonFiles = 150;
constexpr int kDragonExtentSectors = 9;

constexpr int kDragonBitmap = 20 * kFloppySectors * kSector;

/// Whether a run of sectors touches the geometry block, the directory, or the tracks 16 and 20.
bool HitsDragonSystem(int sector, int count) {
    for (int i = sector; i < sector + count; ++i) {
        if ((i >= 360 && i < 378) || i / kFloppySectors == 16 || i / kFloppySectors == 20) {
            return true;
        }
    }
    return false;
}

/// Clears the bits of a run of sectors; 180 bytes of the bitmap are in each of its two sectors.
void UseDragonSectors(Image& image, int sector, int count) {
    for (int i = sector; i < sector + count; ++i) {
        image.ClearBit(kDragonBitmap + i / 1440 * kSector, i % 1440);
    }
}

}  // namespace

std::string Os9HardDisk() {
    return Os9Writer().Build();
}

std::string DragonDisk() {
    Image image(kFloppyBytes);
    image.Fill(0, kSector, 0);
    image.Fill(360 * kSector, 18 * kSector, 0);
    image.Put(360 * kSector + 252, Number(kFloppyTracks, 1) + Number(kFloppySectors, 1) +
                                       Number(255 - kFloppyTracks, 1) +
                                       Number(255 - kFloppySectors, 1));
    image.Fill(kDragonBitmap, 18 * kSector, 0xFF);
    UseDragonSectors(image, 16 * kFloppySectors, 18);
    UseDragonSectors(image, 20 * kFloppySectors, 18);
    int next = 1;
    for (int file = 0; file < kDragonFiles; ++file) {
        std::string entry(1, '\0');
        entry += "FILE" + std::to_string(1000 + file) + "DAT";
        for (int extent = 0; extent < 2; ++extent) {
            while (HitsDragonSystem(next, kDragonExtentSectors)) ++next;
            entry += Number(next, 2) + Number(kDragonExtentSectors, 1);
            UseDragonSectors(image, next, kDragonExtentSectors);
            next += kDragonExtentSectors;
        }
        entry.resize(25, '\0');
        image.Put((362 + file / 10) * kSector + file % 10 * 25, entry);
    }
    image.Byte((362 + kDragonFiles / 10) * kSector, 137);
    image.Copy(kDragonBitmap, 16 * kFloppySectors * kSector, 18 * kSector);
    return image.Take();
}

std::string FlexDisk() {
    constexpr int kFileSectors = 12;
    constexpr int kSlots = 10;  // of a directory sector
    Image image(kFloppyBytes);
    image.Fill(0, kFloppySectors * kSector, 0);
    image.Put(512 + 16, "BENCHMARK");
    image.Put(512 + 35, "\1\2\x5A" + Number(kFloppyTracks - 1, 1) + Number(kFloppySectors, 1));
    for (int sector = 5; sector < kFloppySectors; ++sector) {
        image.Put((sector - 1) * kSector, Number(0, 1) + Number(sector + 1, 1));
    }
    const int files = (kFloppyTracks - 1) * kFloppySectors / kFileSectors;
    for (int file = 0; file < files; ++file) {
        const int track = 1 + file / 3;
        const int first = 1 + file % 3 * kFileSectors;
        const int last = first + kFileSectors - 1;
        const std::string slot = "FILE" + std::to_string(1000 + file) + "BIN" + Number(0, 2) +
                                 Number(track, 1) + Number(first, 1) + Number(track, 1) +
                                 Number(last, 1) + Number(kFileSectors, 2) + Number(0, 1) +
                                 "\1\2\x5A";
        image.Put((4 + file / kSlots) * kSector + 16 + file % kSlots * 24, slot);
        for (int sector = first; sector <= last; ++sector) {
            const int offset = (track * kFloppySectors + sector - 1) * kSector;
            const bool end = sector == last;
            image.Put(offset, Number(end ? 0 : track, 1) + Number(end ? 0 : sector + 1, 1) +
                                  Number(sector - first + 1, 2));
        }
    }
    return image.Take();
}

}  // namespace brindlemoor::benchmarks
