#include "image/rescue_copy.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/disk_state.h"
#include "core/screen.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class RescueCopyTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        folder_ = FreshFolder();
        Settings = SettingsState();
        Settings.SettingsPath = folder_ + "/Brindlemoor.ini";
        Screen.PathDskText = [this] { return pathDsk_; };
        Disk.ImageHeader = "head";
        Disk.ImageBytes = "new bytes";
        Disk.ImageOnOpen = "headold bytes";
    }

    void TearDown() override {
        Settings = SettingsState();
        DiskTest::TearDown();
    }

    std::string Copy(int number, const std::string& extension) const {
        return folder_ + "/Brindlemoor rescue " + std::to_string(number) + extension;
    }

    bool FolderIsEmpty() const { return fs::is_empty(folder_); }

    FileOperationsKept kept_;
    std::string folder_;
    std::string pathDsk_ = "/disks/games.Vdk";
};

TEST_F(RescueCopyTest, HeaderAndImageAreKeptBesideTheSettingsFile) {
    EXPECT_EQ(RescueImage(), Copy(1, ".Vdk"));
    EXPECT_EQ(FileBytes(Copy(1, ".Vdk")), "headnew bytes");
}

TEST_F(RescueCopyTest, NothingInMemoryChanges) {
    RescueImage();
    EXPECT_EQ(Disk.ImageHeader, "head");
    EXPECT_EQ(Disk.ImageBytes, "new bytes");
    EXPECT_EQ(Disk.ImageOnOpen, "headold bytes");
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(pathDsk_, "/disks/games.Vdk");
    EXPECT_TRUE(Shown().empty());
}

TEST_F(RescueCopyTest, ADiskAsItsFileNeedsNone) {
    Disk.ImageOnOpen = "headnew bytes";
    EXPECT_EQ(RescueImage(), "");
    EXPECT_TRUE(FolderIsEmpty());
}

TEST_F(RescueCopyTest, ANewDiskThatWasNeverSavedIsKept) {
    Disk.ImageOnOpen.clear();
    pathDsk_.clear();
    EXPECT_EQ(RescueImage(), Copy(1, ".DSK"));
    EXPECT_EQ(FileBytes(Copy(1, ".DSK")), "headnew bytes");
}

TEST_F(RescueCopyTest, NoDiskNeedsNone) {
    Disk.ImageBytes.clear();
    EXPECT_EQ(RescueImage(), "");
    EXPECT_TRUE(FolderIsEmpty());
}

TEST_F(RescueCopyTest, NoFileIsEverOverwritten) {
    WriteTestFile(folder_, "Brindlemoor rescue 1.Vdk", "of yesterday");
    fs::create_symlink(folder_ + "/nowhere", Copy(2, ".Vdk"));
    EXPECT_EQ(RescueImage(), Copy(3, ".Vdk"));
    EXPECT_EQ(FileBytes(Copy(1, ".Vdk")), "of yesterday");
    EXPECT_FALSE(fs::exists(folder_ + "/nowhere"));
}

TEST_F(RescueCopyTest, AllNumbersTakenLeavesNothing) {
    for (int number = 1; number <= 999; ++number) fs::create_directory(Copy(number, ".Vdk"));
    EXPECT_EQ(RescueImage(), "");
}

TEST_F(RescueCopyTest, ANameThatIsNoImagesGivesTheUsualExtension) {
    for (const char* name : {"/disks/games.txt", "/disks.DSK/games", "games.dsk/../x", "."}) {
        pathDsk_ = name;
        const std::string copy = RescueImage();
        EXPECT_EQ(copy.substr(copy.size() - 4), ".DSK") << name;
    }
}

TEST_F(RescueCopyTest, BeforeTheSettingsAreKnownThereIsNoPlace) {
    Settings.SettingsPath.clear();
    EXPECT_EQ(RescueImage(), "");
}

TEST_F(RescueCopyTest, AFolderThatIsNotThereGivesNoCopyAndNoFailure) {
    Settings.SettingsPath = folder_ + "/gone/Brindlemoor.ini";
    EXPECT_EQ(RescueImage(), "");
}

}  // namespace
}  // namespace brindlemoor::test
