#include "core/file_handle.h"

#include <cerrno>
#include <filesystem>

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

std::error_code ObjectionToReading(const std::string& path) {
    // The system would read such a path only as far as its zero byte.
    if (path.find('\0') != std::string::npos) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) return std::make_error_code(std::errc::is_a_directory);
    if (fs::is_other(status)) return std::make_error_code(std::errc::not_supported);
    return {};
}

}  // namespace

std::error_code LastFileError() {
    return {errno != 0 ? errno : EIO, std::generic_category()};
}

File OpenForReading(const std::string& path, std::error_code& error) {
    error = ObjectionToReading(path);
    if (error) return nullptr;
    errno = 0;
    File file(std::fopen(path.c_str(), "rb"));
    if (!file) error = LastFileError();
    return file;
}

}  // namespace brindlemoor
