// BASIC from tokens into text and back, beside the plain copy of the same bytes. The programs are
// as long as their format allows, made of the lines of the sample programs in turns.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "convert/basic.h"
#include "core/disk_state.h"
#include "core/platform.h"

namespace brindlemoor {
namespace {

/// Programs of one corpus; enough of them to be larger than a processor's nearest cache.
constexpr std::size_t kPrograms = 40;

/// Bytes of a Color Computer's program up to which its length field is positive.
constexpr std::size_t kLongestTokens = 0x7FFF;

/// Bytes of a program in tokens up to which its links can be stored, with the header.
constexpr std::size_t kLongestLinked = 23040;

constexpr std::size_t kHeader = 3;

std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path.string() + " cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The lines of the Color Computer's sample programs, each from its link to its 0.
std::vector<std::string> SampleLines() {
    std::vector<std::string> lines;
    for (const char* name : {"COCO3", "DISKIO", "GRAPH", "GUESS", "LONGLN", "PRIMES", "TABLES"}) {
        const std::string file = FileBytes(std::filesystem::path(BRINDLEMOOR_TEST_DATA) / "basic" /
                                           (std::string(name) + ".decb.tok"));
        for (std::size_t at = kHeader; at + 4 < file.size() && file[at] != '\0';) {
            const std::size_t end = file.find('\0', at + 4);
            lines.push_back(file.substr(at, end + 1 - at));
            at = end + 1;
        }
    }
    return lines;
}

/// A program of not more than `longest` bytes behind its header, which begins with that line.
std::string Program(const std::vector<std::string>& lines, std::size_t first, std::size_t longest) {
    std::string file = std::string("\xFF\0\0", kHeader);
    for (std::size_t line = first;; ++line) {
        const std::string& next = lines[line % lines.size()];
        if (file.size() + next.size() + 2 > longest + kHeader) break;
        file += next;
    }
    file.append(2, '\0');
    const std::size_t length = file.size() - kHeader;
    file[1] = static_cast<char>(length >> 8);
    file[2] = static_cast<char>(length & 0xFF);
    return file;
}

std::vector<std::string> Programs(std::size_t longest) {
    const std::vector<std::string> lines = SampleLines();
    std::vector<std::string> programs;
    for (std::size_t i = 0; i < kPrograms; ++i) programs.push_back(Program(lines, i * 7, longest));
    return programs;
}

std::vector<std::string> Listings() {
    std::vector<std::string> listings;
    for (std::string& program : Programs(kLongestLinked - 100)) {
        listings.push_back(BasicConvert(program, false));
    }
    return listings;
}

std::size_t BytesOf(const std::vector<std::string>& files) {
    std::size_t bytes = 0;
    for (const std::string& file : files) bytes += file.size();
    return bytes;
}

/// Seconds that one copy of each of `files` into a new string takes, from many copies in a row.
double CopySeconds(const std::vector<std::string>& files) {
    constexpr int kCopies = 200;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kCopies; ++i) {
        for (const std::string& file : files) {
            const std::string copy = file;
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / kCopies;
}

/// Converts all of `files` in each iteration. `times_copy`: how many plain copies of them could be
/// made in that time.
void ConvertAll(benchmark::State& state, const std::vector<std::string>& files, char mark) {
    Platform = SilentPlatform();
    Disk.DiskFamily = kDecb;
    const double copy = CopySeconds(files);
    std::vector<std::string> given = files;
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        for (std::string& file : given) {
            const std::string result = BasicConvert(file, false);
            if (result.empty() || result.front() != mark) state.SkipWithError("not converted");
            benchmark::DoNotOptimize(result.data());
        }
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(BytesOf(files)));
    state.counters["times_copy"] = taken.count() / static_cast<double>(state.iterations()) / copy;
}

void BasicToText(benchmark::State& state) {
    ConvertAll(state, Programs(kLongestTokens), '\r');
}

void TextToBasic(benchmark::State& state) {
    ConvertAll(state, Listings(), '\xFF');
}

BENCHMARK(BasicToText);
BENCHMARK(TextToBasic);

}  // namespace
}  // namespace brindlemoor
