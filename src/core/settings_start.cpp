#include "core/settings_start.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/languages.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "core/settings_text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kVersionBytes = 6;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// The settings folder, made with all that leads to it where it is missing.
std::string SettingsFolder() {
    const std::string folder = JoinPath(SettingsBaseFolder(), Disk.AppTitle);
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) return folder;
    std::filesystem::create_directories(folder, error);
    if (error) throw RuntimeFailure{error.value(), error.message()};
    return folder;
}

/// The version that wrote the file, or an empty text. Six bytes are looked at, so that a longer
/// version counts as another one by its first six.
std::string VersionOf(const std::string& settings) {
    static const std::string kKey = "Version=";
    const std::size_t found = settings.find(kKey);
    if (found == std::string::npos) return {};
    std::string version = settings.substr(found + kKey.size(), kVersionBytes);
    if (version.size() == kVersionBytes && version.back() == '\r') version.pop_back();
    return version;
}

Answer AskToReplace(const std::string& path) {
    const std::vector<std::string> lines = {
        "Nueva versión, se inicializará el archivo: "_w + path,
        "El anterior será guardado como .BAK"_w,
        "Por si necesita alguna opción modificada manualmente por Usted"_w,
        "",
        "New version, initialize the file: " + path,
        "The former will be saved as .BAK",
        "If you need any settings changed manually by you"};
    return Platform.ShowMessage(JoinText(lines, "\r\n"), Disk.AppTitle, Buttons::YesNoCancel,
                                MessageIcon::None);
}

/// Puts the old file aside. A copy that cannot be made does not keep the new version from
/// starting.
void KeepAsBackup(const std::string& path) {
    const std::string backup = path.substr(0, path.size() - 3) + "BAK";
    std::error_code ignored;
    std::filesystem::remove(backup, ignored);
    std::filesystem::rename(path, backup, ignored);
}

}  // namespace

std::string SettingsBaseFolder() {
    for (const char* name : {"appdata", "XDG_CONFIG_HOME"}) {
        std::string folder = Variable(name);
        if (!folder.empty()) return folder;
    }
    const std::string home = Variable("HOME");
    return home.empty() ? ".config" : JoinPath(home, ".config");
}

bool InitialiseSettings() {
    Disk.AppTitle = "Brindlemoor";
    Settings.SettingsPath = JoinPath(SettingsFolder(), "Brindlemoor.INI");
    const std::string& path = Settings.SettingsPath;

    const std::string settings = OpenOrMakeSettings(path);
    if (settings.empty()) {
        WriteSettings(path, DefaultSettingsText());
    } else if (VersionOf(settings) != ProgramVersion()) {
        const Answer answer = AskToReplace(path);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::Yes) {
            KeepAsBackup(path);
            WriteSettings(path, DefaultSettingsText());
        }
    }

    IniValue("General", "CurrentLanguage", Settings.CurrentLanguage, "");
    ApplyLanguage(Settings.CurrentLanguage);
    return true;
}

}  // namespace brindlemoor
