#include "image/hard_disk_part.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "core/disk_state.h"
#include "core/file_handle.h"
#include "core/safe_file.h"

namespace brindlemoor {

namespace {

std::error_code ReadWhole(const std::string& path, std::string& bytes) {
    std::error_code error;
    const File file = OpenForReading(path, error);
    if (!file) return error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return error;
    bytes.resize(static_cast<std::size_t>(size));
    errno = 0;
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        return LastFileError();
    }
    return {};
}

/// The bytes without the zero byte that a disk of Disk BASIC gets behind its end when a file takes
/// its last granule: a part has no place for it.
std::string_view WithoutGrownByte(std::string_view bytes, std::size_t length) {
    const bool grown = bytes.size() == length + 1 && bytes.back() == '\0';
    return grown ? bytes.substr(0, length) : bytes;
}

}  // namespace

std::error_code ReplaceHardDiskPart(const std::string& path, const std::string& bytes) {
    const auto offset = static_cast<std::size_t>(Disk.PartOffset);
    const auto length = static_cast<std::size_t>(Disk.PartLength);
    const std::string_view part = WithoutGrownByte(bytes, length);
    if (part.size() > length) return std::make_error_code(std::errc::invalid_argument);
    std::string whole;
    if (const std::error_code error = ReadWhole(path, whole)) return error;
    if (whole.size() < offset + part.size()) whole.resize(offset + part.size(), '\0');
    whole.replace(offset, part.size(), part);
    return ReplaceFile(path, whole, Flush::ToDisk);
}

}  // namespace brindlemoor
