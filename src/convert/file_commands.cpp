#include "convert/file_commands.h"

#include <string>
#include <vector>

#include "convert/disk_commands.h"
#include "convert/pc_commands.h"
#include "core/screen.h"

namespace brindlemoor {

std::int16_t PopupSide = kPcSide;

namespace {

std::vector<PcFile> SelectedPcFiles() {
    const std::string folder = Screen.PcListFolder();
    std::vector<PcFile> files;
    for (const std::string& name : Screen.PcSelectedNames()) files.push_back({folder, name});
    return files;
}

}  // namespace

void FileCommand(int index) {
    if (PopupSide == kPcSide) {
        RunPcCommand(index, SelectedPcFiles());
    } else {
        RunDiskCommand(index, Screen.SelectedRows());
    }
}

std::function<void(int index)> RunFileCommand = FileCommand;

}  // namespace brindlemoor
