#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace brindlemoor::test {

/// Bytes of an image that decide how it is read.
struct ByteRange {
    std::size_t Offset = 0;
    std::size_t Length = 0;
};

/// Reads `image` as the open disk. It may be any bytes: a failure with a number of the program's
/// own is a good end, and so are rows whose sizes agree with their bytes. Anything else fails the
/// test.
void ReadHostile(const std::string& image);

/// Reads the image cut at every sector, and at an odd place behind each.
void ReadTruncated(const std::string& good);

/// Reads `rounds` copies of `good` with bytes changed at random, the same ones for the same
/// `seed`. Half of the changes hit the `ranges`, the others any byte; the damage piles up over 20
/// rounds.
void ReadSpoiled(const std::string& good, unsigned seed, int rounds,
                 const std::vector<ByteRange>& ranges);

}  // namespace brindlemoor::test
