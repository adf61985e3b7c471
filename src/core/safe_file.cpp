#include "core/safe_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

#include "core/file_handle.h"
#include "core/file_operations.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kMostNamesTried = 1000;

/// The file that a link leads to, also where there is none yet.
fs::path LinkTarget(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path whole = fs::canonical(path, error);
    if (!error) return whole;
    const fs::path target = fs::read_symlink(path, error);
    if (error) return path;
    return target.is_absolute() ? target : path.parent_path() / target;
}

/// What speaks against a path before the system is asked about it: it would look no further than
/// a zero byte, and find somebody else's file.
std::error_code ObjectionToPath(const std::string& path) {
    if (path.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
    if (path.find('\0') != std::string::npos) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    return {};
}

/// What speaks against replacing what stands there now.
std::error_code ObjectionToReplacing(const fs::file_status& old) {
    if (fs::is_directory(old)) return std::make_error_code(std::errc::is_a_directory);
    if (fs::is_other(old)) return std::make_error_code(std::errc::not_supported);
    constexpr fs::perms kAnyWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (fs::is_regular_file(old) && (old.permissions() & kAnyWrite) == fs::perms::none) {
        return std::make_error_code(std::errc::permission_denied);
    }
    return {};
}

/// Makes a file of a name that nobody bears in the folder of `path`; the name is short, so that
/// it fits wherever the file's own name does. `name` is where it came to be.
std::FILE* OpenNewFileBeside(const fs::path& path, fs::path& name) {
    for (int number = 0; number < kMostNamesTried; ++number) {
        name = path.parent_path() / ("~save" + std::to_string(number) + ".tmp");
        errno = 0;
        std::FILE* file = FileOperations.OpenNew(name.string());
        if (file != nullptr || errno != EEXIST) return file;
    }
    return nullptr;
}

/// Where the system cannot flush many files together, each is flushed by itself; so is one behind
/// a link, which may lie on another disk.
bool IsFlushedAlone(Flush flush, bool isLink) {
    return flush == Flush::ToDisk ||
           (flush == Flush::WithOthers && (isLink || !FileOperations.FlushFileSystem));
}

/// Writes and closes the file. False with `errno` set where something failed.
bool WriteAndClose(std::FILE* file, const std::string& bytes, bool flush) {
    bool written = FileOperations.Write(file, bytes);
    if (flush) written = written && FileOperations.FlushToDisk(file);
    const int reason = errno;
    const bool closed = FileOperations.Close(file);
    if (!written) errno = reason;
    return written && closed;
}

}  // namespace

std::error_code ReplaceFile(const std::string& path, const std::string& bytes, Flush flush) {
    if (const std::error_code objection = ObjectionToPath(path)) return objection;
    std::error_code error;
    const fs::path target = LinkTarget(path);
    const fs::file_status old = fs::status(target, error);
    if (const std::error_code objection = ObjectionToReplacing(old)) return objection;
    fs::path name;
    std::FILE* file = OpenNewFileBeside(target, name);
    if (file == nullptr) return LastFileError();
    // Before the bytes are in it: nobody may read a private file meanwhile.
    error.clear();
    if (fs::is_regular_file(old)) {
        error = FileOperations.SetPermissions(name.string(), old.permissions());
    }
    const bool alone = IsFlushedAlone(flush, target != path);
    const bool mayBeThere = old.type() != fs::file_type::not_found;
    const bool flushBytes = alone || (flush == Flush::WithOthers && mayBeThere);
    errno = 0;
    const bool written = WriteAndClose(file, bytes, flushBytes);
    if (!error && !written) error = LastFileError();
    if (!error) error = FileOperations.Rename(name.string(), target.string());
    if (error) {
        FileOperations.Remove(name.string());
    } else if (alone) {
        FileOperations.FlushFolder(target.parent_path().string());
    }
    return error;
}

std::error_code FlushFiles(const std::string& folder) {
    return FileOperations.FlushFileSystem ? FileOperations.FlushFileSystem(folder)
                                          : std::error_code();
}

}  // namespace brindlemoor
