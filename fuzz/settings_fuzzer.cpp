// The input is the settings file. It goes through the start-up's version test, the language walk
// into a freshly built main window, and reads and writes of single keys.

#include <unistd.h>

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
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace {

/// A settings folder of this process's own, which goes with it.
struct SettingsFolder {
    SettingsFolder() {
        // In memory where the system has such a folder: every input is written many times.
        const std::filesystem::path memory = "/dev/shm";
        Base = (std::filesystem::is_directory(memory) ? memory
                                                      : std::filesystem::temp_directory_path()) /
               ("brindlemoor-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(Base / "Brindlemoor");
        setenv("appdata", Base.c_str(), 1);
    }
    ~SettingsFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Base, ignored);
    }
    SettingsFolder(const SettingsFolder&) = delete;
    SettingsFolder& operator=(const SettingsFolder&) = delete;

    std::filesystem::path Base;
};

/// The main window as it is designed. Building it looks at the drives and folders of the PC, so
/// that is done once; every input finds a copy.
void RestorePrincipal() {
    using namespace brindlemoor;
    static const auto built = [] {
        BuildPrincipal();
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
    static const SettingsFolder folder;
    Settings = SettingsState();
    Disk = DiskState();
    WindowBusy = false;
    Platform = SilentPlatform();
    // The question whether to replace a file of another version: No keeps the input.
    Platform.ShowMessage = [](const std::string&, const std::string&, Buttons, MessageIcon) {
        return Answer::No;
    };
    RestorePrincipal();
    std::ofstream(folder.Base / "Brindlemoor" / "Brindlemoor.INI", std::ios::binary)
        << std::string(data, data + size);
    try {
        UseSettings();
    } catch (const RuntimeFailure&) {
        // A file that the rules call broken.
    }
    return 0;
}
