#include "workbench/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/settings.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

TEST(CommandLineTest, WithoutWordsNothingIsAsked) {
    const CommandLine line = ReadCommandLine({});
    EXPECT_EQ(line.Image, "");
    EXPECT_EQ(line.Answer, "");
    EXPECT_EQ(line.ExitCode, 0);
}

TEST(CommandLineTest, APathIsMadeWhole) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(ReadCommandLine({"a b;$(c).dsk"}).Image, here + "/a b;$(c).dsk");
    EXPECT_EQ(ReadCommandLine({"x/../a.dsk"}).Image, here + "/a.dsk");
    EXPECT_EQ(ReadCommandLine({"/disks/a.dsk"}).Image, "/disks/a.dsk");
}

TEST(CommandLineTest, HelpAndVersionAreAnswered) {
    EXPECT_EQ(ReadCommandLine({"--help"}).Answer.substr(0, 26), "Usage: brindlemoor [image]");
    EXPECT_EQ(ReadCommandLine({"-h"}).ExitCode, 0);
    EXPECT_EQ(ReadCommandLine({"--version"}).Answer, "Brindlemoor " + ProgramVersion() + "\n");
}

TEST(CommandLineTest, AnythingElseIsAnsweredWithTheUsageAndTwo) {
    const std::vector<std::vector<std::string>> wrong = {{"--what"}, {"-x"}, {""}, {"a", "b"}};
    for (const auto& words : wrong) {
        const CommandLine line = ReadCommandLine(words);
        EXPECT_EQ(line.ExitCode, 2) << words[0];
        EXPECT_EQ(line.Answer.substr(0, 6), "Usage:") << words[0];
        EXPECT_EQ(line.Image, "") << words[0];
    }
}

TEST(CommandLineTest, BehindTwoDashesEveryWordIsAPath) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(ReadCommandLine({"--", "--help"}).Image, here + "/--help");
    EXPECT_EQ(ReadCommandLine({"--", "-x.dsk"}).Image, here + "/-x.dsk");
}

class CommandLineInTheWindow : public test::WorkbenchTest {};

TEST_F(CommandLineInTheWindow, TheImageIsOpenedAsByAClick) {
    const std::string folder = PcFolder + "/disks";
    std::filesystem::create_directory(folder);
    const std::string image = test::DecbBuilder().File(0, "HELLO", "BAS", 0, 0, {3}, "x").Image();
    const std::string path = test::WriteTestFile(folder, "games.dsk", image);
    Start();
    EXPECT_TRUE(OpenFromCommandLine(path));
    EXPECT_EQ(PrincipalControl("File1").Path, folder);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, path);
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(CommandLineInTheWindow, AFileThatIsNotThereChangesNothing) {
    Start();
    const std::string before = PrincipalControl("File1").Path;
    EXPECT_FALSE(OpenFromCommandLine(PcFolder + "/elsewhere/none.dsk"));
    EXPECT_FALSE(OpenFromCommandLine(PcFolder));
    EXPECT_EQ(PrincipalControl("File1").Path, before);
    EXPECT_EQ(Disk.ImageBytes, "");
}

}  // namespace
}  // namespace brindlemoor
