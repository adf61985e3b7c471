#include "support/faulty_files.h"

#include <cerrno>
#include <functional>

namespace brindlemoor::test {

namespace {

std::error_code NoSpace() {
    return std::make_error_code(std::errc::no_space_on_device);
}

void WriteHalf(std::FILE* file, const std::string& bytes) {
    std::fwrite(bytes.data(), 1, bytes.size() / 2, file);
    std::fflush(file);
}

}  // namespace

FileOperationTable FailingAt(FileStep step) {
    FileOperationTable table = SystemFileOperations();
    switch (step) {
        case FileStep::OpenNew:
            table.OpenNew = [](const std::string&) -> std::FILE* {
                errno = ENOSPC;
                return nullptr;
            };
            break;
        case FileStep::SetPermissions:
            table.SetPermissions = [](const std::string&, std::filesystem::perms) {
                return NoSpace();
            };
            break;
        case FileStep::Write:
            table.Write = [](std::FILE* file, const std::string& bytes) {
                WriteHalf(file, bytes);
                errno = ENOSPC;
                return false;
            };
            break;
        case FileStep::FlushToDisk:
            table.FlushToDisk = [](std::FILE*) {
                errno = ENOSPC;
                return false;
            };
            break;
        case FileStep::Close:
            table.Close = [](std::FILE* file) {
                std::fclose(file);
                errno = ENOSPC;
                return false;
            };
            break;
        case FileStep::Rename:
            table.Rename = [](const std::string&, const std::string&) { return NoSpace(); };
            break;
        case FileStep::FlushFolder:
            table.FlushFolder = [](const std::string&) {};
            break;
    }
    return table;
}

FileOperationTable Watching(const std::function<void(FileStep step)>& reach) {
    const FileOperationTable system = SystemFileOperations();
    FileOperationTable table = system;
    table.OpenNew = [=](const std::string& path) {
        reach(FileStep::OpenNew);
        return system.OpenNew(path);
    };
    table.SetPermissions = [=](const std::string& path, std::filesystem::perms permissions) {
        reach(FileStep::SetPermissions);
        return system.SetPermissions(path, permissions);
    };
    table.Write = [=](std::FILE* file, const std::string& bytes) {
        WriteHalf(file, bytes);
        reach(FileStep::Write);
        std::rewind(file);
        return system.Write(file, bytes);
    };
    table.FlushToDisk = [=](std::FILE* file) {
        reach(FileStep::FlushToDisk);
        return system.FlushToDisk(file);
    };
    table.Close = [=](std::FILE* file) {
        reach(FileStep::Close);
        return system.Close(file);
    };
    table.Rename = [=](const std::string& from, const std::string& to) {
        reach(FileStep::Rename);
        return system.Rename(from, to);
    };
    table.FlushFolder = [=](const std::string& folder) {
        reach(FileStep::FlushFolder);
        system.FlushFolder(folder);
    };
    return table;
}

void CountCommonFlushes(int& flushed) {
    FileOperations.FlushFileSystem = [&flushed](const std::string&) {
        ++flushed;
        return std::error_code();
    };
}

}  // namespace brindlemoor::test
