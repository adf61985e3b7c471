#include "workbench/start_up.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "convert/basic_words.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/pc_folders.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_start.h"
#include "workbench/archivos.h"
#include "workbench/cell_edit.h"
#include "workbench/cell_menu.h"
#include "workbench/colour_options.h"
#include "workbench/column_sort.h"
#include "workbench/directory_grid.h"
#include "workbench/directory_totals.h"
#include "workbench/file_drag.h"
#include "workbench/file_popup.h"
#include "workbench/files_menu.h"
#include "workbench/header_info.h"
#include "workbench/info_nitros.h"
#include "workbench/new_disk.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/principal_design.h"
#include "workbench/principal_menus.h"
#include "workbench/principal_viewer.h"
#include "workbench/row_click.h"
#include "workbench/screen_entries.h"
#include "workbench/sector_events.h"
#include "workbench/spare_options.h"
#include "workbench/window_layout.h"

namespace brindlemoor {

namespace {

constexpr int kFirstWidth = 1280 * kTwipsPerPixel;
constexpr int kFirstHeight = 836 * kTwipsPerPixel;

/// The colour of every other row by design, 0x00BBGGRR.
constexpr std::int32_t kAlternateRowDesign = 0xE6FCFC;

constexpr int kAllFilesPattern = 5;

/// The pane shows the folder in which the program was started, until another is chosen.
void ShowStartFolder() {
    std::error_code error;
    const std::string folder = std::filesystem::current_path(error).string();
    if (!error && FolderExists(folder)) ShowPcFolder(folder);
}

/// Opens the image that was open when the program was last closed. A path, drive or file that is
/// gone is no failure: the program starts without an image.
void OpenLastImage() {
    std::string path;
    IniValue("General", "ArchivoActual", path, "");
    FailureOfStep([&path] {
        std::string folder;
        std::string name;
        SplitPath(path, folder, name);
        ShowPcFolder(folder);
        Control& files = PrincipalControl("File1");
        const auto found = std::find(files.Items.begin(), files.Items.end(), name);
        if (found == files.Items.end()) return;
        SetListIndex(files, static_cast<int>(found - files.Items.begin()));
        SetText(PrincipalControl("FilePath"), path);
    });
}

}  // namespace

void BuildPrincipal() {
    Principal = Window();
    ListDirec = Grid();
    TotalsLines = {};
    Archivos = Window();
    BuildNewDisk();
    BuildHeaderInfo();
    BuildInfoNitros();
    BuildColourOptions();
    BuildSpareOptions();
    Principal.Name = "Principal";
    Principal.Caption = "Brindlemoor";
    Principal.Controls = DesignedControls();
    Principal.Menus = DesignedMenus();
    ListDirec.AlternateRowBackColour = kAlternateRowDesign;
    ConnectScreen();
    ConnectDirectoryGrid();
    ConnectCellEdit();
    ConnectCellMenu();
    ConnectColumnSort();
    ConnectPcPane();
    ConnectFilePopup();
    ConnectFileDrag();
    BuildPrincipalViewer();
    ConnectSectorMap();
    ConnectRowClick();
    ConnectMenus();
    ConnectFilesMenu();
    ListPcDrives();
    ShowStartFolder();
    ResizePrincipal(kFirstWidth, kFirstHeight);
}

bool StartUp() {
    BuildBasicWords();
    Disk.DirCount = -1;
    Disk.AppTitle = "Brindlemoor";
    Principal.Caption += " Version: " + ProgramVersion();
    if (!InitialiseSettings()) return false;
    SetListIndex(PrincipalControl("OpciónChar"_w), kCocoBasicCharacters);
    Control& title = PrincipalControl("Label3");
    title.Tag = title.Text;
    OpenLastImage();
    SetListIndex(PrincipalControl("DirPattern"), kAllFilesPattern);
    return true;
}

void ClosePrincipal() {
    StoreSetting("ArchivoActual", JoinPath(PrincipalControl("File1").Path, SelectedPcFile()));
}

}  // namespace brindlemoor
