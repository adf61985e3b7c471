// Jobs that other programs do as a process of their own, each side as a whole process: MAME's
// imgtool and castool, where the machine has them. And the start of the program itself.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "convert/cas.h"
#include "core/disk_state.h"
#include "core/platform.h"

namespace brindlemoor::benchmarks {
namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;
using Words = std::vector<std::string>;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Starts a program in the folder; what it prints is dropped, or goes to `output` where that is no
/// -1.
pid_t Start(Words words, const std::string& folder, int output) {
    std::vector<char*> list;
    list.reserve(words.size() + 1);
    for (std::string& word : words) list.push_back(word.data());
    list.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    if (output < 0) {
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    } else {
        posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    }
    pid_t process = 0;
    const int failed = posix_spawnp(&process, list[0], &actions, nullptr, list.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error(words[0] + " cannot be started");
    return process;
}

/// Seconds of a whole process, from before it is started until it has ended.
double ProcessSeconds(const Words& words, const std::string& folder) {
    const Clock::time_point start = Clock::now();
    int status = 0;
    waitpid(Start(words, folder, -1), &status, 0);
    const double seconds = SecondsSince(start);
    if (status != 0) throw std::runtime_error(words[0] + " " + words[1] + " failed");
    return seconds;
}

/// A folder of its own, gone at the end.
class OwnFolder {
  public:
    OwnFolder()
        : Path(fs::temp_directory_path() / ("brindlemoor-process-" + std::to_string(getpid()))) {
        Empty();
    }
    ~OwnFolder() { fs::remove_all(Path); }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    void Empty() const {
        fs::remove_all(Path);
        fs::create_directories(Path);
    }

    const std::string Path;
};

/// One job for both sides.
struct Job {
    std::string Name;
    Words Ours;
    Words Peers;
    std::string Peer;  ///< what the table calls the other side
};

/// Runs both sides in turn, each in a folder that is empty but for the files of `given`, so that
/// both meet the same machine. The time is that of our side; `peer_ms` is the least of theirs.
void BesidePeer(benchmark::State& state, const Job& job, const std::string& given,
                std::size_t bytes) {
    const OwnFolder folder;
    const auto prepare = [&] {
        folder.Empty();
        if (!given.empty()) std::ofstream(folder.Path + "/TAPE.CAS", std::ios::binary) << given;
    };
    double peer = 1e9;
    double ours = 1e9;
    for (auto _ : state) {
        prepare();
        const double seconds = ProcessSeconds(job.Ours, folder.Path);
        ours = std::min(ours, seconds);
        state.SetIterationTime(seconds);
        prepare();
        peer = std::min(peer, ProcessSeconds(job.Peers, folder.Path));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.counters["ours_ms"] = ours * 1000;
    state.counters["peer_ms"] = peer * 1000;
    state.SetLabel(job.Peer);
}

void RegisterJob(const Job& job, const std::string& given, std::size_t bytes) {
    constexpr int kRuns = 15;
    benchmark::RegisterBenchmark(job.Name.c_str(), BesidePeer, job, given, bytes)
        ->UseManualTime()
        ->Iterations(kRuns)
        ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] void RegisterDisk(const std::string& name, const std::string& image,
                                   const std::string& format) {
    const std::string path = std::string(BRINDLEMOOR_TEST_DATA) + "/" + image;
    const std::string tool = BRINDLEMOOR_IMGTOOL;
    const std::string ours = BRINDLEMOOR_ONE_JOB;
    const std::size_t bytes = fs::file_size(path);
    RegisterJob(
        {"DirProcess/" + name, {ours, "dir", path}, {tool, "dir", format, path}, "imgtool dir"}, "",
        bytes);
    if (format.find("os9") != std::string::npos) return;  // imgtool takes the root's files alone
    RegisterJob({"GetAllProcess/" + name,
                 {ours, "get-only", path, "."},
                 {tool, "getall", format, path},
                 "imgtool getall"},
                "", bytes);
    RegisterJob({"GetAllFlushedProcess/" + name,
                 {ours, "get", path, "."},
                 {tool, "getall", format, path},
                 "imgtool getall, not flushed"},
                "", bytes);
}

/// The tape of a file of so many bytes.
std::string Tape(std::size_t contents) {
    Platform = SilentPlatform();
    std::string file("\xFF\0\0", 3);
    std::uint32_t noise = 20261121;
    for (std::size_t i = 0; i < contents; ++i) {
        noise = noise * 1664525 + 1013904223;
        file += static_cast<char>(noise >> 24);
    }
    std::string name = "NOISE";
    std::int16_t type = 0;
    std::int16_t flag = 0;
    std::int16_t gap = 0;
    return CasConvert(file, name, type, flag, gap, 0, 0);
}

[[maybe_unused]] void RegisterTape(std::size_t contents) {
    const std::string tape = Tape(contents);
    RegisterJob({"ConvertProcess/" + std::to_string(contents),
                 {BRINDLEMOOR_ONE_JOB, "convert", "TAPE.CAS", "TAPE.WAV"},
                 {BRINDLEMOOR_CASTOOL, "convert", "coco", "TAPE.CAS", "TAPE.WAV"},
                 "castool convert"},
                tape, tape.size());
}

/// From before the process is started until its window has painted for the first time.
void StartProgram(benchmark::State& state, const std::string& program) {
    const OwnFolder folder;
    setenv("appdata", folder.Path.c_str(), 1);
    setenv("BRINDLEMOOR_TIMING", "1", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (auto _ : state) {
        int ends[2] = {-1, -1};
        if (pipe(ends) != 0) throw std::runtime_error("no pipe");
        const Clock::time_point start = Clock::now();
        const pid_t process = Start({program}, folder.Path, ends[1]);
        close(ends[1]);
        std::string said;
        char part[256];
        while (said.find("first paint") == std::string::npos) {
            const ssize_t count = read(ends[0], part, sizeof part);
            if (count <= 0) throw std::runtime_error(program + " painted nothing");
            said.append(part, static_cast<std::size_t>(count));
        }
        state.SetIterationTime(SecondsSince(start));
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        close(ends[0]);
    }
    unsetenv("BRINDLEMOOR_TIMING");
}

const bool registered = [] {
#ifdef BRINDLEMOOR_IMGTOOL
    RegisterDisk("disk_basic", "decb/decb35-fulldir.dsk", "coco_jvc_rsdos");
    RegisterDisk("os9", "os9/os9-35x1.dsk", "coco_jvc_os9");
    RegisterDisk("dragon", "dragon/dragon40-ss-frag.vdk", "coco_vdk_dgndos");
#endif
#ifdef BRINDLEMOOR_CASTOOL
    for (const std::size_t contents : {std::size_t{30000}, std::size_t{600000}}) {
        RegisterTape(contents);
    }
#endif
#ifdef BRINDLEMOOR_PROGRAM
    benchmark::RegisterBenchmark("StartProgram", StartProgram, std::string(BRINDLEMOOR_PROGRAM))
        ->UseManualTime()
        ->Iterations(15)
        ->Unit(benchmark::kMillisecond);
#endif
    return true;
}();

}  // namespace
}  // namespace brindlemoor::benchmarks
