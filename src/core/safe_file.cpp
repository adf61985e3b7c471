#include "core/safe_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

#include "core/file_handle.h"

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
File OpenNewFileBeside(const fs::path& path, fs::path& name) {
    for (int number = 0; number < kMostNamesTried; ++number) {
        name = path.parent_path() / ("~save" + std::to_string(number) + ".tmp");
        errno = 0;
        File file(std::fopen(name.string().c_str(), "wbx"));
        if (file || errno != EEXIST) return file;
    }
    return nullptr;
}

/// Writes and closes the file. False with `errno` set where something failed.
bool WriteAndClose(File file, const std::string& bytes, Flush flush) {
    bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    written = written && std::fflush(file.get()) == 0;
#if __has_include(<unistd.h>)
    if (flush == Flush::ToDisk) written = written && fsync(fileno(file.get())) == 0;
#else
    static_cast<void>(flush);
#endif
    const int reason = errno;
    const bool closed = std::fclose(file.release()) == 0;
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
    File file = OpenNewFileBeside(target, name);
    if (!file) return LastFileError();
    // Before the bytes are in it: nobody may read a private file meanwhile.
    if (fs::is_regular_file(old)) fs::permissions(name, old.permissions(), error);
    error.clear();
    errno = 0;
    if (!WriteAndClose(std::move(file), bytes, flush)) error = LastFileError();
    if (!error) fs::rename(name, target, error);
    if (error) {
        std::error_code ignored;
        fs::remove(name, ignored);
    }
    return error;
}

}  // namespace brindlemoor
