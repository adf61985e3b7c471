#include "core/file_handle.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

/// The error of opening that path for reading.
std::error_code OpeningError(const std::string& path) {
    std::error_code error;
    const File file = OpenForReading(path, error);
    EXPECT_EQ(file == nullptr, static_cast<bool>(error));
    return error;
}

TEST(FileHandleTest, AnOrdinaryFileAndALinkToItOpen) {
    const std::string folder = FreshFolder();
    const std::string path = WriteTestFile(folder, "a", "bytes");
    std::filesystem::create_symlink(path, folder + "/link");
    EXPECT_FALSE(OpeningError(path));
    EXPECT_FALSE(OpeningError(folder + "/link"));
}

TEST(FileHandleTest, WhatIsNoOrdinaryFileIsRefusedAndNeverWaitedFor) {
    const std::string folder = FreshFolder();
    WriteTestFile(folder, "a", "bytes");
    const std::string pipe = folder + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(OpeningError(folder), std::errc::is_a_directory);
    EXPECT_EQ(OpeningError(pipe), std::errc::not_supported);
    EXPECT_EQ(OpeningError(folder + std::string("/a\0b", 4)), std::errc::invalid_argument);
    EXPECT_EQ(OpeningError(folder + "/gone"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(OpeningError(""), std::errc::no_such_file_or_directory);
}

}  // namespace
}  // namespace brindlemoor::test
