#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/scripted/scripted_platform.h"

namespace brindlemoor::test {

/// A fresh disk state, platform script and empty screen for every test.
class DiskTest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Reads `image` as the open disk, as a file of that name.
    void Read(const std::string& image);

    /// The texts of the messages that were shown so far.
    std::vector<std::string> Shown() const { return MessageTexts(script_); }

    Script script_;
};

/// The number of the failure that `step` raises, 0 when it raises none.
int FailureOf(const std::function<void()>& step);

/// The bytes of a file. A file that is not there fails the test.
std::string FileBytes(const std::string& path);

/// A file of `tests/data`.
std::string TestData(const std::string& name);

/// A new, empty folder for a test's files, named after the test; gone at the next run of it.
std::string FreshFolder();

/// The number of files and folders in a folder.
std::size_t FilesIn(const std::string& folder);

/// Writes `bytes` to a file of that folder and returns its path.
std::string WriteTestFile(const std::string& folder, const std::string& name,
                          const std::string& bytes);

}  // namespace brindlemoor::test
