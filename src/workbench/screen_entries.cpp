#include "workbench/screen_entries.h"

#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "image/modified_state.h"
#include "workbench/archivos.h"
#include "workbench/directory_grid.h"
#include "workbench/fat_editor.h"
#include "workbench/paint_surface.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"
#include "workbench/sector_view.h"
#include "workbench/track_block.h"

namespace brindlemoor {

namespace {

constexpr std::int32_t kModifiedColour = 65535;
constexpr std::int32_t kUnchangedColour = 16777215;
constexpr std::size_t kReOpenItem = 3;
constexpr std::size_t kSaveItem = 5;

void ShowModified() {
    const bool modified = Disk.ImageModified != 0;
    ListDirec.BackColour = modified ? kModifiedColour : kUnchangedColour;
    PrincipalControl("UndoBtn").Enabled = modified;
    Menu& files = MenuOf(Principal, "FilesMenu");
    files.Items[kReOpenItem].Enabled = modified;
    files.Items[kSaveItem].Enabled = modified;
}

/// A bitmap that does not reach as far as the disk cannot be shown: the editor stays closed.
void EditFat() {
    const auto failure = FailureOfStep(LoadFatEditor);
    if (failure) {
        ShowFailure(*failure);
    } else {
        Platform.ShowModal("FatEditor");
    }
    RefreshModified();
}

std::function<void()> KeepSectorView() {
    const std::string track = PrincipalControl("Track").Text;
    const std::string sector = PrincipalControl("Sector").Text;
    const bool granule = PrincipalControl("Granulo").Visible;
    return [track, sector, granule] {
        SetText(PrincipalControl("Track"), track);
        SetText(PrincipalControl("Sector"), sector);
        PrincipalControl("Granulo").Visible = granule;
    };
}

/// A text that stands in the list chooses its entry; entries beyond the items stay.
void SetListItems(const std::string& name, const std::vector<std::string>& items) {
    Control& list = PrincipalControl(name);
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
        const std::string& item = items[static_cast<std::size_t>(index)];
        const bool chosen = item == list.Text && index < static_cast<int>(list.Items.size());
        if (chosen) SetListIndex(list, index);
        SetItem(list, index, item);
        if (item == list.Text && !chosen) SetListIndex(list, index);
    }
}

/// A list that no longer has, or does not have yet, the entry that was stored keeps its own.
void SetControlIndex(const std::string& name, int index) {
    Control& list = PrincipalControl(name);
    if (index >= -1 && index < static_cast<int>(list.Items.size())) SetListIndex(list, index);
}

void SetMenuItems(const std::string& name, const std::vector<std::string>& items) {
    Menu& menu = MenuOf(Principal, name);
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (index >= menu.Items.size()) {
            if (!menu.CanGrow) Fail(kIndexRange);
            menu.Items.emplace_back();
        }
        menu.Items[index].Caption = items[index];
        menu.Items[index].Tag = items[index];
    }
}

void SetLanguageMenu(const std::vector<std::string>& names,
                     const std::vector<std::string>& captions, const std::string& language) {
    Menu& menu = MenuOf(Principal, "LanguageMenu");
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (index >= menu.Items.size() || index >= captions.size()) Fail(kIndexRange);
        MenuItem& item = menu.Items[index];
        item.Tag = names[index];
        item.Caption = captions[index];
        item.Checked = names[index] == language;
        if (item.Checked) Settings.LanguageIndex = static_cast<int>(index);
    }
}

/// The elements whose mark in `selected` is set.
template <typename Element>
std::vector<Element> Chosen(const std::vector<Element>& all, const std::vector<bool>& selected) {
    std::vector<Element> chosen;
    for (std::size_t index = 0; index < all.size() && index < selected.size(); ++index) {
        if (selected[index]) chosen.push_back(all[index]);
    }
    return chosen;
}

void SetGridHeaders() {
    constexpr int kHeadersSet = 16;
    if (ListDirec.Columns.empty()) return;
    ListDirec.Redraw = false;
    for (int column = 1; column <= kHeadersSet; ++column) {
        const auto index = static_cast<std::size_t>(column) - 1;
        if (index >= Settings.ColumnHeaderList.size()) Fail(kIndexRange);
        ColumnOf(ListDirec, column).Header = Settings.ColumnHeaderList[index];
    }
}

}  // namespace

void ConnectScreen() {
    Screen = NoScreen();
    Screen.FillDirectoryGrid = FillDirectoryGrid;
    Screen.PaintTrackBlock = PaintTrackBlock;
    Screen.DrawSectorMap = DrawSectorMap;
    Screen.ShowSectorPlace = [](int track, int sector) {
        SetText(PrincipalControl("Track"), DecimalText(track));
        SetText(PrincipalControl("Sector"), DecimalText(sector));
    };
    Screen.ShowGranuleField = [](bool visible) { PrincipalControl("Granulo").Visible = visible; };
    Screen.KeepSectorView = KeepSectorView;
    Screen.ShowModified = ShowModified;
    Screen.OpenPaintSurface = OpenPaintSurface;
    Screen.RefreshPcFiles = RefreshPcFiles;
    Screen.EditFat = EditFat;
    Screen.PcListFolder = [] { return PrincipalControl("File1").Path; };
    Screen.PcListName = SelectedPcFile;
    Screen.PcSelectedNames = [] {
        const Control& files = PrincipalControl("File1");
        return Chosen(files.Items, files.ItemSelected);
    };
    Screen.SelectedRows = [] {
        std::vector<int> rows(static_cast<std::size_t>(Disk.DirRows));
        std::iota(rows.begin(), rows.end(), 0);
        return Chosen(rows, ListDirec.RowSelected);
    };
    Screen.ShowDetached = ShowArchivos;
    Screen.SetFilePath = [](const std::string& path) {
        SetText(PrincipalControl("FilePath"), path);
    };
    Screen.PathDskText = [] { return PrincipalControl("PathDsk").Text; };
    Screen.SetPathDsk = [](const std::string& path) { SetText(PrincipalControl("PathDsk"), path); };
    Screen.ViewFile = [](int newFile, int mode) { ViewFile(PrincipalViewer, newFile, mode); };
    Screen.SetCaptionAndTag = [](const std::string& name, const std::string& text) {
        Control& control = PrincipalControl(name);
        SetText(control, text);
        control.Tag = text;
    };
    Screen.SetListItems = SetListItems;
    Screen.SetMenuItems = SetMenuItems;
    Screen.SetLanguageMenu = SetLanguageMenu;
    Screen.SetControlIndex = SetControlIndex;
    Screen.SetControlText = [](const std::string& name, const std::string& text) {
        SetText(PrincipalControl(name), text);
    };
    Screen.SetAlternateRowColour = [](std::int32_t colour) {
        ListDirec.AlternateRowBackColour = colour;
    };
    Screen.SetGridHeaders = SetGridHeaders;
}

}  // namespace brindlemoor
