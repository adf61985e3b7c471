#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/platform.h"

namespace brindlemoor {

/// One message box that was shown, and the answer that it got.
struct ShownMessage {
    std::string Text;
    std::string Title;
    Buttons Choice = Buttons::Ok;
    MessageIcon Icon = MessageIcon::None;
    Answer Given = Answer::Ok;
    bool Scripted = false;  ///< false: the script had no answer left, or one without a button
};

/// One prompt for a line of text that was shown, and the text that it got.
struct ShownPrompt {
    std::string Prompt;
    std::string Title;
    std::string Suggestion;
    std::string Given;
};

struct StartedProgram {
    std::string Program;
    std::vector<std::string> Arguments;
};

/// What a user who is not there would answer, and the record of what was asked. Fill the first
/// part before the routine under test runs, and look at the second behind it.
struct Script {
    // What the user does
    std::deque<Answer> Answers;     ///< taken by message boxes, first to last
    std::deque<std::string> Texts;  ///< taken by text prompts, first to last; then empty texts
    std::deque<std::string> Files;  ///< taken by file dialogs, first to last; then none is chosen
    std::deque<std::int32_t> Colours;  ///< taken by colour choosers; then the user gives up
    std::vector<DriveEntry> Drives;
    std::function<bool(const std::string& program)> IsInstalled;  ///< none: every program is
    std::string ProgramFolder;
    bool ProgramsStart = true;  ///< what `StartProgram` and `OpenWebPage` answer
    std::function<void(const ShownMessage&)> OnMessage;    ///< runs while the box stands open
    std::function<void(const StartedProgram&)> OnProgram;  ///< runs as the program that was started
    std::function<void(const std::string& window)> OnModal;
    std::function<void(const std::string& menu)> OnPopup;

    // What was asked
    std::vector<ShownMessage> Messages;
    std::vector<ShownPrompt> Prompts;
    std::vector<FileQuestion> FileQuestions;
    std::vector<std::int32_t> ColourQuestions;  ///< the colours that the choosers stood on
    std::vector<std::string> ModalWindows;
    std::vector<std::string> Windows;  ///< shown beside the main window
    std::vector<std::string> PopupMenus;
    std::vector<TextLine> DrawnLines;  ///< texts for pictures; no pixel is drawn
    std::vector<StartedProgram> Programs;
    std::vector<std::string> Pages;
    std::vector<bool> Busy;  ///< what `ShowBusy` was told, in order
    bool Closed = false;     ///< `CloseMainWindow` was called
    bool Ended = false;      ///< `EndProgram` was called
};

/// A platform whose answers come from `script`, which must outlive the table. A message box for
/// which no answer is left, or whose next answer is none of its buttons, gets the button that
/// declines; such an answer stays in the script.
PlatformTable ScriptedPlatform(Script& script);

/// A picture file as the scripted platform writes and reads it: its size in two numbers of four
/// bytes, lowest first, and then each pixel as one.
std::string ScriptedPictureFile(const Picture& picture);

/// The texts of all messages shown, in order.
std::vector<std::string> MessageTexts(const Script& script);

}  // namespace brindlemoor
