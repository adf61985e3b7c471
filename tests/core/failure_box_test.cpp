#include "core/failure_box.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

class FailureBoxTest : public DiskTest {};

TEST_F(FailureBoxTest, ShowsNumberAndTextUnderTheProgramsTitle) {
    Disk.AppTitle = "Brindlemoor";
    ShowFailure({kIndexRange, "Subscript out of range"});
    ASSERT_EQ(script_.Messages.size(), 1u);
    const ShownMessage& box = script_.Messages[0];
    EXPECT_EQ(box.Text, "Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_EQ(box.Title, "Brindlemoor");
    EXPECT_EQ(box.Choice, Buttons::Ok);
    EXPECT_EQ(box.Icon, MessageIcon::Critical);
}

}  // namespace
}  // namespace brindlemoor::test
