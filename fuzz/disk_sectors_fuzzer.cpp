// The input describes a disk by the few sectors that matter, so that each of its bytes counts: a
// plain image would be zeros for the most part, and its directory a needle in them.
//
//   0  2  sectors of the image, low byte first, modulo kMostSectors
//   2  1  the byte that fills it
//   3     pieces: sector (2 bytes, low byte first, modulo the sectors of the image), offset in it,
//         length (0 counts as 256), then that many bytes

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "read_as_disk.h"

namespace {

constexpr std::size_t kMostSectors = 1600;
constexpr std::size_t kSectorBytes = 256;
constexpr std::size_t kHeadBytes = 3;
constexpr std::size_t kPieceHeadBytes = 4;

std::size_t TwoBytes(const std::uint8_t* data) {
    return data[0] + std::size_t{256} * data[1];
}

std::string ImageOf(const std::uint8_t* data, std::size_t size) {
    const std::size_t sectors = TwoBytes(data) % kMostSectors + 1;
    std::string image(sectors * kSectorBytes, static_cast<char>(data[2]));
    std::size_t at = kHeadBytes;
    while (size - at >= kPieceHeadBytes) {
        const std::size_t place = TwoBytes(data + at) % sectors * kSectorBytes + data[at + 2];
        const std::size_t asked = data[at + 3] == 0 ? kSectorBytes : data[at + 3];
        at += kPieceHeadBytes;
        const std::size_t length = std::min({asked, size - at, image.size() - place});
        image.replace(place, length, std::string(data + at, data + at + length));
        at += std::min(asked, size - at);
    }
    return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeadBytes) return 0;
    brindlemoor::ReadAsDisk(ImageOf(data, size));
    return 0;
}
