#include "core/file_operations.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <vector>

#include "core/safe_file.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class FileFaultTest : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = FreshFolder();
        path_ = WriteTestFile(folder_, "disk.dsk", old_);
    }

    FileOperationsKept kept_;
    std::string folder_;
    std::string path_;
    std::string old_ = std::string(5000, 'o');
    std::string new_ = std::string(7000, 'n');
};

TEST_F(FileFaultTest, AFailureOfAnyStepLeavesTheOldFileAndNoOther) {
    for (const FileStep step : kAllFileSteps) {
        if (step == FileStep::FlushFolder) continue;  // it has no failure to tell
        FileOperations = FailingAt(step);
        EXPECT_EQ(ReplaceFile(path_, new_, Flush::ToDisk), std::errc::no_space_on_device)
            << static_cast<int>(step);
        EXPECT_EQ(FileBytes(path_), old_) << static_cast<int>(step);
        EXPECT_EQ(FilesIn(folder_), 1U) << static_cast<int>(step);
    }
    FileOperations = SystemFileOperations();
    EXPECT_FALSE(ReplaceFile(path_, new_, Flush::ToDisk));
    EXPECT_EQ(FileBytes(path_), new_);
}

TEST_F(FileFaultTest, TheStepsComeInTheOrderThatKeepsTheOldBytes) {
    std::vector<FileStep> steps;
    FileOperations = Watching([&steps](FileStep step) { steps.push_back(step); });
    EXPECT_FALSE(ReplaceFile(path_, new_, Flush::ToDisk));
    EXPECT_EQ(steps, std::vector<FileStep>(std::begin(kAllFileSteps), std::end(kAllFileSteps)));
    EXPECT_EQ(FileBytes(path_), new_);
}

using Steps = std::vector<FileStep>;

TEST_F(FileFaultTest, ManyNewFilesAreFlushedTogether) {
    Steps steps;
    FileOperations = Watching([&steps](FileStep step) { steps.push_back(step); });
    std::vector<std::string> flushed;
    FileOperations.FlushFileSystem = [&flushed](const std::string& folder) {
        flushed.push_back(folder);
        return std::error_code();
    };
    EXPECT_FALSE(ReplaceFile(folder_ + "/a", new_, Flush::WithOthers));
    EXPECT_EQ(steps,
              (Steps{FileStep::OpenNew, FileStep::Write, FileStep::Close, FileStep::Rename}));
    EXPECT_EQ(FileBytes(folder_ + "/a"), new_);
    EXPECT_TRUE(flushed.empty());
    EXPECT_FALSE(FlushFiles(folder_));
    EXPECT_EQ(flushed, std::vector<std::string>{folder_});
}

TEST_F(FileFaultTest, AmongManyTheBytesForAnOldFilesPlaceAreFlushedBeforeTheRename) {
    Steps steps;
    FileOperations = Watching([&steps](FileStep step) { steps.push_back(step); });
    EXPECT_FALSE(ReplaceFile(path_, new_, Flush::WithOthers));
    EXPECT_EQ(steps, (Steps{FileStep::OpenNew, FileStep::SetPermissions, FileStep::Write,
                            FileStep::FlushToDisk, FileStep::Close, FileStep::Rename}));
}

TEST_F(FileFaultTest, WhereManyCannotBeFlushedTogetherEachIsFlushedByItself) {
    Steps steps;
    FileOperations = Watching([&steps](FileStep step) { steps.push_back(step); });
    FileOperations.FlushFileSystem = nullptr;
    EXPECT_FALSE(ReplaceFile(path_, new_, Flush::WithOthers));
    EXPECT_EQ(steps, Steps(std::begin(kAllFileSteps), std::end(kAllFileSteps)));
    steps.clear();
    EXPECT_FALSE(ReplaceFile(folder_ + "/a", new_, Flush::WithOthers));
    EXPECT_EQ(steps, (Steps{FileStep::OpenNew, FileStep::Write, FileStep::FlushToDisk,
                            FileStep::Close, FileStep::Rename, FileStep::FlushFolder}));
    EXPECT_FALSE(FlushFiles(folder_));
}

TEST_F(FileFaultTest, AFileBehindALinkIsFlushedByItselfSinceItMayLieOnAnotherDisk) {
    fs::create_symlink(folder_ + "/elsewhere", folder_ + "/link");
    Steps steps;
    FileOperations = Watching([&steps](FileStep step) { steps.push_back(step); });
    EXPECT_FALSE(ReplaceFile(folder_ + "/link", new_, Flush::WithOthers));
    EXPECT_EQ(steps, (Steps{FileStep::OpenNew, FileStep::Write, FileStep::FlushToDisk,
                            FileStep::Close, FileStep::Rename, FileStep::FlushFolder}));
    EXPECT_EQ(FileBytes(folder_ + "/elsewhere"), new_);
}

TEST_F(FileFaultTest, TheErrorOfFlushingManyComesBackAndAFolderThatIsGoneIsNone) {
    FileOperations.FlushFileSystem = [](const std::string&) {
        return std::make_error_code(std::errc::io_error);
    };
    EXPECT_EQ(FlushFiles(folder_), std::errc::io_error);
    FileOperations = SystemFileOperations();
    EXPECT_FALSE(FlushFiles(folder_));
    EXPECT_FALSE(FlushFiles(""));
    EXPECT_FALSE(FlushFiles(folder_ + "/gone"));
}

/// Replaces the file in a process of its own that is gone, without a farewell, at that step.
void ReplaceAndDie(const std::string& path, const std::string& bytes, FileStep last) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        FileOperations = Watching([last](FileStep step) {
            if (step == last) _exit(0);
        });
        ReplaceFile(path, bytes, Flush::ToDisk);
        _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(FileFaultTest, AProcessKilledAtAnyStepLeavesOldOrNewBytesNeverLess) {
    for (const FileStep step : kAllFileSteps) {
        ReplaceAndDie(path_, new_, step);
        const bool renamed = step == FileStep::FlushFolder;
        EXPECT_EQ(FileBytes(path_), renamed ? new_ : old_) << static_cast<int>(step);
        WriteTestFile(folder_, "disk.dsk", old_);
    }
    EXPECT_FALSE(ReplaceFile(path_, new_, Flush::ToDisk));  // what the dead left is in no way
    EXPECT_EQ(FileBytes(path_), new_);
}

}  // namespace
}  // namespace brindlemoor::test
