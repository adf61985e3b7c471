#include "core/platform.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(SilentPlatform, AnswersEveryQuestionWithTheButtonThatDeclines) {
    const PlatformTable table = SilentPlatform();
    const auto answer = [&table](Buttons buttons) {
        return table.ShowMessage("text", "title", buttons, MessageIcon::None);
    };
    EXPECT_EQ(answer(Buttons::Ok), Answer::Ok);
    EXPECT_EQ(answer(Buttons::OkCancel), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::YesNo), Answer::No);
    EXPECT_EQ(answer(Buttons::YesNoCancel), Answer::Cancel);
}

TEST(SilentPlatform, DoesAndFindsNothing) {
    const PlatformTable table = SilentPlatform();
    EXPECT_EQ(table.AskText("prompt", "title", "suggestion"), "");
    EXPECT_FALSE(table.OpenWebPage("address"));
    EXPECT_FALSE(table.HasProgram("program"));
    EXPECT_FALSE(table.StartProgram("program", {}));
    Picture picture;
    EXPECT_EQ(table.SavePicture(picture), "");
    EXPECT_FALSE(table.LoadPicture("bytes", picture));
    EXPECT_EQ(table.ProgramFolder(), "");
    EXPECT_TRUE(table.ListDrives().empty());
    EXPECT_EQ(table.ChooseColour(0x112233), 0x112233);
    table.ShowModal("window");
    table.PopupMenu("menu");
    table.CloseMainWindow();
    table.EndProgram();
}

}  // namespace
}  // namespace brindlemoor
