#pragma once

#include <string>
#include <vector>

namespace brindlemoor::test {

/// A run of sectors of a Dragon DOS file.
struct Extent {
    int Sector = 0;  ///< first sector, counted from 0 over the whole disk; may be negative
    int Count = 0;   ///< sectors, 0 to 255
};

/// Builds a Dragon DOS disk byte by byte: sectors of 256 bytes, the bitmap in the first two sectors
/// of track 20, the geometry block at the end of sector 360, the directory in the sectors 362 to
/// 377, entries of 25 bytes, and a copy of track 20 on track 16.
///
/// The geometry block and the directory stay where they are on a disk of more than 18 sectors a
/// track. What a routine writes on track 20 goes to its copy as well, unless it says otherwise.
class DragonBuilder {
  public:
    /// A formatted disk: every sector is free but those of the tracks 16 and 20, and every entry
    /// is the unused one, flag byte 137.
    explicit DragonBuilder(int tracks = 40, int sectorsPerTrack = 18);

    /// Sets byte `offset` (from 0) of the image, and nothing in the copy of track 20.
    DragonBuilder& Byte(int offset, int value);

    /// The geometry block: tracks, sectors per track, and their check bytes.
    DragonBuilder& Geometry(int tracks, int sectors, int tracksCheck, int sectorsCheck);

    /// A file's own entry, with up to four extents.
    DragonBuilder& Entry(int index, int flags, const std::string& name8, const std::string& ext3,
                         const std::vector<Extent>& extents, int lastByte);

    /// A continuation entry, with up to seven extents in the 21 bytes from offset 1 on.
    DragonBuilder& Continuation(int index, int flags, const std::vector<Extent>& extents,
                                int lastByte);

    /// Byte `offset` of an entry.
    DragonBuilder& EntryByte(int index, int offset, int value);

    /// Byte `place` (0 to 359) of the bitmap.
    DragonBuilder& BitmapByte(int place, int value);

    /// Marks sectors as used in the bitmap.
    DragonBuilder& Use(int sector, int count);

    /// Writes bytes from the start of a sector on.
    DragonBuilder& Sectors(int sector, const std::string& bytes);

    /// One call for a whole file of up to four extents: entry, bitmap and bytes. The last byte of
    /// the entry follows from the length of `bytes`, which fills the extents but for the end of
    /// the last sector.
    DragonBuilder& File(int index, const std::string& name8, const std::string& ext3,
                        const std::vector<Extent>& extents, const std::string& bytes);

    const std::string& Image() const { return image_; }

  private:
    DragonBuilder& SystemByte(int offset, int value);

    std::string image_;
    int sectorsPerTrack_;
};

}  // namespace brindlemoor::test
