#include "window_fixture.h"

#include <QTest>
#include <filesystem>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "core/settings.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shell.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "workbench/acerca.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace brindlemoor::test {

namespace fs = std::filesystem;

namespace {

std::string CocoDisk() {
    DecbBuilder disk;
    disk.File(0, "ALPHA   ", "BAS", 0, 0, {10}, Pattern(300, 1));
    disk.File(1, "BETA    ", "BIN", 2, 0, {11}, Pattern(700, 2));
    disk.Slot(2, "GONE    ", "DAT", 1, 0, 12, 10).Delete(2);
    disk.File(3, "GAMMA   ", "TXT", 3, 255, {13, 14}, Pattern(3000, 3));
    return disk.Image();
}

std::string OtherDisk() {
    DecbBuilder disk;
    disk.File(0, "SINGLE  ", "BAS", 0, 0, {20}, Pattern(100, 4));
    return disk.Image();
}

}  // namespace

void WindowTest::SetUp() {
    SettingsTest::SetUp();
    startedIn_ = fs::current_path().string();
    const fs::path folder = fs::canonical(Base) / "pc";
    fs::create_directories(folder);
    fs::current_path(folder);
    PcFolder = folder.string();
    WriteTestFile(PcFolder, "COCO.DSK", CocoDisk());
    WriteTestFile(PcFolder, "OTHER.DSK", OtherDisk());
    WriteTestFile(PcFolder, "NOTE.TXT", "a text");
    StartProgram();
}

void WindowTest::TearDown() {
    EndProgram();
    fs::current_path(startedIn_);
    SettingsTest::TearDown();
}

void WindowTest::StartProgram() {
    ExitCode = -1;
    Shell = ShellState();
    Shell.Quit = [this](int code) { ExitCode = code; };
    Platform = QtPlatform();
    BuildPrincipal();
    BuildAcerca();
    Window_ = MakeMainWindow();
    bool started = false;
    UserAction([&started] { started = StartUp(); });
    ASSERT_TRUE(started);
    Window_.Widget->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window_.Widget.get()));
}

void WindowTest::EndProgram() {
    Window_ = MainWindow();
    Shell = ShellState();
    Settings = SettingsState();
    Disk = DiskState();
    DirTable.Wipe();
    WindowBusy = false;
    Platform = SilentPlatform();
    Screen = NoScreen();
    Principal = Window();
    ListDirec = Grid();
}

void WindowTest::Press(QWidget* button) {
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(10, button->height() / 2));
}

void WindowTest::ClickFile(const std::string& name) const {
    QListWidget* list = Files();
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->text().toStdString() != name) continue;
        const QRect place = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
        return;
    }
    ADD_FAILURE() << name << " is not in the list";
}

std::string WindowTest::Cell(int row, int column) const {
    const QAbstractItemModel* model = Directory()->model();
    return model->index(row, column - 1).data().toString().toStdString();
}

std::string WindowTest::Stored(const std::string& key) const {
    for (const std::string& line : SplitText(SettingsFile(), "\r\n")) {
        if (line.compare(0, key.size() + 1, key + "=") == 0) return line.substr(key.size() + 1);
    }
    return "(none)";
}

}  // namespace brindlemoor::test
