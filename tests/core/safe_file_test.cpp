#include "core/safe_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/disk_fixture.h"
#include "support/file_size_limit.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class SafeFileTest : public testing::Test {
  protected:
    void SetUp() override { folder_ = FreshFolder(); }

    std::string folder_;
};

TEST_F(SafeFileTest, AFileIsMadeAndReplaced) {
    const std::string path = folder_ + "/a";
    EXPECT_FALSE(ReplaceFile(path, "one", Flush::ToDisk));
    EXPECT_FALSE(ReplaceFile(path, "two", Flush::No));
    EXPECT_EQ(FileBytes(path), "two");
    EXPECT_EQ(FilesIn(folder_), 1U);
}

TEST_F(SafeFileTest, AFailureHalfWayLeavesTheOldFileAndNoOther) {
    const std::string path = WriteTestFile(folder_, "a", "old");
    const FileSizeLimit limit(1000);
    for (const Flush flush : {Flush::No, Flush::ToDisk}) {
        EXPECT_EQ(ReplaceFile(path, std::string(5000, 'x'), flush).value(), EFBIG);
        EXPECT_EQ(ReplaceFile(path, std::string(500000, 'x'), flush).value(), EFBIG);
    }
    EXPECT_EQ(FileBytes(path), "old");
    EXPECT_EQ(FilesIn(folder_), 1U);
}

TEST_F(SafeFileTest, WhatIsNoOrdinaryFileIsRefused) {
    EXPECT_EQ(ReplaceFile("", "x", Flush::No), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(fs::exists("~save0.tmp"));
    EXPECT_EQ(ReplaceFile(folder_, "x", Flush::No), std::errc::is_a_directory);
    EXPECT_EQ(ReplaceFile(folder_ + std::string("/a\0b", 4), "x", Flush::No),
              std::errc::invalid_argument);
    const std::string pipe = folder_ + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReplaceFile(pipe, "x", Flush::No), std::errc::not_supported);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(FilesIn(folder_), 1U);
}

TEST_F(SafeFileTest, AZeroByteBehindALinksNameLeadsNowhere) {
    const std::string real = WriteTestFile(folder_, "real", "somebody's");
    fs::create_symlink(real, folder_ + "/link");
    EXPECT_EQ(ReplaceFile(folder_ + std::string("/link\0.dsk", 10), "x", Flush::No),
              std::errc::invalid_argument);
    EXPECT_EQ(FileBytes(real), "somebody's");
}

TEST_F(SafeFileTest, AFileThatNobodyMayWriteIsRefused) {
    const std::string path = WriteTestFile(folder_, "a", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(ReplaceFile(path, "new", Flush::No), std::errc::permission_denied);
    EXPECT_EQ(FileBytes(path), "old");
}

TEST_F(SafeFileTest, ANameAsLongAsNamesMayBeIsWritten) {
    const std::string path = WriteTestFile(folder_, std::string(255, 'n'), "old");
    EXPECT_FALSE(ReplaceFile(path, "new", Flush::No));
    EXPECT_EQ(FileBytes(path), "new");
}

TEST_F(SafeFileTest, FilesOfOthersThatLookLikeOursAreNotTouched) {
    WriteTestFile(folder_, "~save0.tmp", "somebody's");
    EXPECT_FALSE(ReplaceFile(folder_ + "/a", "new", Flush::No));
    EXPECT_EQ(FileBytes(folder_ + "/~save0.tmp"), "somebody's");
    EXPECT_EQ(FileBytes(folder_ + "/a"), "new");
    EXPECT_EQ(FilesIn(folder_), 2U);
}

TEST_F(SafeFileTest, WithoutAFreeNameTheOldFileStandsAndSoDoAllOthers) {
    const std::string path = WriteTestFile(folder_, "a", "old");
    for (int number = 0; number < 1000; ++number) {
        WriteTestFile(folder_, "~save" + std::to_string(number) + ".tmp", "somebody's");
    }
    EXPECT_EQ(ReplaceFile(path, "new", Flush::No), std::errc::file_exists);
    EXPECT_EQ(FileBytes(path), "old");
    EXPECT_EQ(FileBytes(folder_ + "/~save999.tmp"), "somebody's");
    EXPECT_EQ(FilesIn(folder_), 1001U);
}

TEST_F(SafeFileTest, LinksStayLinksAlsoWhenTheyLeadNowhereYet) {
    fs::create_symlink("real", folder_ + "/link");
    EXPECT_FALSE(ReplaceFile(folder_ + "/link", "one", Flush::No));
    EXPECT_TRUE(fs::is_symlink(folder_ + "/link"));
    EXPECT_EQ(FileBytes(folder_ + "/real"), "one");
    EXPECT_FALSE(ReplaceFile(folder_ + "/link", "two", Flush::No));
    EXPECT_TRUE(fs::is_symlink(folder_ + "/link"));
    EXPECT_EQ(FileBytes(folder_ + "/real"), "two");
}

TEST_F(SafeFileTest, PermissionsAreThoseOfTheOldFile) {
    const std::string path = WriteTestFile(folder_, "a", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(ReplaceFile(path, "new", Flush::No));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace brindlemoor::test
