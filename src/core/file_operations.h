#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

namespace brindlemoor {

/// What replacing a file, or making a temporary one, asks of the system, step by step, so that
/// tests can have each step fail. The entries that return a truth leave the reason of a failure in
/// `errno`.
struct FileOperationTable {
    /// Makes a new file for writing; null when one of that name is there already.
    std::function<std::FILE*(const std::string& path)> OpenNew;
    /// The same for a file that the user alone may read and write, from its first moment on.
    std::function<std::FILE*(const std::string& path)> OpenPrivate;
    std::function<std::error_code(const std::string& path, std::filesystem::perms permissions)>
        SetPermissions;
    std::function<bool(std::FILE* file, const std::string& bytes)> Write;
    std::function<bool(std::FILE* file)> FlushToDisk;  ///< returns when the bytes are on the disk
    std::function<bool(std::FILE* file)> Close;        ///< `file` is gone also when it fails
    std::function<std::error_code(const std::string& from, const std::string& to)> Rename;
    /// Has the disk keep a folder's new names; a system that cannot do so does nothing.
    std::function<void(const std::string& folder)> FlushFolder;
    /// Returns when all that was written to the disk of `folder` is on it; null where the system
    /// has no such thing.
    std::function<std::error_code(const std::string& folder)> FlushFileSystem;
    std::function<void(const std::string& path)> Remove;
};

extern FileOperationTable FileOperations;

/// The system's own operations.
FileOperationTable SystemFileOperations();

}  // namespace brindlemoor
