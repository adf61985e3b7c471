#include "core/file_operations.h"

#include <cerrno>

#if __has_include(<unistd.h>)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

bool WriteBytes(std::FILE* file, const std::string& bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return written && std::fflush(file) == 0;
}

#if __has_include(<unistd.h>)

std::FILE* OpenPrivateFile(const std::string& path) {
    const int handle =
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return handle < 0 ? nullptr : fdopen(handle, "wb");
}

bool FlushFile(std::FILE* file) {
    return fsync(fileno(file)) == 0;
}

void FlushNames(const std::string& folder) {
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}

#ifdef __linux__
std::error_code FlushWholeDisk(const std::string& folder) {
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (handle < 0) {
        sync();  // a folder that may be written but not read: all disks, then
        return {};
    }
    std::error_code error;
    if (syncfs(handle) != 0) error = std::error_code(errno, std::generic_category());
    close(handle);
    return error;
}
#endif

#else

std::FILE* OpenPrivateFile(const std::string& path) {
    return std::fopen(path.c_str(), "wbx");
}

bool FlushFile(std::FILE* file) {
    return std::fflush(file) == 0;
}

void FlushNames(const std::string& /*folder*/) {}

#endif

}  // namespace

FileOperationTable SystemFileOperations() {
    FileOperationTable table;
    table.OpenNew = [](const std::string& path) { return std::fopen(path.c_str(), "wbx"); };
    table.OpenPrivate = OpenPrivateFile;
    table.SetPermissions = [](const std::string& path, fs::perms permissions) {
        std::error_code error;
        fs::permissions(path, permissions, error);
        return error;
    };
    table.Write = WriteBytes;
    table.FlushToDisk = FlushFile;
    table.Close = [](std::FILE* file) { return std::fclose(file) == 0; };
    table.Rename = [](const std::string& from, const std::string& to) {
        std::error_code error;
        fs::rename(from, to, error);
        return error;
    };
    table.FlushFolder = FlushNames;
#ifdef __linux__
    table.FlushFileSystem = FlushWholeDisk;
#endif
    table.Remove = [](const std::string& path) {
        std::error_code ignored;
        fs::remove(path, ignored);
    };
    return table;
}

FileOperationTable FileOperations = SystemFileOperations();

}  // namespace brindlemoor
