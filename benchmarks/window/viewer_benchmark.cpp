// Drawing the viewer anew over a file of 16 MiB: one step of a scroll, in every character mode, at
// several zooms and width rules.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/screen.h"
#include "platform/qt/picture_text.h"
#include "platform/qt/qt_platform.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"
#include "workbench/start_up.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kFileSize = std::size_t{16} << 20;

/// Lines of 40 printable bytes, ended by CR.
std::string LongText() {
    std::string text;
    text.reserve(kFileSize);
    while (text.size() < kFileSize)
        text += text.size() % 41 == 40 ? '\r' : static_cast<char>('!' + text.size() % 90);
    return text;
}

constexpr std::array<const char*, 5> kZooms = {"7%", "25%", "50%", "100%", "2600%"};
constexpr std::array<const char*, 4> kWidths = {"13", "32", "256", "32000"};

void ShowLongFile() {
    Platform = QtPlatform();
    BuildPrincipal();
    Disk.PcFileBytes = LongText();
    ViewFile(PrincipalViewer, -1, kViewBinary);
}

/// Arguments: entry of `OpciónChar`, zoom, width (4 cuts at CR).
void ScrollViewer(benchmark::State& state) {
    ShowLongFile();
    WindowBusy = true;  // nothing is stored
    SetListIndex(PrincipalControl("OpciónChar"_w), static_cast<int>(state.range(0)));
    SetText(PrincipalControl("Zoom"), kZooms[static_cast<std::size_t>(state.range(1))]);
    const auto width = static_cast<std::size_t>(state.range(2));
    if (width < kWidths.size()) {
        SetText(PrincipalControl("Anchos"), kWidths[width]);
    } else {
        SetListIndex(PrincipalControl("Anchos"), 1);
    }
    WindowBusy = false;
    ViewFile(PrincipalViewer, -1);
    Control& bar = PrincipalControl("VScrollA");
    int row = 0;
    for (auto _ : state) {
        SetValue(bar, ++row % (bar.Maximum + 1));
        benchmark::DoNotOptimize(ImageOf(PrincipalViewer.Surface));
    }
    state.SetLabel(std::to_string(PrincipalViewer.Surface.Width) + "x" +
                   std::to_string(PrincipalViewer.Surface.Height) + " at " +
                   kZooms[static_cast<std::size_t>(state.range(1))]);
    Disk.PcFileBytes = {};
    PrincipalViewer.ViewerText = {};
}

BENCHMARK(ScrollViewer)
    ->ArgNames({"characters", "zoom", "width"})
    ->ArgsProduct({{0, 2, 3}, {0, 1, 2, 3, 4}, {0, 1, 3, 4}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
