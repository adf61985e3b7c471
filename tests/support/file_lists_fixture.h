#pragma once

#include <vector>

#include "support/command_record.h"
#include "support/workbench_fixture.h"
#include "workbench/control.h"

namespace brindlemoor::test {

/// A started program with "A.BAS", "B.TXT" and "C.DAT" in the PC's list and the rows "ALPHA.BAS"
/// and "BETA." in the disk's. The file commands are not run but recorded.
class FileListsTest : public DirectoryTest {
  protected:
    using Flags = std::vector<bool>;  ///< what is selected of a list

    void SetUp() override;

    static Control& Files();      ///< the PC's list
    static Control& Directory();  ///< the disk's list

    CommandRecord commands_;
};

}  // namespace brindlemoor::test
