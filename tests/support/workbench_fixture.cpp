#include "support/workbench_fixture.h"

#include <filesystem>

#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_text.h"
#include "image/pc_file.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace brindlemoor::test {

namespace fs = std::filesystem;

void WorkbenchTest::SetUp() {
    SettingsTest::SetUp();
    startedIn_ = fs::current_path().string();
    const fs::path folder = fs::canonical(Base) / "pc";
    fs::create_directories(folder);
    fs::current_path(folder);
    PcFolder = folder.string();
    BuildAgain();
}

void WorkbenchTest::TearDown() {
    fs::current_path(startedIn_);
    Principal = Window();
    ListDirec = Grid();
    DirTable.Wipe();
    SettingsTest::TearDown();
}

void WorkbenchTest::BuildAgain() {
    Settings = SettingsState();
    Disk = DiskState();
    DirTable.Wipe();
    VhdReply.clear();
    WindowBusy = false;
    Platform = ScriptedPlatform(script_);
    BuildPrincipal();
}

void WorkbenchTest::Start() {
    ASSERT_TRUE(StartUp());
}

std::string WorkbenchTest::Stored(const std::string& key) const {
    for (const std::string& line : SplitText(SettingsFile(), "\r\n")) {
        if (line.compare(0, key.size() + 1, key + "=") == 0) return line.substr(key.size() + 1);
    }
    return "(none)";
}

void WorkbenchTest::GiveDefaultSettings(const std::string& from, const std::string& to) {
    const std::string text = DefaultSettingsText();
    if (!from.empty()) {
        ASSERT_NE(text.find(from), std::string::npos) << from;
    }
    GiveSettings(from.empty() ? text : ReplaceText(text, from, to));
}

void DirectoryTest::SetUp() {
    WorkbenchTest::SetUp();
    Start();
    NewDirectory(kDecb);
}

DirEntry& DirectoryTest::AddEntry(const std::string& name, const std::string& ext) {
    DirEntry& entry = DirTable[Disk.DirRows];
    ++Disk.DirRows;
    entry.Name = name;
    entry.Ext = ext;
    return entry;
}

void DirectoryTest::NewDirectory(Family family) {
    ResetDisk();
    Disk.TotalUnits = 0;
    Disk.DiskFamily = family;
    Disk.ImageBytes.clear();
    Disk.ImageOnOpen.clear();
}

std::string DirectoryTest::Shown(int row, int column) {
    return ShownText(ListDirec, CellOf(ListDirec, row, column), column);
}

const GridCell& DirectoryTest::Cell(int row, int column) {
    return CellOf(ListDirec, row, column);
}

std::string DirectoryTest::ShownColumns() {
    std::string numbers;
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        if (ColumnOf(ListDirec, column).Visible) numbers += DecimalText(column) + " ";
    }
    return numbers;
}

}  // namespace brindlemoor::test
