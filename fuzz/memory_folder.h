#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

namespace brindlemoor {

/// A folder of this process's own, which goes with it; in memory where the system has such a place:
/// every input is written to a file there.
struct MemoryFolder {
    MemoryFolder() {
        const std::filesystem::path memory = "/dev/shm";
        Base = (std::filesystem::is_directory(memory) ? memory
                                                      : std::filesystem::temp_directory_path()) /
               ("brindlemoor-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(Base);
    }
    ~MemoryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Base, ignored);
    }
    MemoryFolder(const MemoryFolder&) = delete;
    MemoryFolder& operator=(const MemoryFolder&) = delete;

    std::filesystem::path Base;
};

}  // namespace brindlemoor
