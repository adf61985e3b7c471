#include "workbench/pc_pane.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/pc_folders.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "image/open_image.h"
#include "workbench/principal.h"

namespace brindlemoor {

std::string FilePathText;

namespace {

constexpr int kPathNotFound = 76;

void RequireFolder(const std::string& path) {
    if (!FolderExists(path)) throw RuntimeFailure{kPathNotFound, "Path not found"};
}

/// The last part of a path, or the whole of a root.
std::string FolderLabel(const std::string& path) {
    const std::size_t end = path.find_last_of("/\\");
    if (end == std::string::npos || end + 1 == path.size()) return path;
    return path.substr(end + 1);
}

void DriveChosen() {
    const Control& drives = PrincipalControl("Drive1");
    if (drives.ListIndex < 0) return;
    const std::string path = drives.ItemTags.at(static_cast<std::size_t>(drives.ListIndex));
    const auto failure = FailureOfStep([&path] { SetDir1Path(path); });
    if (!failure) return;
    Platform.ShowMessage("Error..!!! " + DecimalText(failure->Number) + "  " + failure->Text,
                         Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

/// Enters the folder that is marked in `Dir1`. One that vanished meanwhile changes nothing.
void EnterMarkedFolder() {
    const Control& folders = PrincipalControl("Dir1");
    if (folders.ListIndex < 0) return;
    const std::string path = folders.ItemTags.at(static_cast<std::size_t>(folders.ListIndex));
    FailureOfStep([&path] { SetDir1Path(path); });
}

void ApplyPattern() {
    PrincipalControl("File1").Pattern = PatternOf(PrincipalControl("DirPattern").Text);
    RefreshPcFiles();
}

void PatternPicked() {
    StoreSetting("MuestraActual", DecimalText(PrincipalControl("DirPattern").ListIndex));
    ApplyPattern();
}

/// Goes to the folder that was typed, or to that of the file that was typed. A path that leads
/// nowhere changes nothing.
void FilePathLeft() {
    std::string path = PrincipalControl("FilePath").Text;
    if (path.empty()) return;
    if (path.find_first_of(std::string("\\") + PathSeparator()) == std::string::npos) {
        path = JoinPath(PrincipalControl("File1").Path, path);
    }
    FailureOfStep([&path] {
        std::string folder;
        std::string file;
        SplitPath(path, folder, file);
        ShowPcFolder(FileExists(path) ? folder : path);
    });
    RefreshPcFiles();
}

bool FilePathKey(int key) {
    if (key == kKeyDoubleQuote) return true;
    if (key == kKeyDown || key == kKeyEnter || key == kKeyTab) FilePathLeft();
    return false;
}

/// True when the tree below `root` holds `path`.
bool LiesUnder(const std::string& path, const std::string& root) {
    if (path.compare(0, root.size(), root) != 0) return false;
    return path.size() == root.size() || root.back() == PathSeparator() ||
           path[root.size()] == PathSeparator();
}

void ListFolders(Control& folders) {
    folders.Items.clear();
    folders.ItemTags.clear();
    folders.ItemIndents.clear();
    const auto add = [&folders](const std::string& path, int indent) {
        folders.Items.push_back(FolderLabel(path));
        folders.ItemTags.push_back(path);
        folders.ItemIndents.push_back(indent);
    };
    int depth = 0;
    for (const std::string& above : FoldersAbove(folders.Path)) add(above, depth++);
    folders.ListIndex = depth - 1;
    for (const std::string& name : FoldersIn(folders.Path)) {
        add(JoinPath(folders.Path, name), depth);
    }
}

}  // namespace

std::string PatternOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    const bool named = colon != std::string::npos && colon + 2 <= text.size();
    return named ? text.substr(colon + 2) : std::string();
}

void SetDir1Path(const std::string& path) {
    const std::string folder = WholeFolderPath(path);
    RequireFolder(folder);
    Control& folders = PrincipalControl("Dir1");
    folders.Path = folder;
    ListFolders(folders);
    Raise(folders.Change);
}

void SetFile1Path(const std::string& path) {
    const std::string folder = WholeFolderPath(path);
    RequireFolder(folder);
    Control& files = PrincipalControl("File1");
    if (files.Path == folder) return;
    files.Path = folder;
    files.ListIndex = -1;
    RefreshPcFiles();
}

void RefreshPcFiles() {
    Control& files = PrincipalControl("File1");
    const std::string selected = SelectedPcFile();
    files.Items =
        files.Path.empty() ? std::vector<std::string>() : FilesIn(files.Path, files.Pattern);
    files.ItemSelected.assign(files.Items.size(), false);
    files.ListIndex = -1;
    const auto found = std::find(files.Items.begin(), files.Items.end(), selected);
    if (selected.empty() || found == files.Items.end()) return;
    files.ListIndex = static_cast<int>(found - files.Items.begin());
    files.ItemSelected[static_cast<std::size_t>(files.ListIndex)] = true;
}

void SetDriveOf(const std::string& path) {
    Control& drives = PrincipalControl("Drive1");
    int best = -1;
    std::size_t length = 0;
    for (std::size_t drive = 0; drive < drives.ItemTags.size(); ++drive) {
        const std::string& root = drives.ItemTags[drive];
        if (root.size() > length && LiesUnder(path, root)) {
            best = static_cast<int>(drive);
            length = root.size();
        }
    }
    if (best >= 0) SetListIndex(drives, best);
}

void ShowPcFolder(const std::string& path) {
    const std::string folder = WholeFolderPath(path);
    RequireFolder(folder);
    SetDriveOf(folder);
    SetDir1Path(folder);
    SetFile1Path(folder);
}

std::string SelectedPcFile() {
    const Control& files = PrincipalControl("File1");
    const auto index = static_cast<std::size_t>(files.ListIndex);
    return files.ListIndex >= 0 && index < files.Items.size() ? files.Items[index] : std::string();
}

void ListPcDrives() {
    Control& drives = PrincipalControl("Drive1");
    drives.Items.clear();
    drives.ItemTags.clear();
    drives.ListIndex = -1;
    for (const DriveEntry& drive : Platform.ListDrives()) {
        if (drive.Path.empty()) continue;
        drives.Items.push_back(drive.Label);
        drives.ItemTags.push_back(drive.Path);
    }
}

void ConnectPcPane() {
    PrincipalControl("Drive1").Click = DriveChosen;
    Control& folders = PrincipalControl("Dir1");
    folders.Change = [] { SetFile1Path(PrincipalControl("Dir1").Path); };
    folders.DoubleClick = EnterMarkedFolder;
    folders.Key = [](int key) {
        if (key == kKeyEnter) EnterMarkedFolder();
        return key == kKeyEnter;
    };
    PrincipalControl("File1").Click = [] {
        if (PrincipalControl("File1").ListIndex >= 0) OpenImageFromList();
    };
    PrincipalControl("DirPattern").Click = PatternPicked;
    PrincipalControl("DirPattern").Change = ApplyPattern;
    FilePathText.clear();
    PrincipalControl("FilePath").Change = [] { FilePathText = PrincipalControl("FilePath").Text; };
    PrincipalControl("FilePath").Leave = FilePathLeft;
    PrincipalControl("FilePath").Key = FilePathKey;
}

}  // namespace brindlemoor
