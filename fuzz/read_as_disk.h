#pragma once

#include <string>
#include <utility>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "image/read_disk.h"

namespace brindlemoor {

/// Reads `file` as the open disk of that name, with nobody to answer and no window. Every failure
/// that the program knows is a good end; anything else is for the fuzzer to report.
inline void ReadAsDisk(std::string file, const std::string& name = "fuzz.dsk") {
    Platform = SilentPlatform();
    Screen = NoScreen();
    Disk = DiskState();
    DirTable.Wipe();
    Disk.DiskName = name;
    Disk.ImageOnOpen = file;
    Disk.ImageBytes = std::move(file);
    try {
        ReadDisk();
    } catch (const RuntimeFailure&) {
        // An image that the rules of its family cannot hold.
    }
}

}  // namespace brindlemoor
