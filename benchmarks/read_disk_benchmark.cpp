// Reading a disk that is full of files, beside the plain copy of the same bytes.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "image/read_disk.h"
#include "plain_copy.h"

namespace brindlemoor {
namespace {

std::string ImageFile(const std::string& name) {
    const std::string path = std::string(BRINDLEMOOR_TEST_DATA) + "/" + name;
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void CopyImage(benchmark::State& state, const std::string& name) {
    const std::string file = ImageFile(name);
    std::string copy(file.size(), '\0');
    for (auto _ : state) {
        copy.assign(file);
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}

/// `times_copy`: how many copies of the image could be made in the time of one reading.
void ReadImage(benchmark::State& state, const std::string& name, int rows) {
    Platform = SilentPlatform();
    Screen = NoScreen();
    const std::string file = ImageFile(name);
    const double copy = benchmarks::CopySeconds(file);
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        Disk.ImageBytes = file;
        ReadDisk();
        benchmark::DoNotOptimize(Disk.DirRows);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (Disk.DirRows != rows) state.SkipWithError("the disk was not read as it should be");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
    state.counters["times_copy"] = taken.count() / static_cast<double>(state.iterations()) / copy;
}

BENCHMARK_CAPTURE(CopyImage, decb35_full, "decb/decb35-full.dsk");
BENCHMARK_CAPTURE(ReadImage, decb35_full, "decb/decb35-full.dsk", 7);
BENCHMARK_CAPTURE(ReadImage, decb35_full_directory, "decb/decb35-fulldir.dsk", 68);
BENCHMARK_CAPTURE(ReadImage, decb80, "decb/decb80.dsk", 13);

}  // namespace
}  // namespace brindlemoor
