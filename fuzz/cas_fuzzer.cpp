// The input is a file for tape, or the stream of a tape: its first byte holds the type, the flag
// and the family of the open disk. A stream made of a file has to read back as that file.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "convert/cas.h"
#include "convert/cas_block.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace {

using namespace brindlemoor;

void Expect(bool condition) {
    if (!condition) std::abort();
}

/// Values that go in and out by reference.
struct TapeValues {
    std::string Name = "SEED.BIN";
    std::int16_t Type = 0;
    std::int16_t AsciiFlag = 0;
    std::int16_t GapFlag = 0;

    bool operator==(const TapeValues&) const = default;
};

std::string Convert(const std::string& data, TapeValues& values) {
    return CasConvert(data, values.Name, values.Type, values.AsciiFlag, values.GapFlag, 0, 0);
}

/// The contents of a tape's data blocks, read block by block.
std::string Contents(std::string stream) {
    std::string contents;
    std::int16_t type = kNameBlock;
    while (type != kEndBlock) {
        const std::string body = CasReadBlock(stream, type);
        if (type == kDataBlock) contents += body;
    }
    return contents;
}

void CheckTape(const std::string& stream, const std::string& data) {
    Expect(IsCasStream(stream));
    const std::string contents = Contents(stream);
    Expect(contents.size() <= data.size() && data.find(contents) != std::string::npos);
    TapeValues values;
    Disk.DiskFamily = kDecb;
    const std::string file = Convert(stream, values);
    Expect(file.find(contents) != std::string::npos);
    Expect(file.size() <= contents.size() + 10);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) return 0;
    Platform = SilentPlatform();
    Disk.DiskFamily = static_cast<std::uint16_t>(bytes[0] & 3);
    TapeValues values;
    values.Type = static_cast<std::int16_t>(bytes[0] >> 2 & 7);
    values.AsciiFlag = (bytes[0] & 0x20) != 0 ? kAsciiFlag : std::int16_t{0};
    const TapeValues given = values;
    const std::string data(bytes + 1, bytes + size);
    try {
        const std::string result = Convert(data, values);
        if (IsCasStream(data)) {
            Expect(result.size() <= data.size() + 16);
        } else {
            CheckTape(result, data);
        }
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kInvalidCall || failure.Number == kCannotPerform);
        Expect(values == given);
    }
    return 0;
}
