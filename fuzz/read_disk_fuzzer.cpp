// The input is the file of a disk image as it stands, read from a folder of the PC: containers,
// recognition, short images. One that begins with "hd" and the number of a virtual drive stands for
// a hard disk image with the rest of the input in that drive.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/numbers.h"
#include "image/pc_file.h"
#include "memory_folder.h"
#include "read_as_disk.h"

namespace {

using namespace brindlemoor;

constexpr std::size_t kHardDiskHead = 3;

/// The first byte of a JVC file, which is known by its name too.
constexpr char kJvcSectors = 18;

void Expect(bool condition) {
    if (!condition) std::abort();
}

bool IsHardDisk(const std::string& data) {
    return data.size() >= kHardDiskHead && data.compare(0, 2, "hd") == 0;
}

/// Writes `bytes` into a file from `offset` on, which takes no room in front of them.
void WriteAt(const std::string& path, long long offset, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.seekp(offset);
    file << bytes;
}

/// The bytes that are an image by the program's one way to read a file.
std::string Loaded(const std::string& data) {
    static const MemoryFolder folder;
    std::string path = (folder.Base / "fuzz.dsk").string();
    Platform = SilentPlatform();
    std::string contents = data;
    if (IsHardDisk(data)) {
        const int drive = static_cast<unsigned char>(data[2]);
        Platform.AskText = [drive](const std::string&, const std::string&, const std::string&) {
            return DecimalText(drive);
        };
        // One byte at least: the drive begins where a file begins to count as a hard disk.
        contents = data.substr(kHardDiskHead) + '\0';
        WriteAt(path, kHardDiskLimit + drive * kVirtualDriveBytes, contents);
    } else {
        WriteAt(path, 0, contents);
    }
    std::string image;
    Expect(LoadPcFile("A", path, image, 0));
    Expect(image == contents);
    return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string image = Loaded(std::string(data, data + size));
    const bool jvc = !image.empty() && image.front() == kJvcSectors;
    ReadAsDisk(image, jvc ? "fuzz.JVC" : "fuzz.dsk");
    return 0;
}
