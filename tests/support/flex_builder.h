#pragma once

#include <string>
#include <vector>

namespace brindlemoor::test {

/// A sector of a FLEX disk as its links name it.
struct FlexPlace {
    int Track = 0;
    int Sector = 0;  ///< from 1; track 0 sector 0 is no sector: the end of a chain
};

/// Builds a FLEX disk byte by byte: sectors of 256 bytes that begin with a link of two bytes and a
/// number of two bytes, the System Information Record in track 0 sector 3, and the directory from
/// track 0 sector 5 on, ten slots of 24 bytes behind the first 16 bytes of each sector.
class FlexBuilder {
  public:
    /// A formatted disk whose directory takes the sectors 5 to the last of track 0, at most 10.
    /// The label is "TEST", with the number 1. There is no chain of free sectors.
    explicit FlexBuilder(int tracks = 35, int sectorsPerTrack = 18);

    /// Sets byte `offset` (from 0) of the image.
    FlexBuilder& Byte(int offset, int value);

    /// Byte `offset` of the information record.
    FlexBuilder& Record(int offset, int value);

    /// The label's first 10 bytes, and the byte behind them, which is shown as a number.
    FlexBuilder& Label(const std::string& label, int number);

    /// Byte `offset` of directory slot `slot`.
    FlexBuilder& SlotByte(int slot, int offset, int value);

    /// A directory slot without a date.
    FlexBuilder& Slot(int slot, const std::string& name, const std::string& ext, FlexPlace first,
                      FlexPlace last, int sectors);

    /// The link of a sector.
    FlexBuilder& Link(FlexPlace place, FlexPlace next);

    /// Writes bytes into a sector from byte `from` on.
    FlexBuilder& Data(FlexPlace place, int from, const std::string& bytes);

    /// One call for a whole file: slot, links, and 252 bytes of `bytes` in each sector from byte 4
    /// on. `places` are the file's sectors in order.
    FlexBuilder& File(int slot, const std::string& name, const std::string& ext,
                      const std::vector<FlexPlace>& places, const std::string& bytes);

    const std::string& Image() const { return image_; }

  private:
    int Offset(FlexPlace place) const;

    std::string image_;
    int sectorsPerTrack_;
};

/// What of `bytes`, put on a disk by `File`, our reading of the chain gives: all bytes but the
/// first 12 of the last sector, which is filled up with zero bytes.
std::string FlexReading(const std::string& bytes);

}  // namespace brindlemoor::test
