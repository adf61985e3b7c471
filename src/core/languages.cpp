#include "core/languages.h"

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMessageCount = 161;

/// The line that ends the part of a language section which is put into effect here: the audio
/// window reads its own texts behind it.
constexpr const char* kAudioPart = "Audio Convert";

constexpr const char* kComboBoxes = "VerAsc,Anchos,DirPattern";

struct ColourKey {
    const char* Key;
    ColourOptionIndex Option;
    std::int32_t Default;
};

// The first key is spelled with a small g in a new settings file, so that its entry is filled only
// from a file edited by hand.
constexpr ColourKey kColourKeys[] = {
    {"AlternateRowBackGroundColor", kAlternateRowColour, 15138044},
    {"SectorErrorColor", kSectorErrorColour, 13158655},
    {"ContinueDirEntryColor", kContinuationColour, 13158600},
};

/// Keeps the change routines of the window's controls quiet, also when a line fails.
struct BusyWindow {
    BusyWindow() { WindowBusy = true; }
    ~BusyWindow() { WindowBusy = false; }
    BusyWindow(const BusyWindow&) = delete;
    BusyWindow& operator=(const BusyWindow&) = delete;
};

/// One walk through the settings file.
struct LanguageWalk {
    std::string Language;
    bool Inside = false;             ///< in the part of the section that is put into effect
    std::size_t MessagesRead = 0;    ///< messages go by their count, whatever number they bear
    std::vector<std::string> Names;  ///< the language sections, from `Languages`
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

bool BeginsWith(const std::string& line, const std::string& start) {
    return line.compare(0, start.size(), start) == 0;
}

void ApplyColour(const std::string& key, const std::string& value) {
    for (const ColourKey& colour : kColourKeys) {
        if (key != colour.Key) continue;
        const std::int32_t number = WholeNumber32(TextAsNumber(value));
        Settings.ColourOptions[colour.Option] = {key, number, colour.Default};
        if (colour.Option == kAlternateRowColour) Screen.SetAlternateRowColour(number);
    }
}

/// The keys that count in whatever section they stand.
void ApplySetting(LanguageWalk& walk, const std::string& key, const std::string& value) {
    if (key == "VisibleColumns") {
        Settings.VisibleColumnsList = SplitText(value, ",");
    } else if (key == "ColumnWidths") {
        Settings.ColumnWidthList = SplitText(value, ",");
    } else if (key == "ColumnOrder") {
        Settings.ColumnOrderList = SplitText(value, ",");
    } else if (key == "Languages") {
        walk.Names = SplitText(value, ",");
    } else if (key == "MuestraActual") {
        Screen.SetControlIndex("DirPattern", TextAsInteger(value));
    } else if (key == "AnchoActual") {
        Screen.SetControlText("Anchos", value);
    } else if (key == "VerAscActual") {
        Screen.SetControlIndex("VerAsc", TextAsInteger(value));
    } else if (key == "OpciónCharActual"_w) {
        Screen.SetControlIndex("OpciónChar"_w, TextAsInteger(value));
    } else {
        ApplyColour(key, value);
    }
}

void StoreMessage(LanguageWalk& walk, const std::string& text) {
    if (walk.MessagesRead >= kMessageCount) Fail(kIndexRange);
    Disk.Messages[walk.MessagesRead] = text;
    ++walk.MessagesRead;
}

void ApplyLanguageMenu(const LanguageWalk& walk, const std::vector<std::string>& captions) {
    Screen.SetLanguageMenu(walk.Names, captions, walk.Language);
    for (std::size_t i = 0; i < walk.Names.size(); ++i) {
        if (walk.Names[i] == walk.Language) Settings.LanguageIndex = static_cast<int>(i);
    }
}

void ApplyText(LanguageWalk& walk, const std::string& line, const std::string& key,
               const std::string& value) {
    if (key == "ColumnsHeader") {
        Settings.ColumnHeaderList = SplitText(value, ",");
    } else if (BeginsWith(line, "Mensaje")) {
        StoreMessage(walk, value);
    } else if (Contains(kComboBoxes, key)) {
        Screen.SetListItems(key, SplitText(value, ","));
    } else if (key == "LanguageMenu") {
        ApplyLanguageMenu(walk, SplitText(value, ","));
    } else if (Contains(key, "Menu")) {
        Screen.SetMenuItems(key, SplitText(value, ","));
    } else {
        Screen.SetCaptionAndTag(key, value);
    }
}

void ApplyLine(LanguageWalk& walk, const std::string& line) {
    if (Contains(line, kAudioPart)) {
        walk.Inside = false;
        return;
    }
    if (line.empty() || line.front() == '\'') return;

    const std::size_t equals = line.find('=');
    const std::string key = line.substr(0, equals);
    const std::string value = equals == std::string::npos ? "" : line.substr(equals + 1);
    ApplySetting(walk, key, value);
    if (line.front() == '[') walk.Inside = false;
    if (walk.Inside) ApplyText(walk, line, key, value);
    if (BeginsWith(line, "[" + walk.Language + "]")) walk.Inside = true;
}

}  // namespace

void ApplyLanguage(const std::string& language) {
    const std::vector<std::string> lines = SplitText(ReadSettings(Settings.SettingsPath), "\r\n");
    {
        const BusyWindow busy;
        Disk.Messages.resize(kMessageCount);
        LanguageWalk walk;
        walk.Language = language;
        for (const std::string& line : lines) ApplyLine(walk, line);
    }
    Screen.SetGridHeaders();
}

void ChooseLanguage(const std::string& language) {
    Settings.CurrentLanguage = language;
    ApplyLanguage(language);
    StoreSetting("CurrentLanguage", language);
    Screen.FillDirectoryGrid();
}

}  // namespace brindlemoor
