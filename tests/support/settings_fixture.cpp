#include "support/settings_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "core/settings.h"

namespace brindlemoor::test {

namespace {

// Tests run as processes beside each other, all in the same temporary folder.
int ProcessNumber() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
}

void ResetState() {
    Settings = SettingsState();
    Disk = DiskState();
    Platform = SilentPlatform();
    Screen = NoScreen();
    WindowBusy = false;
}

std::filesystem::path FileOf(const std::string& base, const std::string& name) {
    return std::filesystem::path(base) / "Brindlemoor" / name;
}

}  // namespace

void SetVariable(const std::string& name, const std::string& value) {
#ifdef _WIN32
    _putenv_s(name.c_str(), value.c_str());
#else
    if (value.empty()) {
        unsetenv(name.c_str());
    } else {
        setenv(name.c_str(), value.c_str(), 1);
    }
#endif
}

void SettingsTest::SetUp() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = test->name();
    for (char& letter : name) letter = letter == '/' ? '_' : letter;  // of a test with parameters
    Base = testing::TempDir() + "brindlemoor-" + std::to_string(ProcessNumber()) + "-" + name;
    std::filesystem::remove_all(Base);
    std::filesystem::create_directories(Base);
    SetVariable("appdata", Base);
    ResetState();
}

void SettingsTest::TearDown() {
    ResetState();
    SetVariable("appdata", "");
    std::filesystem::remove_all(Base);
}

void SettingsTest::GiveSettings(const std::string& text) {
    std::filesystem::create_directories(FileOf(Base, ""));
    WriteFile("Brindlemoor.INI", text);
    Settings.SettingsPath = FileOf(Base, "Brindlemoor.INI").string();
}

std::string SettingsTest::SettingsFile(const std::string& name) const {
    std::ifstream file(FileOf(Base, name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void SettingsTest::WriteFile(const std::string& name, const std::string& text) const {
    std::ofstream file(FileOf(Base, name), std::ios::binary);
    file << text;
}

bool SettingsTest::HasFile(const std::string& name) const {
    return std::filesystem::exists(FileOf(Base, name));
}

}  // namespace brindlemoor::test
