#pragma once

#include <string>
#include <vector>

#include "support/disk_fixture.h"

namespace brindlemoor::test {

/// A fresh disk state with short texts for the warnings about the geometry.
class DragonTest : public DiskTest {
  protected:
    void SetUp() override;

    /// Reads an image as a Dragon disk without asking whether it is one.
    static bool ReadAsDragon(const std::string& image);
};

/// True when the rebuilt bitmap has a sector as free.
bool Free(int sector);

/// A byte string of these values.
std::string Bytes(const std::vector<int>& values);

}  // namespace brindlemoor::test
