// The input is a cartridge, as a ROM and as a PAK. A ROM comes back from its frame, and a PAK of a
// sound frame is the frame of what was taken out of it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "convert/cartridge.h"
#include "core/runtime_failure.h"

namespace {

constexpr std::size_t kFrame = 39;

void Expect(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace brindlemoor;
    const std::string data(bytes, bytes + size);
    std::string path = "SEED.CCC";
    const std::string pak = CartConvert(data, path);
    Expect(pak.size() == size + kFrame && path == "SEED.PAK");
    Expect(CartConvert(pak, path) == data && path == "SEED.CCC");

    path = "SEED.PAK";
    try {
        const std::string rom = CartConvert(data, path);
        Expect(rom.size() == size - kFrame && path == "SEED.CCC");
        const std::string again = CartConvert(rom, path);
        Expect(again.compare(4, rom.size(), data, 4, rom.size()) == 0);
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kInvalidCall && size < kFrame && path == "SEED.PAK");
    }
    return 0;
}
