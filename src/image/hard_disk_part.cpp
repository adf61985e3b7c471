#include "image/hard_disk_part.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

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

}  // namespace

std::error_code ReplaceHardDiskPart(const std::string& path, const std::string& bytes) {
    const auto offset = static_cast<std::size_t>(Disk.PartOffset);
    if (bytes.size() > static_cast<std::size_t>(Disk.PartLength)) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    std::string whole;
    if (const std::error_code error = ReadWhole(path, whole)) return error;
    if (whole.size() < offset + bytes.size()) whole.resize(offset + bytes.size(), '\0');
    whole.replace(offset, bytes.size(), bytes);
    return ReplaceFile(path, whole, Flush::ToDisk);
}

}  // namespace brindlemoor
