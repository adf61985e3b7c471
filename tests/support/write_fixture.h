#pragma once

#include <string>

#include "support/disk_fixture.h"

namespace brindlemoor::test {

/// A fresh disk state with the messages of writing and deleting, and a directory grid that only
/// counts how often it was filled, and moves `DirCount` as the real one does.
class WriteTest : public DiskTest {
  protected:
    void SetUp() override;

    /// Writes `data` as the file `path`.
    void Write(const std::string& path, const std::string& data, bool overwrite = false);

    /// The titles, buttons and icon of the only message shown are these.
    void ExpectOneMessage(const std::string& text, MessageIcon icon) const;

    int fills_ = 0;     ///< of the directory grid
    std::string left_;  ///< what the last writing left of its data
};

/// Image, rows and the fields of `Disk` that writing and deleting may change, as a digest.
std::string DiskFingerprint();

/// The live and deleted rows' `FullName`s, divided by blanks.
std::string RowNames();

/// The chain of a row as numbers, divided by blanks.
std::string ChainText(int row);

/// Holds when the open image has these bytes; otherwise tells the first that differs.
testing::AssertionResult ImageIs(const std::string& expected);

/// The bytes of the open image from `offset` on.
std::string ImagePart(std::size_t offset, std::size_t length);

}  // namespace brindlemoor::test
