#include "workbench/principal_menus.h"

#include <iterator>
#include <string>

#include "core/languages.h"
#include "core/platform.h"
#include "core/settings.h"
#include "image/modified_state.h"
#include "workbench/acerca.h"
#include "workbench/audio_convert.h"
#include "workbench/colour_options.h"
#include "workbench/header_info.h"
#include "workbench/help_text.h"
#include "workbench/info_nitros.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

enum OptionsItem : int { kColours = 1, kHeader = 2, kOs9Info = 3, kAudio = 4 };

/// Fills a window with what it is about to show.
void FillWindow(int index) {
    if (index == kColours) OpenColourOptions();
    if (index == kHeader) OpenHeaderInfo();
    if (index == kOs9Info) LoadInfoDialog();
    if (index == kAudio) OpenAudioConvert();
}

/// Item 0 leads to the menu of the languages. The two windows that edit the open image show
/// afterwards whether it differs from its file.
void OptionsMenuClicked(int index) {
    static constexpr const char* kWindows[] = {"",           "Opciones",     "HeaderInfo",
                                               "InfoNitros", "AudioConvert", "frmOptions"};
    if (index < 1 || index >= static_cast<int>(std::size(kWindows))) return;
    FillWindow(index);
    Platform.ShowModal(kWindows[index]);
    if (index == kHeader || index == kOs9Info) RefreshModified();
}

void HelpMenuClicked(int index) {
    Menu& languages = MenuOf(Principal, "LanguageMenu");
    if (index == 0) {
        const MenuItem& checked = ItemOf(languages, Settings.LanguageIndex);
        OpenHelpText(checked.Caption);
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

}  // namespace

void ConnectMenus() {
    MenuOf(Principal, "OptionsMenu").Click = OptionsMenuClicked;
    MenuOf(Principal, "HelpMenu").Click = HelpMenuClicked;
    MenuOf(Principal, "LanguageMenu").Click = LanguageMenuClicked;
}

}  // namespace brindlemoor
