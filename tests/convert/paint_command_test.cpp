#include "convert/paint_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/disk_state.h"
#include "core/screen.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "workbench/control.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

constexpr int kPaint = 3;

class PaintTest : public CommandTest {
  protected:
    void SetUp() override {
        CommandTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "PICT    ", "MAX", 2, 0, {5}, Pattern(1290, 1));
        OpenDisk(disk.Image());
        SelectRows({0});
        size_ = SizeOfPicture();
    }

    void TearDown() override {
        EXPECT_EQ(SizeOfPicture(), size_);
        CommandTest::TearDown();
    }

    static std::pair<int, int> SizeOfPicture() {
        const Control& picture = PrincipalControl("Archivo");
        return {picture.Width, picture.Height};
    }

    /// A painter that saves a picture of one colour.
    void PainterSaves(int width, int height, std::int32_t colour) {
        Picture picture;
        picture.BackColour = colour;
        ResizePicture(picture, width, height);
        EditorWrites(ScriptedPictureFile(picture));
    }

    /// 1290 bytes make 40 rows of 128 pixels.
    static std::string Painted(int rows, char byte) {
        const std::size_t bytes = static_cast<std::size_t>(rows) * 32;
        return std::string(bytes, byte) + std::string(12288 - bytes, '\xFF');
    }

    /// What the file is made of: its ends around the picture.
    static std::string Around(const std::string& picture) {
        const std::string old = Pattern(1290, 1);
        return old.substr(0, 1) + std::string("\x30\x00", 2) + old.substr(3, 2) + picture +
               old.substr(1285);
    }

    std::pair<int, int> size_;
};

TEST_F(PaintTest, ThePainterGetsThePictureAtItsNameAndTheMessageWaits) {
    std::string given;
    script_.OnProgram = [&given](const StartedProgram& program) {
        given = FileBytes(program.Arguments[0]);
    };
    RunDisk(kPaint);
    ASSERT_EQ(script_.Programs.size(), 1U);
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{PcFolder + "/PICT.TMP"});
    EXPECT_EQ(MessageTexts(script_), Texts{"Press OK when you are done editing the file"});
    Picture picture;
    ASSERT_TRUE(Platform.LoadPicture(given, picture));
    EXPECT_EQ(picture.Width, 128);
    EXPECT_EQ(picture.Height, 40);
    EXPECT_EQ(PcFiles(), Texts{});
}

TEST_F(PaintTest, TheViewersPictureHasThatSizeWhileTheMessageWaits) {
    PrincipalControl("Archivo").Visible = false;
    int width = 0;
    int height = 0;
    script_.OnMessage = [&](const ShownMessage&) {
        width = PrincipalViewer.Surface.Width;
        height = PrincipalViewer.Surface.Height;
    };
    RunDisk(kPaint);
    EXPECT_EQ(width, 128);
    EXPECT_EQ(height, 40);
    EXPECT_TRUE(PrincipalControl("Archivo").Visible);
}

TEST_F(PaintTest, TheFileKeepsItsEndsAroundThePicture) {
    PainterSaves(128, 40, 128);
    RunDisk(kPaint);
    EXPECT_EQ(DirTable[0].Content, Around(Painted(40, '\x55')));
}

TEST_F(PaintTest, AFileNamedTmpOfItGoesOntoTheDisk) {
    PainterSaves(128, 40, 0);
    RunDisk(kPaint);
    EXPECT_EQ(LiveRows(), "PICT.MAX PICT.TMP ");
    EXPECT_EQ(DirTable[1].Content, Around(Painted(40, '\0')));
    EXPECT_EQ(DirTable[1].Size, 12298);
    EXPECT_EQ(Disk.ImageModified, -1);
}

TEST_F(PaintTest, APaintedPictureOfAnotherSizeIsCutOrFilled) {
    PainterSaves(500, 500, 0x800000);
    RunDisk(kPaint);
    EXPECT_EQ(DirTable[0].Content, Around(Painted(40, '\xAA')));
    PainterSaves(128, 4, 0);
    DirTable[0].Content = Pattern(1290, 1);
    SelectRows({0});
    RunDisk(kPaint);
    EXPECT_EQ(DirTable[0].Content, Around(Painted(4, '\0')));
}

TEST_F(PaintTest, AFileOfFewerThanTenBytesIsTakenAsItIs) {
    DirTable[0].Content = "abc";
    PainterSaves(128, 384, 0);
    RunDisk(kPaint);
    EXPECT_EQ(DirTable[0].Content, std::string("a\x30\x00", 3) + Painted(1, '\0') + "abc");
}

TEST_F(PaintTest, WithoutAPainterNothingChanges) {
    script_.IsInstalled = [](const std::string&) { return false; };
    RunDisk(kPaint);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_NE(script_.Messages[0].Text.find("BRINDLEMOOR_PAINT"), std::string::npos);
    EXPECT_EQ(DirTable[0].Content, Pattern(1290, 1));
    EXPECT_EQ(LiveRows(), "PICT.MAX ");
}

TEST_F(PaintTest, APainterThatFailsToStartDeletesItOrLeavesNoPictureChangesNothing) {
    script_.ProgramsStart = false;
    RunDisk(kPaint);
    script_.ProgramsStart = true;
    script_.OnProgram = [](const StartedProgram& program) { fs::remove(program.Arguments[0]); };
    RunDisk(kPaint);
    for (const char* bytes : {"", "no picture"}) {
        EditorWrites(bytes);
        RunDisk(kPaint);
    }
    script_.OnProgram = [](const StartedProgram& program) {
        fs::resize_file(program.Arguments[0], 100U << 20U);
    };
    RunDisk(kPaint);
    const Texts texts = MessageTexts(script_);
    ASSERT_EQ(texts.size(), 9U);
    EXPECT_NE(texts[0].find("BRINDLEMOOR_PAINT"), std::string::npos);
    EXPECT_EQ(texts[2], "Error!!! 2 No such file or directory");
    EXPECT_EQ(texts[4], "Run-time error '481':\r\n\r\nInvalid picture");
    EXPECT_EQ(texts[6], texts[4]);
    EXPECT_EQ(texts[8], "Error!!! 27 File too large");
    EXPECT_EQ(DirTable[0].Content, Pattern(1290, 1));
    EXPECT_EQ(LiveRows(), "PICT.MAX ");
    EXPECT_EQ(PcFiles(), Texts{});
}

TEST_F(PaintTest, AFileOfTheUserOfItsNameStaysAndTheDisksNameIsTheSame) {
    WriteTestFile(PcFolder, "PICT.TMP", "the user's");
    PainterSaves(128, 40, 0);
    RunDisk(kPaint);
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{PcFolder + "/PICT.1.TMP"});
    EXPECT_EQ(PcFile("PICT.TMP"), "the user's");
    EXPECT_EQ(LiveRows(), "PICT.MAX PICT.TMP ");
}

TEST_F(PaintTest, ANameFromTheDiskLeadsNowhere) {
    DirTable[0].Name = "../X    ";
    RunDisk(kPaint);
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{PcFolder + "/---X.TMP"});
}

TEST_F(PaintTest, TheLongestFileMakesAPictureThatAWindowCanShow) {
    DirTable[0].Content = std::string(4000000, 'x');
    int height = 0;
    script_.OnMessage = [&height](const ShownMessage&) { height = PrincipalViewer.Surface.Height; };
    RunDisk(kPaint);
    EXPECT_EQ(height, 16383);
}

}  // namespace
}  // namespace brindlemoor::test
