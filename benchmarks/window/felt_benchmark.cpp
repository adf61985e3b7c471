// What a user waits for, in the real window: from the key or the button until the window has
// painted what came of it. Nothing of the way is left out.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "convert/cas.h"
#include "convert/file_commands.h"
#include "core/disk_state.h"
#include "core/settings.h"
#include "image/modified_state.h"
#include "plain_copy.h"
#include "platform/qt/shell.h"
#include "real_window.h"
#include "synthetic_disks.h"
#include "workbench/control.h"
#include "workbench/principal.h"

namespace brindlemoor::benchmarks {
namespace {

/// The places in the menus of what is measured here.
constexpr int kSaveItem = 5;
constexpr int kSoundConversion = kFirstConversion + 4;

std::string TestFile(const std::string& name) {
    const std::string path = std::string(BRINDLEMOOR_TEST_DATA) + "/" + name;
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string DecbDisk() {
    return TestFile("decb/decb35-full.dsk");
}

std::string DecbDiskOfManyFiles() {
    return TestFile("decb/decb35-fulldir.dsk");
}

using Bytes = std::string (*)();

/// A window with the disk open, and another disk, "OTHER.DSK", beside it.
void Open(const RealWindow& window, const std::string& disk) {
    window.Give("DISK.DSK", disk);
    window.Give("OTHER.DSK", DecbDisk());
    window.ListFolder();
    window.SecondsUntilPainted([&] { window.ClickFile("DISK.DSK"); });
    if (Disk.DirRows < 2) throw std::runtime_error("the disk was not opened");
}

/// The times of one benchmark's turns.
class Turns {
  public:
    explicit Turns(benchmark::State& state) : state_(state) {}

    void Add(double seconds) {
        state_.SetIterationTime(seconds);
        quickest_ = std::min(quickest_, seconds);
    }

    /// How many bytes one turn went through, and how many plain copies of them, of so many seconds,
    /// fit into the quickest turn.
    void SetSize(std::size_t bytes, double copySeconds) {
        state_.SetBytesProcessed(state_.iterations() * static_cast<std::int64_t>(bytes));
        state_.counters["times_copy"] = quickest_ / copySeconds;
    }

  private:
    benchmark::State& state_;
    double quickest_ = 1e9;
};

/// Clicks an image while another stands open.
void OpenByClick(benchmark::State& state, Bytes disk) {
    const RealWindow window;
    const std::string bytes = disk();
    Open(window, bytes);
    Turns turns(state);
    for (auto _ : state) {
        window.SecondsUntilPainted([&] { window.ClickFile("OTHER.DSK"); });
        turns.Add(window.SecondsUntilPainted([&] { window.ClickFile("DISK.DSK"); }));
    }
    turns.SetSize(bytes.size(), CopySeconds(bytes));
}

/// Goes down the directory by a row: mark, viewer, map and sector follow.
void GoToNextRow(benchmark::State& state, Bytes disk) {
    const RealWindow window;
    Open(window, disk());
    QTableView* directory = window.Directory();
    directory->setFocus();
    PressAndRelease(directory, directory->model()->index(0, 0));
    for (auto _ : state) {
        if (directory->currentIndex().row() + 1 >= directory->model()->rowCount()) {
            directory->scrollToTop();
            PressAndRelease(directory, directory->model()->index(0, 0));
        }
        state.SetIterationTime(window.SecondsUntilPainted([&] { Key(directory, Qt::Key_Down); }));
    }
}

/// Scrolls by a page, to the end and back.
void ScrollByPage(benchmark::State& state, const RealWindow& window, QAbstractItemView* view) {
    QScrollBar* bar = view->verticalScrollBar();
    auto direction = QAbstractSlider::SliderPageStepAdd;
    for (auto _ : state) {
        if (bar->value() >= bar->maximum()) direction = QAbstractSlider::SliderPageStepSub;
        if (bar->value() <= bar->minimum()) direction = QAbstractSlider::SliderPageStepAdd;
        state.SetIterationTime(window.SecondsUntilPainted([&] { bar->triggerAction(direction); }));
    }
}

void ScrollDirectory(benchmark::State& state) {
    const RealWindow window;
    Open(window, Os9HardDisk());
    ScrollByPage(state, window, window.Directory());
}

/// A folder with so many images, each of a byte: what a collection looks like.
void GiveCollection(const RealWindow& window, std::int64_t images) {
    for (std::int64_t image = 0; image < images; ++image) {
        window.Give("IMAGE " + std::to_string(100000 + image) + ".DSK", "x");
    }
}

void ListFolder(benchmark::State& state) {
    const RealWindow window;
    GiveCollection(window, state.range(0));
    window.ListFolder();
    for (auto _ : state) {
        state.SetIterationTime(window.SecondsUntilPainted([&] { window.ListFolder(); }));
    }
}

void ScrollFiles(benchmark::State& state) {
    const RealWindow window;
    GiveCollection(window, state.range(0));
    window.ListFolder();
    ScrollByPage(state, window, window.Files());
}

/// Saves an image of which a byte has changed.
void Save(benchmark::State& state, Bytes disk, void (*save)()) {
    const RealWindow window;
    const std::string bytes = disk();
    Open(window, bytes);
    Turns turns(state);
    for (auto _ : state) {
        Disk.ImageBytes.back() = static_cast<char>(Disk.ImageBytes.back() + 1);
        UserAction(RefreshModified);
        turns.Add(window.SecondsUntilPainted([save] { UserAction(save); }));
    }
    turns.SetSize(bytes.size(), WriteSeconds(bytes, window.Folder()));
}

void SaveByMenu(benchmark::State& state, Bytes disk) {
    Save(state, disk, [] { MenuOf(Principal, "FilesMenu").Click(kSaveItem); });
}

/// The button writes directory, table and files anew first.
void SaveByButton(benchmark::State& state, Bytes disk) {
    Save(state, disk, [] { PrincipalControl("SaveBtn").Click(); });
}

std::ptrdiff_t FilesIn(const RealWindow& window, const std::string& folder) {
    return std::distance(std::filesystem::directory_iterator(window.Folder() + "/" + folder), {});
}

/// True when a conversion made a new file, or changed its source.
bool MadeSomething(const RealWindow& window, const std::string& name, const std::string& bytes) {
    if (FilesIn(window, "disks") > 1) return true;
    std::ifstream file(window.Folder() + "/disks/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {}) != bytes;
}

/// A file command on what is selected, until its files lie in the folder.
double CommandSeconds(std::int16_t side, int command) {
    const auto start = std::chrono::steady_clock::now();
    PopupSide = side;
    UserAction([command] { RunFileCommand(command); });
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The bytes of all files of the open disk.
std::string BytesOfAllFiles() {
    std::string bytes;
    for (int row = 0; row < kDirTableRows; ++row) bytes += DirTable[row].Content;
    return bytes;
}

/// The save command on all files of the disk, until the PC's disk keeps them.
void CopyAllOut(benchmark::State& state, Bytes disk) {
    const RealWindow window;
    Open(window, disk());
    QTableView* directory = window.Directory();
    PressAndRelease(directory, directory->model()->index(0, 0));
    directory->scrollToBottom();
    PressAndRelease(directory, directory->model()->index(directory->model()->rowCount() - 1, 0),
                    Qt::ShiftModifier);
    sync();  // what other benchmarks wrote is not to be waited for here
    std::string folder;
    int turn = 0;
    Turns turns(state);
    for (auto _ : state) {
        // An empty one each time: to delete what the turn before made slows the system down.
        folder = "turn " + std::to_string(++turn);
        window.ListEmptyFolder(folder);
        turns.Add(CommandSeconds(kDiskSide, kSaveCommand));
    }
    state.counters["files"] = static_cast<double>(FilesIn(window, folder));
    const std::string bytes = BytesOfAllFiles();
    turns.SetSize(bytes.size(), WriteSeconds(bytes, window.Folder()));
}

/// A command of the menu on a file of the PC, until its result lies in the folder.
void Convert(benchmark::State& state, const std::string& name, Bytes file, int command) {
    const RealWindow window;
    const std::string bytes = file();
    Turns turns(state);
    for (auto _ : state) {
        window.Clear();
        window.Give(name, bytes);
        window.ListFolder();
        window.SecondsUntilPainted([&] { window.ClickFile(name); });
        turns.Add(CommandSeconds(kPcSide, command));
        if (!MadeSomething(window, name, bytes)) state.SkipWithError("nothing was made");
    }
    turns.SetSize(bytes.size(), WriteSeconds(bytes, window.Folder()));
}

/// A program of 800 lines for a Color Computer, in tokens, 19,205 bytes.
std::string Program() {
    constexpr int kPrint = 0x87;
    constexpr int kFirstAddress = 0x2601;
    const auto word = [](int value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
    };
    std::string lines;
    for (int line = 1; line <= 800; ++line) {
        const std::string body =
            static_cast<char>(kPrint) + std::string(" \"HELLO WORLD\";A+B") + '\0';
        const int next = kFirstAddress + static_cast<int>(lines.size() + 4 + body.size());
        lines += word(next) + word(line * 10) + body;
    }
    lines.append(2, '\0');
    return '\xFF' + word(static_cast<int>(lines.size())) + lines;
}

/// The tape of a program of 30,000 bytes.
std::string Tape() {
    Disk.DiskFamily = kDecb;
    std::string silence = "1";  // seconds; sound that begins at once cannot be made
    IniValue("Audio Options", "SilenceStart", silence, "G");
    std::string name = "PROGRAM";
    std::int16_t type = 0;
    std::int16_t flag = 0;
    std::int16_t gap = 0;
    std::string file = std::string("\xFF\0\0", 3) + std::string(30000, 'x');
    return CasConvert(file, name, type, flag, gap, 0, 0);
}

std::string Recording() {
    return TestFile("tape/cecb-44100.wav");
}

void Felt(benchmark::internal::Benchmark* made) {
    made->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(OpenByClick, disk_basic, DecbDiskOfManyFiles)->Apply(Felt);
BENCHMARK_CAPTURE(OpenByClick, dragon, DragonDisk)->Apply(Felt);
BENCHMARK_CAPTURE(OpenByClick, os9_hard_disk, Os9HardDisk)->Apply(Felt);
BENCHMARK_CAPTURE(OpenByClick, flex, FlexDisk)->Apply(Felt);
BENCHMARK_CAPTURE(GoToNextRow, disk_basic, DecbDiskOfManyFiles)->Apply(Felt);
BENCHMARK_CAPTURE(GoToNextRow, os9_hard_disk, Os9HardDisk)->Apply(Felt);
BENCHMARK(ScrollDirectory)->Apply(Felt);
BENCHMARK(ListFolder)->Arg(200)->Arg(5000)->Apply(Felt);
BENCHMARK(ScrollFiles)->Arg(5000)->Apply(Felt);
BENCHMARK_CAPTURE(SaveByMenu, disk_basic, DecbDiskOfManyFiles)->Apply(Felt);
BENCHMARK_CAPTURE(SaveByMenu, os9_hard_disk, Os9HardDisk)->Apply(Felt);
BENCHMARK_CAPTURE(SaveByButton, disk_basic, DecbDiskOfManyFiles)->Apply(Felt);
BENCHMARK_CAPTURE(CopyAllOut, disk_basic, DecbDiskOfManyFiles)->Apply(Felt);
BENCHMARK_CAPTURE(CopyAllOut, os9_hard_disk, Os9HardDisk)->Iterations(3)->Apply(Felt);
BENCHMARK_CAPTURE(Convert, basic_to_text, "PROG.BAS", Program, kFirstConversion)->Apply(Felt);
BENCHMARK_CAPTURE(Convert, tape_to_sound, "TAPE.CAS", Tape, kSoundConversion)->Apply(Felt);
BENCHMARK_CAPTURE(Convert, sound_to_tape, "TAPE.WAV", Recording, kSoundConversion)->Apply(Felt);

}  // namespace
}  // namespace brindlemoor::benchmarks
