#include "convert/file_commands.h"

#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/screen.h"
#include "image/pc_file.h"

namespace brindlemoor {

std::int16_t PopupSide = kPcSide;

namespace {

constexpr int kBasicType = 0;
constexpr int kBinaryType = 2;

/// Files that cannot be read bring up the file routine's message.
void ViewPcFiles() {
    const std::string folder = Screen.PcListFolder();
    for (const std::string& name : Screen.PcSelectedNames()) {
        std::string path = JoinPath(folder, name);
        std::string bytes;
        if (!LoadPcFile("A", path, bytes, 0)) continue;
        Disk.PcFileBytes = bytes;
        const bool basic = UpperCase(Right(name, 3)) == "BAS";
        Screen.ShowDetached(path, bytes, basic ? kBasicType : kBinaryType);
    }
}

/// Deleted rows are passed over.
void ViewDiskFiles() {
    const std::string folder = Screen.PcListFolder();
    for (const int row : Screen.SelectedRows()) {
        Disk.DirCount = row;
        const DirEntry& entry = DirTable[row];
        if ((entry.Flags & kFlagDeleted) != 0) continue;
        Disk.PcFileBytes = entry.Content;
        Screen.ShowDetached(JoinPath(folder, TrimRight(entry.FullName)), entry.Content,
                            entry.FileType);
    }
}

}  // namespace

void FileCommand(int index) {
    if (index != kViewCommand) return;
    if (PopupSide == kPcSide) {
        ViewPcFiles();
    } else {
        ViewDiskFiles();
    }
}

std::function<void(int index)> RunFileCommand = FileCommand;

}  // namespace brindlemoor
