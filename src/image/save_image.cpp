#include "image/save_image.h"

#include <filesystem>
#include <utility>

#include "core/disk_state.h"
#include "core/screen.h"
#include "image/hard_disk_part.h"
#include "image/pc_file.h"
#include "image/read_disk.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

bool IsPartOf(const std::string& path) {
    if (Disk.PartLength == 0) return false;
    std::error_code ignored;
    return path == Disk.PartPath || fs::equivalent(path, Disk.PartPath, ignored);
}

bool WriteImage(std::string& path, std::string& bytes) {
    if (!IsPartOf(path)) {
        return WritePcFile(path, bytes, kSkipCreateQuestion | kSkipOverwriteQuestion);
    }
    const std::error_code error = ReplaceHardDiskPart(path, bytes);
    if (error) ShowFileError(error);
    return !error;
}

}  // namespace

bool SaveImage(std::string& path) {
    std::string bytes = Disk.ImageHeader + Disk.ImageBytes;
    if (!WriteImage(path, bytes)) return false;
    Disk.ImageOnOpen = std::move(bytes);
    return true;
}

void ReOpenImage() {
    Disk.ImageBytes = Disk.ImageOnOpen;
    ReadDisk();
    Screen.PaintTrackBlock(-1);
    Screen.FillDirectoryGrid();
    Screen.DrawSectorMap(-1);
}

}  // namespace brindlemoor
