#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "core/file_operations.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

/// Somebody who only looks: every sample is clicked, and every row of every directory.
class LookingTest : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        test::WorkbenchTest::SetUp();
        for (const auto& entry : fs::directory_iterator(BRINDLEMOOR_SAMPLES)) {
            fs::copy(entry.path(), fs::path(PcFolder) / entry.path().filename());
        }
    }

    /// Each file of the folder with its bytes and the time of its last change.
    std::map<std::string, std::pair<std::string, fs::file_time_type>> Files() const {
        std::map<std::string, std::pair<std::string, fs::file_time_type>> files;
        for (const auto& entry : fs::directory_iterator(PcFolder)) {
            const std::string path = entry.path().string();
            files[path] = {test::FileBytes(path), entry.last_write_time()};
        }
        return files;
    }

    test::FileOperationsKept kept_;
};

TEST_F(LookingTest, NoFileOfThePcIsEverChangedMadeOrRemoved) {
    Start();
    script_.Answers.assign(1000, Answer::Ok);  // a DMK file counts as changed once it is open
    const auto before = Files();
    ASSERT_GT(before.size(), 20U);
    std::vector<std::string> made;
    FileOperations.OpenNew = [&](const std::string& path) {
        if (path.compare(0, PcFolder.size(), PcFolder) == 0) made.push_back(path);
        return SystemFileOperations().OpenNew(path);
    };
    Control& files = PrincipalControl("File1");
    int disks = 0;
    for (std::size_t file = 0; file < files.Items.size(); ++file) {
        ClickListEntry(files, static_cast<int>(file));
        disks += files.Items[file] == fs::path(PrincipalControl("PathDsk").Text).filename() ? 1 : 0;
        for (std::size_t row = 0; row < ListDirec.Rows.size(); ++row) {
            ListDirec.RowClick(static_cast<int>(row) + 1);
        }
    }
    EXPECT_GE(disks, 15);
    EXPECT_EQ(made, std::vector<std::string>());
    EXPECT_TRUE(before == Files());
    EXPECT_FALSE(script_.Ended);
}

}  // namespace
}  // namespace brindlemoor
