#include "workbench/event_dispatcher.h"

#include <gtest/gtest.h>

#include <new>

#include "core/runtime_failure.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

class DispatchTest : public test::DiskTest {};

TEST_F(DispatchTest, RunsTheRoutineAndSaysThatItWentWell) {
    int runs = 0;
    EXPECT_TRUE(Dispatch([&] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_FALSE(script_.Ended);
}

TEST_F(DispatchTest, AFailureShowsTheErrorBoxAndEndsTheProgram) {
    bool endedAtTheBox = true;
    script_.OnMessage = [&](const ShownMessage&) { endedAtTheBox = script_.Ended; };
    EXPECT_FALSE(Dispatch([] { Fail(9); }));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text, "Run-time error '9':\r\n\r\nSubscript out of range");
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_FALSE(endedAtTheBox);
    EXPECT_TRUE(script_.Ended);
    EXPECT_FALSE(script_.Closed);
}

TEST_F(DispatchTest, AFailureWithATextOfItsOwnShowsThat) {
    EXPECT_FALSE(Dispatch([] { throw RuntimeFailure{76, "Path not found"}; }));
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Run-time error '76':\r\n\r\nPath not found"}));
}

TEST_F(DispatchTest, MemoryThatTheMachineLacksIsFailure7) {
    EXPECT_FALSE(Dispatch([] { throw std::bad_alloc(); }));
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Run-time error '7':\r\n\r\nOut of memory"}));
    EXPECT_TRUE(script_.Ended);
}

class DispatchInTheWindow : public test::DirectoryTest {
  protected:
    /// The last line of the only box.
    std::string LastLine() const {
        if (script_.Messages.size() != 1) return "(not one box)";
        const std::string& text = script_.Messages[0].Text;
        return text.substr(text.rfind('\n') + 1);
    }
};

TEST_F(DispatchInTheWindow, UnsavedChangesAreKeptAndTheBoxNamesTheCopy) {
    Disk.ImageHeader = "dk";
    Disk.ImageBytes = "changed";
    Disk.ImageOnOpen = "dkas read";
    std::string atTheBox;
    script_.OnMessage = [&](const ShownMessage&) { atTheBox = test::FileBytes(LastLine()); };
    EXPECT_FALSE(Dispatch([] { Fail(9); }));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text,
              "Run-time error '9':\r\n\r\nSubscript out of range\r\n\r\n"
              "The disk with its unsaved changes was kept as:\r\n" +
                  LastLine());
    EXPECT_EQ(LastLine().substr(LastLine().rfind('/')), "/Brindlemoor rescue 1.DSK");
    EXPECT_EQ(atTheBox, "dkchanged");
    EXPECT_TRUE(script_.Ended);
}

TEST_F(DispatchInTheWindow, TheCopyIsNamedInTheLanguageInForce) {
    Settings.LanguageIndex = 1;
    Disk.ImageBytes = "changed";
    EXPECT_FALSE(Dispatch([] { Fail(9); }));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_NE(script_.Messages[0].Text.find("Los cambios del disco que no estaban grabados"),
              std::string::npos);
}

TEST_F(DispatchInTheWindow, AGridThatCannotBeFilledEndsTheProgram) {
    Settings.ColumnWidthList[4] = "wide";
    EXPECT_FALSE(Dispatch([] { SetChecked(PrincipalControl("VerBorrados"), true); }));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 20), "Run-time error '13':");
    EXPECT_TRUE(script_.Ended);
}

}  // namespace
}  // namespace brindlemoor
