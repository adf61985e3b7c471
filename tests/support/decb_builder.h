#pragma once

#include <string>
#include <vector>

namespace brindlemoor::test {

/// Builds a Disk BASIC disk byte by byte: sectors of 256 bytes, 18 to a track, the FAT at track 17
/// sector 2, the directory at track 17 sector 3, slots of 32 bytes.
class DecbBuilder {
  public:
    /// A formatted disk of `tracks` tracks, filled with the byte 255 as a real one is in its FAT
    /// and directory, and with zero bytes elsewhere.
    explicit DecbBuilder(int tracks = 35);

    /// Sets byte `offset` (from 0) of the image.
    DecbBuilder& Byte(int offset, int value);

    /// Sets the FAT byte of a granule (from 0).
    DecbBuilder& Fat(int granule, int value);

    /// Writes directory slot `slot` (from 0).
    DecbBuilder& Slot(int slot, const std::string& name8, const std::string& ext3, int type,
                      int format, int firstGranule, int lastSectorBytes);

    /// Marks a slot as deleted: its first byte becomes 0.
    DecbBuilder& Delete(int slot);

    /// Fills `count` bytes of a granule from its byte `from` on.
    DecbBuilder& Fill(int granule, int from, int count, int value);

    /// Writes bytes at the start of a granule.
    DecbBuilder& Granule(int granule, const std::string& bytes);

    /// The disk's name in track 17 sector 17, with its zero byte.
    DecbBuilder& DiskName(const std::string& name);

    /// One call for a whole file: slot, chain in the FAT, bytes. The last granule's sectors and the
    /// bytes of the last sector follow from the length of `bytes`, which is not 0.
    DecbBuilder& File(int slot, const std::string& name8, const std::string& ext3, int type,
                      int format, const std::vector<int>& granules, const std::string& bytes);

    const std::string& Image() const { return image_; }

  private:
    std::string image_;
};

/// A disk of 35 tracks with the file "HELLO.BAS", whose contents are "bytes".
std::string OneFileDisk();

/// Bytes that are different at every place: a running pattern from `seed` on.
std::string Pattern(std::size_t length, unsigned seed);

}  // namespace brindlemoor::test
