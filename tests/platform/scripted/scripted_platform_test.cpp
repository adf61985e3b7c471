#include "platform/scripted/scripted_platform.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(ScriptedPlatform, MessageBoxesTakeTheAnswersInOrderAndAreRecorded) {
    Script script;
    script.Answers = {Answer::Yes, Answer::Cancel};
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_EQ(table.ShowMessage("one", "title", Buttons::YesNo, MessageIcon::Question),
              Answer::Yes);
    EXPECT_EQ(table.ShowMessage("two", "title", Buttons::OkCancel, MessageIcon::None),
              Answer::Cancel);
    ASSERT_EQ(script.Messages.size(), 2u);
    EXPECT_EQ(script.Messages[0].Text, "one");
    EXPECT_EQ(script.Messages[0].Title, "title");
    EXPECT_EQ(script.Messages[0].Choice, Buttons::YesNo);
    EXPECT_EQ(script.Messages[0].Icon, MessageIcon::Question);
    EXPECT_EQ(script.Messages[1].Given, Answer::Cancel);
    EXPECT_TRUE(script.Messages[1].Scripted);
    EXPECT_EQ(MessageTexts(script), (std::vector<std::string>{"one", "two"}));
}

TEST(ScriptedPlatform, AnUnexpectedBoxGetsTheButtonThatDeclines) {
    Script script;
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::Ok, MessageIcon::None), Answer::Ok);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::YesNo, MessageIcon::None), Answer::No);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::OkCancel, MessageIcon::None), Answer::Cancel);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::YesNoCancel, MessageIcon::None), Answer::Cancel);
    for (const ShownMessage& message : script.Messages) EXPECT_FALSE(message.Scripted);
}

TEST(ScriptedPlatform, AnAnswerWithoutAButtonStaysInTheScript) {
    Script script;
    script.Answers = {Answer::Yes};
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::OkCancel, MessageIcon::None), Answer::Cancel);
    EXPECT_EQ(script.Answers.size(), 1u);
    EXPECT_EQ(table.ShowMessage("", "", Buttons::YesNoCancel, MessageIcon::None), Answer::Yes);
}

TEST(ScriptedPlatform, PromptsTakeTheTextsAndThenEmptyOnes) {
    Script script;
    script.Texts = {"NEW.BAS"};
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_EQ(table.AskText("name?", "title", "OLD.BAS"), "NEW.BAS");
    EXPECT_EQ(table.AskText("name?", "title", "OLD.BAS"), "");
    ASSERT_EQ(script.Prompts.size(), 2u);
    EXPECT_EQ(script.Prompts[0].Suggestion, "OLD.BAS");
    EXPECT_EQ(script.Prompts[0].Given, "NEW.BAS");
}

TEST(ScriptedPlatform, ColourChoosersTakeTheColoursAndThenGiveUp) {
    Script script;
    script.Colours = {0x112233};
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_EQ(table.ChooseColour(5), 0x112233);
    EXPECT_EQ(table.ChooseColour(6), 6);
    EXPECT_EQ(script.ColourQuestions, (std::vector<std::int32_t>{5, 6}));
}

TEST(ScriptedPlatform, WhatIsStartedShownAndClosedIsRecorded) {
    Script script;
    std::string popped;
    script.OnPopup = [&popped](const std::string& menu) { popped = menu; };
    script.ProgramsStart = false;
    const PlatformTable table = ScriptedPlatform(script);
    table.PopupMenu("MenuPop");
    table.ShowModal("Acerca");
    EXPECT_FALSE(table.StartProgram("editor", {"file"}));
    EXPECT_FALSE(table.OpenWebPage("page"));
    table.CloseMainWindow();
    EXPECT_EQ(popped, "MenuPop");
    EXPECT_EQ(script.PopupMenus, std::vector<std::string>{"MenuPop"});
    EXPECT_EQ(script.ModalWindows, std::vector<std::string>{"Acerca"});
    ASSERT_EQ(script.Programs.size(), 1u);
    EXPECT_EQ(script.Programs[0].Arguments, std::vector<std::string>{"file"});
    EXPECT_EQ(script.Pages, std::vector<std::string>{"page"});
    EXPECT_TRUE(script.Closed);
    EXPECT_FALSE(script.Ended);
    table.EndProgram();
    EXPECT_TRUE(script.Ended);
}

TEST(ScriptedPlatform, AProgramThatStartsDoesItsWorkAtOnce) {
    Script script;
    std::string worked;
    script.OnProgram = [&worked](const StartedProgram& program) { worked = program.Program; };
    const PlatformTable table = ScriptedPlatform(script);
    EXPECT_TRUE(table.HasProgram("any"));
    EXPECT_TRUE(table.StartProgram("editor", {}));
    EXPECT_EQ(worked, "editor");
    script.ProgramsStart = false;
    EXPECT_FALSE(table.StartProgram("another", {}));
    EXPECT_EQ(worked, "editor");
    script.IsInstalled = [](const std::string& program) { return program == "mine"; };
    EXPECT_TRUE(table.HasProgram("mine"));
    EXPECT_FALSE(table.HasProgram("any"));
}

TEST(ScriptedPlatform, APictureComesBackFromItsFile) {
    Script script;
    const PlatformTable table = ScriptedPlatform(script);
    Picture picture;
    ResizePicture(picture, 2, 1);
    picture.Pixels = {0x123456, 0};
    const std::string bytes = table.SavePicture(picture);
    Picture read;
    ASSERT_TRUE(table.LoadPicture(bytes, read));
    EXPECT_EQ(read.Pixels, picture.Pixels);
    for (const std::string& wrong : {std::string(), bytes.substr(0, 12), bytes + "x"}) {
        EXPECT_FALSE(table.LoadPicture(wrong, read));
    }
}

}  // namespace
}  // namespace brindlemoor
