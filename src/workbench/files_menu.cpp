#include "workbench/files_menu.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "filesystems/commit.h"
#include "image/blank_image.h"
#include "image/containers.h"
#include "image/modified_state.h"
#include "image/pc_file.h"
#include "image/save_image.h"
#include "workbench/directory_grid.h"
#include "workbench/file_dialog.h"
#include "workbench/new_disk.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

enum FilesCommand : int { kNew = 0, kOpen = 2, kReOpen = 3, kSave = 5, kSaveAs = 6, kExit = 8 };

/// Asks for a file with the pattern in force as the filter.
std::string AskForFile(const std::string& mode, const std::string& title) {
    std::string folder = PrincipalControl("File1").Path;
    std::string name;
    int filterIndex = 1;
    return FileDialog(mode, folder, name,
                      {"DSK", title, FilterOf(PrincipalControl("DirPattern").Text)}, filterIndex);
}

void OpenFile() {
    const std::string path = AskForFile("A", "Seleccione el Archivo");
    if (!path.empty()) SelectPcFile(path);
}

/// Nobody loses a disk to a menu or a button without having been told.
bool AskedFirst(const std::string& english, const std::string& spanish) {
    return Platform.ShowMessage(Settings.LanguageIndex != 0 ? spanish : english, Disk.AppTitle,
                                Buttons::OkCancel, MessageIcon::Exclamation) == Answer::Ok;
}

/// Writing the rows of an OS-9 disk into its image leaves the identification sector and the map,
/// and blanks everything else.
bool MayBlankOs9Disk() {
    if (Disk.DiskFamily != kOs9) return true;
    return AskedFirst(
        "Saving an OS-9 disk with this button erases all its files: only the "
        "identification sector and the map remain.\r\n\r\n"
        "To keep them use Files, Save. Erase them?",
        "Grabar con este botón borra todos los archivos de un disco OS-9: solo quedan "
        "el sector de identificación y el mapa.\r\n\r\n"
        "Para conservarlos use Archivos, Guardar. ¿Borrarlos?"_w);
}

/// What is saved of a DMK file is its header and plain sectors, which nobody reads.
bool MayFlattenDmk() {
    if (!IsDmkFile(Disk.ImageOnOpen)) return true;
    return AskedFirst(
        "Saving a DMK image writes its sectors without their tracks: a file that neither "
        "emulators nor this program can read.\r\n\r\n"
        "To keep the files copy them to the PC. Save all the same?",
        "Guardar una imagen DMK escribe sus sectores sin las pistas: un archivo que ni los "
        "emuladores ni este programa pueden leer.\r\n\r\n"
        "Para conservar los archivos cópielos a la PC. ¿Guardar de todos modos?"_w);
}

/// Writes the disk to the path in `PathDsk`; then the file just written is opened.
void SaveFile() {
    std::string path = PrincipalControl("PathDsk").Text;
    if (!SaveImage(path)) return;
    FillDirectoryGrid();
    SelectPcFile(path);
}

/// Without a disk there is nothing that could take a file's place.
void SaveFileAs() {
    if (Disk.ImageBytes.empty() || !MayFlattenDmk()) return;
    const std::string path = AskForFile("G", "Seleccione el Archivo");
    if (path.empty()) return;
    SetText(PrincipalControl("PathDsk"), path);
    SaveFile();
}

/// The patterns to pick from, but for the two that show files of BASIC and the like.
std::string DiskFilters() {
    constexpr std::size_t kFiles = 3;
    constexpr std::size_t kDisksAndFiles = 4;
    const std::vector<std::string>& patterns = PrincipalControl("DirPattern").Items;
    std::vector<std::string> filters;
    for (std::size_t item = 0; item < patterns.size(); ++item) {
        if (item != kFiles && item != kDisksAndFiles) filters.push_back(FilterOf(patterns[item]));
    }
    return JoinText(filters, "|");
}

std::string AskForNewFile() {
    constexpr int kFiltersBeforeFormats = 2;
    std::string folder = PrincipalControl("File1").Path;
    std::string name;
    int filterIndex = NewDiskFormat() + kFiltersBeforeFormats;
    return FileDialog("G", folder, name,
                      {NewDiskFormatCaption(), "Crear archivo nuevo", DiskFilters()}, filterIndex);
}

void NewFile() {
    NewDiskCancelled = false;
    Platform.ShowModal("NewDisk");
    if (NewDiskCancelled) return;
    std::string path = AskForNewFile();
    if (path.empty()) return;
    SetText(PrincipalControl("FilePath"), path);
    Disk.PcFileBytes = BlankImage(NewDiskShape());
    if (!WritePcFile(path, Disk.PcFileBytes, kSkipCreateQuestion | kSkipOverwriteQuestion)) return;
    SelectPcFile(path);
}

void FilesMenuClicked(int index) {
    switch (index) {
        case kNew:
            return NewFile();
        case kOpen:
            return OpenFile();
        case kReOpen:
            return ReOpenImage();
        case kSave:
            if (MayFlattenDmk()) SaveFile();
            return;
        case kSaveAs:
            return SaveFileAs();
        case kExit:
            return Platform.CloseMainWindow();
        default:
            return;
    }
}

/// The button writes the rows into the image first; the menu entry saves the image as it stands.
/// The image differs from its file from then on, also when the saving fails.
void SaveButtonPressed() {
    if (!Disk.ImageBytes.empty()) {
        if (!MayBlankOs9Disk() || !MayFlattenDmk()) return;
        if (const auto failure = FailureOfStep(CommitDirectory)) {
            ShowFailure(*failure);
            return;
        }
        RefreshModified();
    }
    SaveFile();
}

}  // namespace

void SelectPcFile(const std::string& path) {
    std::string folder;
    std::string name;
    SplitPath(path, folder, name);
    ShowPcFolder(folder);
    RefreshPcFiles();
    Control& files = PrincipalControl("File1");
    if (files.Items.empty()) return;
    const auto found = std::find(files.Items.begin(), files.Items.end(), name);
    const auto last = files.Items.end() - 1;
    ClickListEntry(files, static_cast<int>(std::min(found, last) - files.Items.begin()));
    SetText(PrincipalControl("FilePath"), path);
}

void ConnectFilesMenu() {
    MenuOf(Principal, "FilesMenu").Click = FilesMenuClicked;
    PrincipalControl("SaveBtn").Click = SaveButtonPressed;
    PrincipalControl("UndoBtn").Click = ReOpenImage;
}

}  // namespace brindlemoor
