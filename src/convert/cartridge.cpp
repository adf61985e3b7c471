#include "convert/cartridge.h"

#include <cstdint>

#include "core/byte_helpers.h"
#include "core/numbers.h"

namespace brindlemoor {

namespace {

// A PAK, n bytes of ROM:
//
//   Offset  Size
//   0       1     C0
//   1       1     00
//   2       2     n, low byte first, its low 16 bits
//   4       n     ROM
//   4 + n   1     C0
//   5 + n   1     00
//   6 + n   33    00
constexpr std::int64_t kRomOffset = 4;
constexpr std::int64_t kFrame = 39;
constexpr std::size_t kZerosBehind = 33;
const std::string kMark("\xC0\0", 2);

std::string IntoFrame(const std::string& rom) {
    const std::string length = Left(LongToBytes(WholeNumber32(static_cast<double>(rom.size()))), 2);
    std::string pak;
    pak.reserve(rom.size() + static_cast<std::size_t>(kFrame));
    pak += kMark;
    pak += length;
    pak += rom;
    pak += kMark;
    pak.append(kZerosBehind, '\0');
    return pak;
}

}  // namespace

std::string CartConvert(const std::string& data, std::string& path) {
    const bool isRom = UpperCase(Right(path, 3)) == "CCC";
    std::string result =
        isRom ? IntoFrame(data)
              : CutBytes(data, kRomOffset, static_cast<std::int64_t>(data.size()) - kFrame);
    const std::size_t dot = path.rfind('.');
    if (dot != std::string::npos) path.replace(dot, std::string::npos, isRom ? ".PAK" : ".CCC");
    return result;
}

}  // namespace brindlemoor
