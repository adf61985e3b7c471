#include "support/disk_fixture.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "image/pc_file.h"
#include "image/read_disk.h"

namespace brindlemoor::test {

void DiskTest::SetUp() {
    Disk = DiskState();
    Disk.AppTitle = "Brindlemoor";
    DirTable.Wipe();
    VhdReply.clear();
    WindowBusy = false;
    Screen = NoScreen();
    Platform = ScriptedPlatform(script_);
}

void DiskTest::TearDown() {
    Platform = SilentPlatform();
    Screen = NoScreen();
}

void DiskTest::Read(const std::string& image) {
    Disk.ImageBytes = image;
    Disk.ImageOnOpen = image;
    ReadDisk();
}

int FailureOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeFailure& failure) {
        return failure.Number;
    }
    return 0;
}

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string TestData(const std::string& name) {
    return FileBytes(std::string(BRINDLEMOOR_TEST_DATA) + "/" + name);
}

std::string FreshFolder() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "_" + test->name();
    for (char& letter : name) letter = letter == '/' ? '_' : letter;
    const auto folder = std::filesystem::path(testing::TempDir()) /
                        ("brindlemoor_" + std::to_string(getuid())) / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder.string();
}

std::size_t FilesIn(const std::string& folder) {
    using std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(directory_iterator(folder), {}));
}

std::string WriteTestFile(const std::string& folder, const std::string& name,
                          const std::string& bytes) {
    const std::string path = folder + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

}  // namespace brindlemoor::test
