// Tapes into sound and back, beside the plain copy of the same samples.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "convert/cas.h"
#include "convert/wav.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/settings.h"
#include "plain_copy.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kSampleRate = 44100;
constexpr std::size_t kHour = 3600;
constexpr std::size_t kHeader = 44;

/// Periods of a 0 and of a 1, in samples.
constexpr std::size_t kZeroPeriod = 36;
constexpr std::size_t kOnePeriod = 18;

/// The program's most memory so far, in bytes.
double PeakBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void UseAudioOptions() {
    Platform = SilentPlatform();
    Settings = SettingsState();
    Settings.SettingsCacheMark = "I";
    Settings.SettingsLines = {"[Audio Options]",  "WavFormat=1",   "SampleRate=44100",
                              "BitsPerSample=8",  "NumChannels=1", "Volume=110",
                              "Frec1200=1200",    "Frec2400=2400", "SilenceStart=1",
                              "SilenceHeader=500"};
}

/// Bytes without a pattern that a processor could learn.
std::string Noise(std::size_t count) {
    std::string bytes(count, '\0');
    std::uint32_t state = 20261121;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

/// A tape of a file of so many bytes.
std::string Stream(std::size_t contents) {
    std::string name = "NOISE";
    std::int16_t type = 0;
    std::int16_t flag = 0;
    std::int16_t gap = 0;
    return CasConvert(std::string("\xFF\0\0", 3) + Noise(contents), name, type, flag, gap, 0, 0);
}

std::string LowFirst(std::size_t value, int length) {
    std::string bytes;
    for (int i = 0; i < length; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

/// An hour of sound, with 44,100 samples of 8 bits a second: a wave for each bit of noise.
std::string HourOfSound() {
    const std::size_t samples = kSampleRate * kHour;
    std::string file;
    file.reserve(kHeader + samples);  // as tight as a file that was read
    file += "RIFF" + LowFirst(samples + 36, 4) + "WAVEfmt " + LowFirst(16, 4) + LowFirst(1, 2) +
            LowFirst(1, 2) + LowFirst(kSampleRate, 4) + LowFirst(kSampleRate, 4) + LowFirst(1, 2) +
            LowFirst(8, 2) + "data" + LowFirst(samples, 4);
    for (const char byte : Noise(samples / 200)) {
        for (int bit = 0; bit < 8 && file.size() + kZeroPeriod <= kHeader + samples; ++bit) {
            const std::size_t period = (byte >> bit & 1) != 0 ? kOnePeriod : kZeroPeriod;
            file.append(period / 2, '\xE0').append(period / 2, '\x20');
        }
    }
    file.resize(kHeader + samples, '\x80');
    return file;
}

/// `memory`: the most that was in use during the first conversion, in sizes of the file. The most
/// memory of a program never falls, so run this benchmark alone to see it.
void WavToCasHour(benchmark::State& state) {
    Platform = SilentPlatform();
    auto file = std::make_unique<std::string>(HourOfSound());
    const double size = static_cast<double>(file->size());
    const double before = PeakBytes() - size;
    static double memory = 0;
    std::chrono::duration<double> taken{};
    for (auto _ : state) {
        std::string data = std::move(*file);
        std::string name = "HOUR.WAV";
        const auto start = std::chrono::steady_clock::now();
        const std::string tape = WavConvert(data, name);
        taken += std::chrono::steady_clock::now() - start;
        if (tape.size() < 500000) state.SkipWithError("not decoded");
        if (memory == 0) memory = (PeakBytes() - before) / size;
        state.PauseTiming();
        data.pop_back();
        data.shrink_to_fit();
        *file = std::move(data);
        state.ResumeTiming();
    }
    const double copy = benchmarks::CopyIntoNewSeconds(*file);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
    state.counters["times_copy"] = taken.count() / static_cast<double>(state.iterations()) / copy;
    state.counters["memory"] = memory;
}

/// The bytes per second are those of the samples written.
void CasToWavFile(benchmark::State& state) {
    UseAudioOptions();
    std::string stream = Stream(static_cast<std::size_t>(state.range(0)));
    std::string name = "NOISE.CAS";
    const std::string file = WavConvert(stream, name);
    const double copy = benchmarks::CopyIntoNewSeconds(file);
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        const std::string result = WavConvert(stream, name);
        if (result.size() != file.size()) state.SkipWithError("not written");
        benchmark::DoNotOptimize(result.data());
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
    state.counters["times_copy"] = taken.count() / static_cast<double>(state.iterations()) / copy;
}

/// A file to tape, and the tape back into the file.
void CasThereAndBack(benchmark::State& state) {
    Platform = SilentPlatform();
    Disk.DiskFamily = kDecb;
    const std::string file =
        std::string("\xFF\0\0", 3) + Noise(static_cast<std::size_t>(state.range(0)));
    const double copy = benchmarks::CopyIntoNewSeconds(file);
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        std::string name = "NOISE.BAS";
        std::int16_t type = 0;
        std::int16_t flag = 0;
        std::int16_t gap = 0;
        const std::string tape = CasConvert(file, name, type, flag, gap, 0, 0);
        const std::string again = CasConvert(tape, name, type, flag, gap, 0, 0);
        if (again.size() != file.size()) state.SkipWithError("not the same");
        benchmark::DoNotOptimize(again.data());
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
    state.counters["times_copy"] = taken.count() / static_cast<double>(state.iterations()) / copy;
}

BENCHMARK(WavToCasHour)->Unit(benchmark::kMillisecond);
BENCHMARK(CasToWavFile)->Arg(30000)->Arg(600000)->Unit(benchmark::kMillisecond);
BENCHMARK(CasThereAndBack)->Arg(60000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlemoor
