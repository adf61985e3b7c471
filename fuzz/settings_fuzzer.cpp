// The input is the settings file. It goes through the start-up's version test, the language walk
// into a freshly built main window, and reads and writes of single keys.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "core/disk_state.h"
#include "core/languages.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_start.h"
#include "memory_folder.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace {

/// The settings file that every input is written to.
std::filesystem::path SettingsFile() {
    static const brindlemoor::MemoryFolder folder;
    const std::filesystem::path settings = folder.Base / "Brindlemoor";
    std::filesystem::create_directories(settings);
    setenv("appdata", folder.Base.c_str(), 1);
    return settings / "Brindlemoor.INI";
}

/// The main window as it is designed. Building it looks at the drives and folders of the PC, so
/// that is done once; every input finds a copy. Its list of files is that of a folder of ours:
/// every pattern in the settings fills it anew.
void RestorePrincipal() {
    using namespace brindlemoor;
    static const auto built = [] {
        BuildPrincipal();
        ShowPcFolder(SettingsFile().parent_path().string());
        return std::pair(Principal, ListDirec);
    }();
    Principal = built.first;
    ListDirec = built.second;
}

void UseSettings() {
    using namespace brindlemoor;
    if (!InitialiseSettings()) return;
    std::string value;
    IniValue("General", "ColumnWidths", value, "");
    IniValue("Audio Options", "WavFormat", value, "");
    value = "a=b";
    IniValue("Spanish", "Mensaje40", value, "G");
    IniValue("No such section", "Key", value, "");
    Settings.SettingsCacheMark.clear();
    IniValue("General", "Version", value, "");
    ApplyLanguage("Spanish");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindlemoor;
    static const std::filesystem::path file = SettingsFile();
    Settings = SettingsState();
    Disk = DiskState();
    WindowBusy = false;
    Platform = SilentPlatform();
    // The question whether to replace a file of another version: No keeps the input.
    Platform.ShowMessage = [](const std::string&, const std::string&, Buttons, MessageIcon) {
        return Answer::No;
    };
    RestorePrincipal();
    std::ofstream(file, std::ios::binary) << std::string(data, data + size);
    try {
        UseSettings();
    } catch (const RuntimeFailure&) {
        // A file that the rules call broken.
    }
    return 0;
}
