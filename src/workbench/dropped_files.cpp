#include "workbench/dropped_files.h"

#include <algorithm>
#include <filesystem>

#include "convert/file_commands.h"
#include "convert/pc_commands.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/pc_folders.h"
#include "core/runtime_failure.h"
#include "image/open_image.h"
#include "workbench/cell_edit.h"
#include "workbench/file_drag.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

/// The pattern for a file that none of the patterns to pick from shows.
constexpr const char* kAnyFile = "*.*: *.*";

bool IsListed(const std::string& name) {
    const std::vector<std::string>& files = PrincipalControl("File1").Items;
    return std::find(files.begin(), files.end(), name) != files.end();
}

/// Picks patterns until one shows the file. Another pattern than the user's is the smaller evil:
/// the file was put before the window to be seen.
void ShowInSpiteOfPattern(const std::string& name) {
    Control& patterns = PrincipalControl("DirPattern");
    const int count = static_cast<int>(patterns.Items.size());
    for (int item = 0; item < count; ++item) {
        const std::string pattern = PatternOf(patterns.Items[static_cast<std::size_t>(item)]);
        if (!MatchesOnePattern(name, pattern)) continue;
        ClickListEntry(patterns, item);
        return;
    }
    SetText(patterns, kAnyFile);
}

bool IsFileOfPc(const std::string& path) {
    return path.find('\0') == std::string::npos && FileExists(path);
}

}  // namespace

bool TakesDroppedFiles(const std::vector<std::string>& paths) {
    if (paths.size() != 1 || paths[0].find('\0') != std::string::npos) return false;
    std::string folder;
    std::string name;
    const bool whole = !FailureOfStep([&] { SplitPath(paths[0], folder, name); });
    if (!whole || !FileExists(paths[0])) return false;
    return !name.empty() && name.front() != '.' && HasImageExtension(name);
}

void DropFilesFromOutside(const std::vector<std::string>& paths) {
    if (!TakesDroppedFiles(paths) || !EndCellEdit()) return;
    std::string folder;
    std::string name;
    SplitPath(paths[0], folder, name);
    if (FailureOfStep([&folder] { ShowPcFolder(folder); })) return;
    RefreshPcFiles();
    if (!IsListed(name)) ShowInSpiteOfPattern(name);
    Control& files = PrincipalControl("File1");
    const auto found = std::find(files.Items.begin(), files.Items.end(), name);
    if (found == files.Items.end()) return;
    ClickListEntry(files, static_cast<int>(found - files.Items.begin()));
}

bool TakesFilesForDisk(const std::vector<std::string>& paths) {
    return !Disk.ImageBytes.empty() && !paths.empty() &&
           std::all_of(paths.begin(), paths.end(), IsFileOfPc);
}

void DropFilesOnDirectory(const std::vector<std::string>& paths) {
    if (!TakesFilesForDisk(paths) || !EndCellEdit()) return;
    std::vector<PcFile> files;
    for (const std::string& text : paths) {
        const std::filesystem::path path(text);
        files.push_back({path.parent_path().string(), path.filename().string()});
    }
    BeginCopyOfPcFiles();
    RunPcCommand(kSaveCommand, files);
}

}  // namespace brindlemoor
