// What stands between a change and the file: the comparison of the image with the file it came
// from, after every change.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "core/disk_state.h"
#include "image/modified_state.h"
#include "image/pc_file.h"

namespace brindlemoor {
namespace {

void GiveUnchangedImage() {
    Disk = DiskState();
    Disk.ImageHeader = std::string(16, 'h');
    Disk.ImageBytes = std::string(static_cast<std::size_t>(kHardDiskOs9Bytes), 'i');
    Disk.ImageOnOpen = Disk.ImageHeader + Disk.ImageBytes;
}

void CompareImage(benchmark::State& state) {
    GiveUnchangedImage();
    const char* file = Disk.ImageOnOpen.data() + Disk.ImageHeader.size();
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::memcmp(file, Disk.ImageBytes.data(), Disk.ImageBytes.size()));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(kHardDiskOs9Bytes));
    Disk = DiskState();
}

void CompareWithFile(benchmark::State& state) {
    GiveUnchangedImage();
    for (auto _ : state) RefreshModified();
    state.SetBytesProcessed(state.iterations() * static_cast<long long>(kHardDiskOs9Bytes));
    Disk = DiskState();
}

BENCHMARK(CompareImage)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareWithFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
