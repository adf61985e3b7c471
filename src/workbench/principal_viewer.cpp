#include "workbench/principal_viewer.h"

#include <array>
#include <string_view>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "workbench/principal.h"
#include "workbench/viewer_events.h"

namespace brindlemoor {

Viewer PrincipalViewer;

namespace {

constexpr double kHighestZoom = 2600;  ///< percent

struct ExtensionRow {
    std::string_view Ext;
    CharacterMode Characters;
};

constexpr std::array<ExtensionRow, 3> kCharactersByExtension = {
    {{"BIN", kCocoCharacters}, {"BAS", kCocoBasicCharacters}, {"MAX", kCocoMaxPicture}}};

/// The choice is stored as any other, but nothing is drawn: the file of that kind is yet to come.
void ChooseCharacters(CharacterMode characters) {
    Control& list = PrincipalControl("OpciónChar"_w);
    if (list.ListIndex == characters) return;
    PrincipalViewer.ViewerBusy = true;
    SetListIndex(list, characters);
    PrincipalViewer.ViewerBusy = false;
    StoreSetting("OpciónCharActual"_w, DecimalText(list.ListIndex));
}

}  // namespace

void BuildPrincipalViewer() {
    PrincipalViewer = Viewer();
    PrincipalViewer.Owner = &Principal;
    PrincipalViewer.FileBytes = &Disk.PcFileBytes;
    PrincipalViewer.HighestZoom = kHighestZoom;
    ConnectViewer(PrincipalViewer);
}

void ViewDirectoryRow(int row) {
    const DirEntry& entry = DirTable[row];
    Disk.DirCount = row;
    Disk.PcFileBytes = entry.Content;
    for (const ExtensionRow& known : kCharactersByExtension) {
        if (entry.Ext == known.Ext) ChooseCharacters(known.Characters);
    }
    ViewFile(PrincipalViewer, -1, entry.FileType);
}

}  // namespace brindlemoor
