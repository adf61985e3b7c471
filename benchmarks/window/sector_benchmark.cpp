// The sector view with its real text, alone and behind the mouse in the real window.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "platform/qt/main_window.h"
#include "platform/qt/picture_text.h"
#include "platform/qt/shell.h"
#include "workbench/principal.h"
#include "workbench/sector_view.h"
#include "workbench/start_up.h"
#include "workbench/track_block.h"

namespace brindlemoor {
namespace {

/// A window over a Disk BASIC disk without files; each byte of its image is another than the next.
MainWindow OpenWindow() {
    Shell = ShellState();
    Platform = SilentPlatform();
    Platform.DrawText = DrawPictureText;
    Disk = DiskState();
    BuildPrincipal();
    MainWindow window = MakeMainWindow();
    window.Widget->show();
    Disk.DiskFamily = kDecb;
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    for (int byte = 0; byte < 161280; ++byte) Disk.ImageBytes += static_cast<char>(byte * 7);
    UserAction([] {
        PaintTrackBlock(-1);
        DrawSectorMap(-1);
    });
    QApplication::processEvents();
    return window;
}

void DrawSector(benchmark::State& state) {
    const MainWindow window = OpenWindow();
    int turn = 0;
    for (auto _ : state) {
        PrincipalControl("Sector").Text = std::to_string(++turn % 18 + 1);
        DrawSectorMap(0);
    }
    Shell = ShellState();
}

/// One move of the mouse with its button down, until the window shows it.
void DragOverMap(benchmark::State& state) {
    const MainWindow window = OpenWindow();
    QWidget* map = WidgetOf(*window.Controls, "TrackBlock");
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        const QPointF place(1 + turn % 170, 1 + turn / 170 % 40);
        QMouseEvent move(QEvent::MouseMove, place, map->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(map, &move);
        QApplication::processEvents();
    }
    Shell = ShellState();
}

BENCHMARK(DrawSector)->Unit(benchmark::kMicrosecond);
BENCHMARK(DragOverMap)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlemoor
