// The input is the file of a disk image as it stands: containers, recognition, short images.

#include <cstddef>
#include <cstdint>
#include <string>

#include "read_as_disk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    brindlemoor::ReadAsDisk(std::string(data, data + size));
    return 0;
}
