#include "plain_copy.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <stdexcept>

namespace brindlemoor::benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The least of at least five runs, and of as many as a twentieth of a second holds.
double QuickestSeconds(const std::function<void()>& run) {
    constexpr int kLeastRuns = 5;
    constexpr double kLongEnough = 0.05;
    const Clock::time_point begin = Clock::now();
    double quickest = 1e9;
    for (int i = 0; i < kLeastRuns || SecondsSince(begin) < kLongEnough; ++i) {
        const Clock::time_point start = Clock::now();
        run();
        quickest = std::min(quickest, SecondsSince(start));
    }
    return quickest;
}

void WriteAndFlush(const std::string& bytes, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) throw std::runtime_error(path + " cannot be written");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fflush(file);
    fsync(fileno(file));
    std::fclose(file);
}

}  // namespace

double CopySeconds(const std::string& bytes) {
    std::string copy(bytes.size(), '\0');
    return QuickestSeconds([&] {
        copy.assign(bytes);
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    });
}

double CopyIntoNewSeconds(const std::string& bytes) {
    return QuickestSeconds([&] {
        const std::string copy = bytes;
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    });
}

double WriteSeconds(const std::string& bytes, const std::string& folder) {
    const std::string path = folder + "/plain copy";
    const double seconds = QuickestSeconds([&] {
        std::remove(path.c_str());
        WriteAndFlush(bytes, path);
    });
    std::remove(path.c_str());
    return seconds;
}

}  // namespace brindlemoor::benchmarks
