// Reading the largest disks of the families, beside the plain copy of their bytes.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

#ifdef __unix__
#include <sys/resource.h>
#endif

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "image/read_disk.h"
#include "plain_copy.h"
#include "synthetic_disks.h"

namespace brindlemoor {
namespace {

/// Seconds since `start`.
double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Bytes of all files that the rows hold.
std::size_t GatheredBytes() {
    std::size_t bytes = 0;
    for (int row = 0; row < kDirTableRows; ++row) bytes += DirTable[row].Content.size();
    return bytes;
}

/// The most memory that the program has had so far, in MiB; 0 where the system does not say.
double PeakMebibytes() {
#ifdef __unix__
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
#else
    return 0;
#endif
}

/// `times_copy` and `times_gathered`: how many copies of the image, or of the bytes gathered for
/// the files, could be made in the time of one reading, the quickest of each. `peak_mib`: the
/// program's most memory behind its first reading, with the file, the image and the image as it was
/// opened each held whole; it means something for the benchmark that runs first.
void ReadSynthetic(benchmark::State& state, std::string (*disk)(), int rows) {
    Platform = SilentPlatform();
    Screen = NoScreen();
    const std::string file = disk();
    Disk.ImageOnOpen = file;
    Disk.ImageBytes = file;
    ReadDisk();
    if (Disk.DirRows != rows) state.SkipWithError("the disk was not read as it should be");
    static const double peak = PeakMebibytes();
    const std::size_t gathered = GatheredBytes();
    const double copy = benchmarks::CopySeconds(file);
    const double gatheredCopy = benchmarks::CopySeconds(file.substr(0, gathered));
    double reading = 1e9;
    for (auto _ : state) {
        Disk.ImageBytes = file;
        const auto start = std::chrono::steady_clock::now();
        ReadDisk();
        const double taken = SecondsSince(start);
        benchmark::DoNotOptimize(Disk.DirRows);
        state.SetIterationTime(taken);
        reading = std::min(reading, taken);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
    state.counters["times_copy"] = reading / copy;
    state.counters["times_gathered"] = reading / gatheredCopy;
    state.counters["gathered_mib"] = static_cast<double>(gathered) / 1048576;
    state.counters["peak_mib"] = peak;
    DirTable.Wipe();
    Disk = DiskState();
}

BENCHMARK_CAPTURE(ReadSynthetic, os9_hard_disk, benchmarks::Os9HardDisk, 1663)->UseManualTime();
BENCHMARK_CAPTURE(ReadSynthetic, dragon_80_tracks_2_sides, benchmarks::DragonDisk, 150)
    ->UseManualTime();
BENCHMARK_CAPTURE(ReadSynthetic, flex_80_tracks, benchmarks::FlexDisk, 237)->UseManualTime();

}  // namespace
}  // namespace brindlemoor
