#include "workbench/file_popup.h"

#include <algorithm>
#include <string>
#include <vector>

#include "convert/file_commands.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kFilesMessage = 5;  ///< the word behind a number of files
constexpr int kToMessage = 40;    ///< the word between what is copied and where it goes
constexpr std::size_t kConvertItem = 5;

const std::vector<bool>& SelectionOf(std::int16_t side) {
    return side == kPcSide ? PrincipalControl("File1").ItemSelected : ListDirec.RowSelected;
}

/// The name of the first entry selected; there is one.
std::string SelectedName(std::int16_t side) {
    const std::vector<bool>& selection = SelectionOf(side);
    const auto index = std::find(selection.begin(), selection.end(), true) - selection.begin();
    if (side == kDiskSide) return DirTable[static_cast<int>(index)].FullName;
    return PrincipalControl("File1").Items.at(static_cast<std::size_t>(index));
}

/// What stands between an item's text and what is selected: where the latter goes.
std::string DirectionOf(std::size_t item, const std::string& otherSide) {
    const std::string to = " " + MessageText(kToMessage);
    if (item == kConvertItem) return to;
    return item == static_cast<std::size_t>(kSaveCommand) ? to + otherSide : std::string();
}

void WriteCaptions(const std::string& label, const std::string& otherSide) {
    Menu& menu = MenuOf(Principal, "PopMenu");
    for (std::size_t index = 0; index < menu.Items.size(); ++index) {
        MenuItem& item = menu.Items[index];
        item.Caption = item.Tag;
        if (item.Tag == "-") continue;
        item.Caption += " ";
        item.Caption += DirectionOf(index, otherSide);
        item.Caption += label;
    }
}

bool FileListKey(int key) {
    if (key != kKeyDelete) return false;
    ItemOf(MenuOf(Principal, "PopMenu"), kDeleteCommand).Tag = "Borrar PC";
    DeleteByKey(kPcSide);
    return true;
}

}  // namespace

int SelectedCount(std::int16_t side) {
    const std::vector<bool>& selection = SelectionOf(side);
    return static_cast<int>(std::count(selection.begin(), selection.end(), true));
}

void ShowFilePopup(std::int16_t side) {
    const int count = SelectedCount(side);
    if (count == 0) return;
    PopupSide = side;
    const std::string label =
        count == 1 ? SelectedName(side) : DecimalText(count) + MessageText(kFilesMessage);
    WriteCaptions(" " + label, side == kPcSide ? " Virtual" : " PC");
    Platform.PopupMenu("MenuPop");
}

void DeleteByKey(std::int16_t side) {
    PopupSide = side;
    RunFileCommand(kDeleteCommand);
}

void ConnectFilePopup() {
    PopupSide = kPcSide;
    PrincipalControl("File1").RightClick = [] { ShowFilePopup(kPcSide); };
    PrincipalControl("ListDirec").RightClick = [] { ShowFilePopup(kDiskSide); };
    PrincipalControl("File1").Key = FileListKey;
    MenuOf(Principal, "PopMenu").Click = [](int index) { RunFileCommand(index); };
    MenuOf(Principal, "ConvMenu").Click = [](int index) {
        RunFileCommand(kFirstConversion + index);
    };
}

}  // namespace brindlemoor
