#include "workbench/principal.h"

#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/languages.h"
#include "core/numbers.h"
#include "core/pc_folders.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_start.h"
#include "image/modified_state.h"
#include "workbench/directory_grid.h"
#include "workbench/directory_totals.h"
#include "workbench/pc_pane.h"
#include "workbench/principal_design.h"
#include "workbench/screen_entries.h"

namespace brindlemoor {

Window Principal;
Grid ListDirec;

namespace {

constexpr int kFirstWidth = 1280 * kTwipsPerPixel;
constexpr int kFirstHeight = 836 * kTwipsPerPixel;

/// The colour of every other row by design, 0x00BBGGRR.
constexpr std::int32_t kAlternateRowDesign = 0xE6FCFC;

constexpr int kCocoBasicCharacters = 2;
constexpr int kAllFilesPattern = 5;

constexpr const char* kMakersPage = "https://brindlemoor.example/";

void FilesMenuClicked(int index) {
    constexpr int kExit = 8;
    if (index == kExit) Platform.CloseMainWindow();
}

/// Item 0 leads to the menu of the languages. The two windows that edit the open image show
/// afterwards whether it differs from its file.
void OptionsMenuClicked(int index) {
    static constexpr const char* kWindows[] = {"",           "Opciones",     "HeaderInfo",
                                               "InfoNitros", "AudioConvert", "frmOptions"};
    constexpr int kHeader = 2;
    constexpr int kOs9Info = 3;
    if (index < 1 || index >= static_cast<int>(std::size(kWindows))) return;
    Platform.ShowModal(kWindows[index]);
    if (index == kHeader || index == kOs9Info) RefreshModified();
}

void HelpMenuClicked(int index) {
    Menu& languages = MenuOf(Principal, "LanguageMenu");
    if (index == 0) {
        const MenuItem& checked = ItemOf(languages, Settings.LanguageIndex);
        Platform.StartProgram("notepad", {"Brindlemoor " + checked.Caption});
    } else if (index == 1) {
        Platform.OpenWebPage(kMakersPage);
    } else {
        Platform.ShowModal("Acerca");
    }
}

void LanguageMenuClicked(int index) {
    Menu& menu = MenuOf(Principal, "LanguageMenu");
    MenuItem& chosen = ItemOf(menu, index);
    for (MenuItem& item : menu.Items) item.Checked = false;
    chosen.Checked = true;
    const std::string language = chosen.Tag;
    ChooseLanguage(language);
}

/// Has a list store its place, or its text, under `key` whenever it changes.
void StoreListIndex(const std::string& name, const std::string& key) {
    PrincipalControl(name).Click = [name, key] {
        if (WindowBusy) return;
        StoreSetting(key, DecimalText(PrincipalControl(name).ListIndex));
    };
}

void StoreListText(const std::string& name, const std::string& key) {
    const auto store = [name, key] {
        if (!WindowBusy) StoreSetting(key, PrincipalControl(name).Text);
    };
    PrincipalControl(name).Click = store;
    PrincipalControl(name).Change = store;
}

void ConnectViewerLists() {
    StoreListIndex("VerAsc", "VerAscActual");
    StoreListIndex("OpciónChar"_w, "OpciónCharActual"_w);
    StoreListText("Anchos", "AnchoActual");
}

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
    try {
        std::string folder;
        std::string name;
        SplitPath(path, folder, name);
        ShowPcFolder(folder);
        Control& files = PrincipalControl("File1");
        for (std::size_t index = 0; index < files.Items.size(); ++index) {
            if (files.Items[index] != name) continue;
            SetListIndex(files, static_cast<int>(index));
            SetText(PrincipalControl("FilePath"), path);
            break;
        }
    } catch (const RuntimeFailure&) {  // starts without an image
    }
}

}  // namespace

Control& PrincipalControl(std::string_view name, int index) {
    return ControlOf(Principal, name, index);
}

void BuildPrincipal() {
    Principal = Window();
    ListDirec = Grid();
    TotalsLines = {};
    Principal.Name = "Principal";
    Principal.Caption = "Brindlemoor";
    Principal.Controls = DesignedControls();
    Principal.Menus = DesignedMenus();
    ListDirec.AlternateRowBackColour = kAlternateRowDesign;
    ConnectScreen();
    ConnectDirectoryGrid();
    ConnectPcPane();
    ConnectViewerLists();
    MenuOf(Principal, "FilesMenu").Click = FilesMenuClicked;
    MenuOf(Principal, "OptionsMenu").Click = OptionsMenuClicked;
    MenuOf(Principal, "HelpMenu").Click = HelpMenuClicked;
    MenuOf(Principal, "LanguageMenu").Click = LanguageMenuClicked;
    ListPcDrives();
    ShowStartFolder();
    ResizePrincipal(kFirstWidth, kFirstHeight);
}

bool StartUp() {
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
