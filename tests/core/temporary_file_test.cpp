#include "core/temporary_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class TemporaryFileTest : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = FreshFolder();
        wanted_ = folder_ + "/A.BAS.TMP";
    }

    FileOperationsKept kept_;
    std::string folder_;
    std::string wanted_;
};

TEST_F(TemporaryFileTest, HoldsTheBytesUnderTheWantedNameAndGoesWithTheRecord) {
    const std::string bytes("a\0b\r\n", 5);
    {
        TemporaryFile file;
        EXPECT_FALSE(MakeTemporaryFile(wanted_, bytes, file));
        EXPECT_EQ(file.Path, wanted_);
        EXPECT_EQ(FileBytes(wanted_), bytes);
    }
    EXPECT_EQ(FilesIn(folder_), 0U);
}

TEST_F(TemporaryFileTest, IsReadableByTheUserAlone) {
    const mode_t before = umask(0);
    TemporaryFile file;
    EXPECT_FALSE(MakeTemporaryFile(wanted_, "text", file));
    umask(before);
    struct stat status {};
    ASSERT_EQ(stat(wanted_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(TemporaryFileTest, AFileOfTheUserOfThatNameStays) {
    WriteTestFile(folder_, "A.BAS.TMP", "the user's");
    WriteTestFile(folder_, "A.BAS.1.TMP", "another");
    {
        TemporaryFile file;
        EXPECT_FALSE(MakeTemporaryFile(wanted_, "text", file));
        EXPECT_EQ(file.Path, folder_ + "/A.BAS.2.TMP");
    }
    EXPECT_EQ(FileBytes(wanted_), "the user's");
    EXPECT_EQ(FileBytes(folder_ + "/A.BAS.1.TMP"), "another");
    EXPECT_EQ(FilesIn(folder_), 2U);
}

TEST_F(TemporaryFileTest, ALinkOfThatNameIsNotFollowed) {
    fs::create_symlink(folder_ + "/target", wanted_);
    TemporaryFile file;
    EXPECT_FALSE(MakeTemporaryFile(wanted_, "text", file));
    EXPECT_FALSE(fs::exists(folder_ + "/target"));
    EXPECT_TRUE(fs::is_symlink(wanted_));
}

TEST_F(TemporaryFileTest, AFolderThatIsNotThereIsTold) {
    TemporaryFile file;
    EXPECT_EQ(MakeTemporaryFile(folder_ + "/gone/A.TMP", "text", file),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(file.Path, "");
}

TEST_F(TemporaryFileTest, AWriteThatFailsLeavesNothing) {
    for (const FileStep step : {FileStep::Write, FileStep::Close}) {
        FileOperations = FailingAt(step);
        TemporaryFile file;
        EXPECT_EQ(MakeTemporaryFile(wanted_, "text", file), std::errc::no_space_on_device);
        EXPECT_EQ(file.Path, "");
        EXPECT_EQ(FilesIn(folder_), 0U);
    }
}

TEST_F(TemporaryFileTest, WithoutAFreeNameTheErrorIsThatTheyAreTaken) {
    FileOperations.OpenPrivate = [](const std::string&) -> std::FILE* {
        errno = EEXIST;
        return nullptr;
    };
    TemporaryFile file;
    EXPECT_EQ(MakeTemporaryFile(wanted_, "text", file), std::errc::file_exists);
}

TEST_F(TemporaryFileTest, GoesAlsoWhenAFailurePasses) {
    const auto failure = FailureOfStep([this] {
        TemporaryFile file;
        MakeTemporaryFile(wanted_, "text", file);
        Fail(kOverflow);
    });
    EXPECT_TRUE(failure.has_value());
    EXPECT_EQ(FilesIn(folder_), 0U);
}

TEST_F(TemporaryFileTest, ReadsBackWhatAnotherProgramPutIntoItsPlace) {
    TemporaryFile file;
    MakeTemporaryFile(wanted_, "text", file);
    WriteTestFile(folder_, "new", "longer text than before");
    fs::rename(folder_ + "/new", wanted_);
    std::string bytes;
    EXPECT_FALSE(ReadTemporaryFile(file, bytes));
    EXPECT_EQ(bytes, "longer text than before");
    std::ofstream(wanted_, std::ios::trunc).close();
    EXPECT_FALSE(ReadTemporaryFile(file, bytes));
    EXPECT_EQ(bytes, "");
}

TEST_F(TemporaryFileTest, WhatCannotBeReadBackIsTold) {
    std::string bytes = "kept";
    TemporaryFile file;
    MakeTemporaryFile(wanted_, "text", file);
    fs::remove(wanted_);
    EXPECT_EQ(ReadTemporaryFile(file, bytes), std::errc::no_such_file_or_directory);
    fs::create_directory(wanted_);
    EXPECT_EQ(ReadTemporaryFile(file, bytes), std::errc::is_a_directory);
    EXPECT_EQ(bytes, "kept");
}

TEST_F(TemporaryFileTest, AFileOfMoreBytesThanAnyDiskIsNotRead) {
    std::string bytes;
    TemporaryFile file;
    MakeTemporaryFile(wanted_, "", file);
    fs::resize_file(wanted_, kLongestTemporary);
    EXPECT_FALSE(ReadTemporaryFile(file, bytes));
    EXPECT_EQ(bytes.size(), static_cast<std::size_t>(kLongestTemporary));
    fs::resize_file(wanted_, kLongestTemporary + 1);
    EXPECT_EQ(ReadTemporaryFile(file, bytes), std::errc::file_too_large);
}

TEST_F(TemporaryFileTest, AFolderThatTookItsPlaceStays) {
    {
        TemporaryFile file;
        MakeTemporaryFile(wanted_, "text", file);
        fs::remove(wanted_);
        fs::create_directory(wanted_);
    }
    EXPECT_TRUE(fs::is_directory(wanted_));
}

}  // namespace
}  // namespace brindlemoor::test
