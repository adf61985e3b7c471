#include "convert/line_ends.h"

#include <gtest/gtest.h>

#include "convert/file_commands.h"
#include "core/disk_state.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

class LineEndsTest : public CommandTest {
  protected:
    /// The step on a file whose delete command took that path, with the user's answer.
    RunStep Change(const std::string& deleted, const std::string& text, Answer answer) {
        run_ = FileRun();
        run_.FileName = "A.TXT";
        run_.DeletedPath = deleted;
        script_.Messages.clear();
        script_.Answers = {answer};
        return FileLineEnds(run_, text);
    }

    FileRun run_;
};

TEST_F(LineEndsTest, WithoutAPathTheCommandEndsWithNoEffectAndNoMessage) {
    for (const char* path : {"", "BA", "/pc/A.BIN", "/pc/A.bas", "/pc/A.BASX"}) {
        EXPECT_EQ(Change(path, "a\rb", Answer::Yes), RunStep::GoOn);
        EXPECT_FALSE(run_.Changed);
        EXPECT_TRUE(script_.Messages.empty());
    }
}

TEST_F(LineEndsTest, BehindTheGuardTheUserIsWarned) {
    for (const char* path : {"/pc/A.BAS", "/pc/ATXT"}) {
        Change(path, "a\rb", Answer::No);
        ASSERT_EQ(script_.Messages.size(), 1U);
        EXPECT_EQ(script_.Messages[0].Text,
                  "Peligro!!!.. La extensi\xF3n del archivo: A.TXTdeberia ser BAS o TXT\r\n"
                  "este archivo no deberia ser convertido\r\nA\xFAn asi desea convertirlo?");
        EXPECT_EQ(script_.Messages[0].Choice, Buttons::YesNoCancel);
        EXPECT_EQ(script_.Messages[0].Title, Disk.AppTitle);
    }
}

TEST_F(LineEndsTest, CancelEndsTheRunAndNoEndsTheFile) {
    EXPECT_EQ(Change("A.BAS", "a\rb", Answer::Cancel), RunStep::End);
    EXPECT_FALSE(run_.Changed);
    EXPECT_EQ(Change("A.BAS", "a\rb", Answer::No), RunStep::GoOn);
    EXPECT_FALSE(run_.Changed);
}

TEST_F(LineEndsTest, WithoutCrLfEveryCrBecomesOne) {
    EXPECT_EQ(Change("A.BAS", "a\rb\r", Answer::Yes), RunStep::GoOn);
    EXPECT_TRUE(run_.Changed);
    EXPECT_EQ(run_.Result, "a\r\nb\r\n");
}

TEST_F(LineEndsTest, WithAMixedTextTheLoneCrStays) {
    Change("A.TXT", "a\r\nb\rc\r\n", Answer::Yes);
    EXPECT_EQ(run_.Result, "a\rb\rc\r");
}

TEST_F(LineEndsTest, TheMenuEntryDoesNothingOnEitherSide) {
    OpenDisk(DecbBuilder().File(0, "A       ", "BAS", 0, 255, {5}, "a\rb\r").Image());
    SelectFiles({{"A.BAS", "a\rb\r"}});
    SelectRows({0});
    const std::string before = Disk.ImageBytes;
    RunPc(21);
    RunDisk(21);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(PcFile("A.BAS"), "a\rb\r");
    EXPECT_EQ(Disk.ImageBytes, before);
}

TEST_F(LineEndsTest, ADeletingBeforeItOpensNoWay) {
    SelectFiles({{"GONE.BAS", "x"}});
    script_.Answers = {Answer::Ok};
    RunPc(kDeleteCommand);
    ASSERT_EQ(PcFile("GONE.BAS"), "(none)");
    script_.Messages.clear();
    SelectFiles({{"A.BAS", "a\rb\r"}});
    RunPc(21);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(PcFile("A.BAS"), "a\rb\r");
}

}  // namespace
}  // namespace brindlemoor::test
