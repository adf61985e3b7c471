#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace brindlemoor::test {

/// A segment of a file: its first logical sector (LSN, from 0) and its number of sectors.
struct Os9Segment {
    int Start = 0;
    int Sectors = 0;
};

/// What stands in a file descriptor.
struct Os9Descriptor {
    int Attributes = 0x1B;                    ///< FD.ATT; bit 7: a directory
    int Owner = 0;                            ///< FD.OWN
    std::string Modified = "\x56\5\4\14\36";  ///< FD.DAT: 4 May 1986, 12:30
    int Links = 1;                            ///< FD.LNK
    std::int64_t Size = 0;                    ///< FD.SIZ, its low 32 bits
    std::string Created = "\x55\4\3";         ///< FD.DCR: 3 April 1985
    std::vector<Os9Segment> Segments;         ///< FD.SEG
};

/// Names with the LSN of their file descriptors.
using Os9Names = std::vector<std::pair<std::string, int>>;

/// Builds an OS-9 disk byte by byte: LSN 0, the allocation map from LSN 1 on, file descriptors and
/// directories of 32-byte entries; numbers high byte first.
class Os9Builder {
  public:
    /// A disk of `sectors` sectors whose root directory, empty but for "." and "..", has its
    /// descriptor behind the map and its entries in the sector behind that.
    explicit Os9Builder(int sectors = 630, int sectorsPerTrack = 18);

    /// LSN of the root directory's descriptor.
    int Root() const { return root_; }

    /// Sets the byte at `offset` (from 0) of the image.
    Os9Builder& Byte(int offset, int value);

    /// Writes `value` in `width` bytes at `offset`.
    Os9Builder& Number(int offset, int width, std::int64_t value);

    /// Writes `bytes` at `offset`.
    Os9Builder& Put(int offset, const std::string& bytes);

    /// DD.NAM, its last character with bit 7 set.
    Os9Builder& DiskName(const std::string& name);

    /// Writes a file descriptor at `lsn`.
    Os9Builder& Descriptor(int lsn, const Os9Descriptor& fields);

    /// A whole file: descriptor at `lsn`, `bytes` in one segment behind it.
    Os9Builder& File(int lsn, const std::string& bytes);

    /// A whole directory: descriptor at `lsn`, behind it the entries ".", ".." and `names`.
    Os9Builder& Directory(int lsn, int parent, const Os9Names& names);

    /// The root directory with these names.
    Os9Builder& RootNames(const Os9Names& names) { return Directory(root_, root_, names); }

    const std::string& Image() const { return image_; }

  private:
    /// Sets the map's bits of `count` sectors from `lsn` on: they are in use.
    void Mark(int lsn, int count);

    std::string image_;
    int root_ = 0;
};

/// A name as directories and LSN 0 hold it: its last character has bit 7 set.
std::string Os9Name(const std::string& name);

/// A directory entry of 32 bytes; `name` as it is to stand there, filled up with zero bytes.
std::string Os9Entry(const std::string& name, int lsn);

}  // namespace brindlemoor::test
