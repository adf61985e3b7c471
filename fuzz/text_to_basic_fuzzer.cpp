// The input is a text, which becomes tokens for both machines. Header, length and links of the
// result have to agree with it, and it has to read back as a program.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "convert/basic.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace {

constexpr std::size_t kNoLine = 0;

void Expect(bool condition) {
    if (!condition) std::abort();
}

/// The two-byte number at `offset`, high byte first.
std::size_t NumberAt(const std::string& bytes, std::size_t offset) {
    Expect(offset + 2 <= bytes.size());
    return static_cast<std::size_t>(static_cast<unsigned char>(bytes[offset]) << 8 |
                                    static_cast<unsigned char>(bytes[offset + 1]));
}

/// Follows the links from the first line on; each leads behind the 0 of its line, the last to a
/// link of 0 near the end: of a line that never came only the link and the number stand there.
void CheckLinks(const std::string& file, std::size_t header, std::size_t firstAddress) {
    std::size_t at = header;
    for (std::size_t link = NumberAt(file, at); link != kNoLine; link = NumberAt(file, at)) {
        Expect(link < 0x8000 && link > firstAddress);
        const std::size_t next = link - firstAddress + header;
        Expect(next > at + 2 && next <= file.size() - 2 && file[next - 1] == '\0');
        at = next;
    }
    Expect(file.size() - at <= 6);
}

void Encode(const std::string& text, brindlemoor::Family family) {
    using namespace brindlemoor;
    const bool coco = family == kDecb;
    Disk.DiskFamily = family;
    std::string data = text;
    std::string file;
    try {
        file = BasicConvert(data, false);
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kOverflow && data == text);
        return;
    }
    Expect(data == text);
    const std::size_t header = coco ? 3 : 9;
    Expect(file.size() >= header + 2 && file.front() == (coco ? '\xFF' : '\x55'));
    Expect(NumberAt(file, coco ? 1 : 4) == file.size() - header);
    Expect(file[file.size() - 1] == '\0' && file[file.size() - 2] == '\0');
    if (!coco) Expect(NumberAt(file, 2) == 0x2401 && file[8] == '\xAA');
    CheckLinks(file, header, coco ? 0x2601 : 0x2401);
    Expect(BasicConvert(file, false).front() == '\r');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindlemoor;
    const std::string text(data, data + size);
    if (text.empty() || text[0] == '\xFF' || text[0] == '\x55') return 0;
    Platform = SilentPlatform();
    Platform.ShowMessage = [](const std::string&, const std::string&, Buttons, MessageIcon) {
        return Answer::Ok;
    };
    Encode(text, kDecb);
    Encode(text, kDragon);
    return 0;
}
