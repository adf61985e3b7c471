#include "platform/qt/start_program.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTest>
#include <filesystem>
#include <fstream>

#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

class StartProgramTest : public testing::Test {
  protected:
    void SetUp() override { folder_ = FreshFolder(); }

    /// A program in that folder.
    std::string Program(const std::string& name, const std::string& script) {
        const std::string path = WriteTestFile(folder_, name, script);
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    /// The bytes of a file that a program is about to write and then to rename into place.
    static std::string WhenThere(const std::string& path) {
        if (!QTest::qWaitFor([&path] { return fs::exists(path); }, 5000)) return "(none)";
        return FileBytes(path);
    }

    std::string folder_;
};

TEST_F(StartProgramTest, EveryArgumentArrivesByteForByteAndNoShellSeesIt) {
    const std::string program = Program("args",
                                        "#!/bin/sh\n"
                                        "for word in \"$@\"; do printf '[%s]' \"$word\"; done "
                                        "> \"$0.part\"\n"
                                        "mv \"$0.part\" \"$0.out\"\n");
    ASSERT_TRUE(StartProgramDetached(
        program, {"$(touch " + folder_ + "/seen)", "a b;c", "-rf", "ni\xF1o", "\xC3\xB1", ""}));
    EXPECT_EQ(WhenThere(program + ".out"),
              "[$(touch " + folder_ + "/seen)][a b;c][-rf][ni\xF1o][\xC3\xB1][]");
    EXPECT_FALSE(fs::exists(folder_ + "/seen"));
}

TEST_F(StartProgramTest, ReturnsWithoutWaiting) {
    const std::string program = Program("slow", "#!/bin/sh\nsleep 1\n: > \"$0.out\"\n");
    ASSERT_TRUE(StartProgramDetached(program, {}));
    EXPECT_FALSE(fs::exists(program + ".out"));
    EXPECT_NE(WhenThere(program + ".out"), "(none)");
}

TEST_F(StartProgramTest, WhatCannotBeStartedIsNoProgram) {
    EXPECT_FALSE(StartProgramDetached(folder_ + "/gone", {}));
    EXPECT_FALSE(StartProgramDetached(WriteTestFile(folder_, "text", "x"), {}));
    EXPECT_FALSE(StartProgramDetached(folder_, {}));
    EXPECT_FALSE(StartProgramDetached("no-program-of-this-name", {}));
}

TEST_F(StartProgramTest, AProgramIsFoundByItsPathOrInTheFoldersOfPrograms) {
    EXPECT_TRUE(IsProgramInstalled("sh"));
    EXPECT_TRUE(IsProgramInstalled(Program("mine", "#!/bin/sh\n")));
    EXPECT_FALSE(IsProgramInstalled("no-program-of-this-name"));
    EXPECT_FALSE(IsProgramInstalled(folder_ + "/gone"));
    EXPECT_FALSE(IsProgramInstalled(WriteTestFile(folder_, "text", "x")));
    EXPECT_FALSE(IsProgramInstalled(folder_));
    EXPECT_FALSE(IsProgramInstalled(""));
}

}  // namespace
}  // namespace brindlemoor::test
