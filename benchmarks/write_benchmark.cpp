// Writing the largest file that a Disk BASIC disk takes, and committing a full disk.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "filesystems/commit.h"
#include "filesystems/write_file.h"
#include "image/read_disk.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kImageBytes = 161280;
constexpr std::size_t kTrackBytes = 4608;

/// One byte less than the disk has: a file of all of it counts as a granule more.
constexpr std::size_t kLargestFile = 68 * 2304 - 1;

/// Opens an empty disk of 35 tracks.
void OpenEmptyDisk() {
    Platform = SilentPlatform();
    Screen = NoScreen();
    Disk = DiskState();
    Disk.ImageBytes.assign(kImageBytes, '\0');
    Disk.ImageBytes.replace(17 * kTrackBytes, kTrackBytes, kTrackBytes, '\xFF');
    ReadDisk();
}

void CloseDisk() {
    DirTable.Wipe();
    Disk = DiskState();
}

/// The disk is read outside the time that counts; the image is a new one each time.
void WriteLargestFile(benchmark::State& state) {
    const std::string file(kLargestFile, 'x');
    for (auto _ : state) {
        state.PauseTiming();
        OpenEmptyDisk();
        std::string data = file;
        state.ResumeTiming();
        WriteFileToDisk("LARGEST.BIN", false, data);
        if (!data.empty()) state.SkipWithError("the file did not fit");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kLargestFile));
    CloseDisk();
}
BENCHMARK(WriteLargestFile)->Unit(benchmark::kMicrosecond);

/// 68 files, a granule each.
void CommitFullDisk(benchmark::State& state) {
    OpenEmptyDisk();
    for (int file = 0; file < 68; ++file) {
        std::string data(2304, 'x');
        WriteFileToDisk("FILE" + std::to_string(file) + ".BIN", false, data);
    }
    if (Disk.DirRows != 68 || DirTable[67].Chain.empty()) state.SkipWithError("not a full disk");
    for (auto _ : state) {
        CommitDirectory();
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kImageBytes));
    CloseDisk();
}
BENCHMARK(CommitFullDisk)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlemoor
