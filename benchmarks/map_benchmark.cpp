// Painting the map of whole disks, and moving its mark.

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "image/read_disk.h"
#include "synthetic_disks.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"
#include "workbench/sector_view.h"
#include "workbench/start_up.h"
#include "workbench/track_block.h"

namespace brindlemoor {
namespace {

/// A Disk BASIC disk with as many files as its directory can have.
std::string FullDirectory() {
    const std::string path = BRINDLEMOOR_TEST_DATA "/decb/decb35-fulldir.dsk";
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Open(const std::string& image) {
    Platform = SilentPlatform();
    Screen = NoScreen();
    Disk = DiskState();
    BuildPrincipal();
    Disk.ImageBytes = image;
    ReadDisk();
}

/// The row in the middle is the selected one.
void PaintMap(benchmark::State& state, std::string (*image)()) {
    Open(image());
    for (auto _ : state) {
        PaintTrackBlock(Disk.DirRows / 2);
        benchmark::DoNotOptimize(TrackBlockPicture.Pixels.data());
    }
    if (Disk.DirRows == 0) state.SkipWithError("the disk was not read as it should be");
}

BENCHMARK_CAPTURE(PaintMap, FullDirectory, FullDirectory)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintMap, DragonTwoSides, benchmarks::DragonDisk)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintMap, Os9HardDisk, benchmarks::Os9HardDisk)->Unit(benchmark::kMicrosecond);

/// The mark goes on by a sector at each turn; the text is not drawn.
void MoveMark(benchmark::State& state) {
    Open(FullDirectory());
    PaintTrackBlock(-1);
    DrawSectorMap(-1);
    const Control& map = PrincipalControl("TrackBlock");
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        map.MouseMove({turn % 180, turn / 180 % 36, true, false});
    }
}

BENCHMARK(MoveMark)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlemoor
