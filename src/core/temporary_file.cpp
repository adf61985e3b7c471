#include "core/temporary_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "core/file_handle.h"
#include "core/file_operations.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kMostNamesTried = 1000;

/// `wanted` itself, then "NAME.1.TMP" and so on.
std::string NumberedPath(const std::string& wanted, int number) {
    if (number == 0) return wanted;
    fs::path path(wanted);
    const std::string extension = path.extension().string();
    path.replace_extension();
    return path.string() + "." + std::to_string(number) + extension;
}

std::FILE* OpenFreeName(const std::string& wanted, std::string& path) {
    for (int number = 0; number < kMostNamesTried; ++number) {
        path = NumberedPath(wanted, number);
        errno = 0;
        std::FILE* file = FileOperations.OpenPrivate(path);
        if (file != nullptr || errno != EEXIST) return file;
    }
    return nullptr;
}

}  // namespace

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    if (Path.empty() || fs::is_directory(fs::symlink_status(Path, ignored))) return;
    FileOperations.Remove(Path);
}

std::error_code MakeTemporaryFile(const std::string& wanted, const std::string& bytes,
                                  TemporaryFile& file) {
    std::string path;
    std::FILE* opened = OpenFreeName(wanted, path);
    if (opened == nullptr) return LastFileError();
    file.Path = path;
    errno = 0;
    std::error_code error;
    if (!FileOperations.Write(opened, bytes)) error = LastFileError();
    errno = 0;
    if (!FileOperations.Close(opened) && !error) error = LastFileError();
    if (!error) return {};
    FileOperations.Remove(path);
    file.Path.clear();
    return error;
}

std::error_code ReadTemporaryFile(const TemporaryFile& file, std::string& bytes) {
    std::error_code error;
    const File opened = OpenForReading(file.Path, error);
    if (!opened) return error;
    const auto size = fs::file_size(file.Path, error);
    if (error) return error;
    if (size > static_cast<std::uintmax_t>(kLongestTemporary)) {
        return std::make_error_code(std::errc::file_too_large);
    }
    std::string read(static_cast<std::size_t>(size), '\0');
    errno = 0;
    read.resize(std::fread(read.data(), 1, read.size(), opened.get()));
    if (std::ferror(opened.get()) != 0) return LastFileError();
    bytes = std::move(read);
    return {};
}

}  // namespace brindlemoor
