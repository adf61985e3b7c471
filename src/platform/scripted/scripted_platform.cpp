#include "platform/scripted/scripted_platform.h"

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

bool HasButton(Buttons buttons, Answer answer) {
    switch (buttons) {
        case Buttons::Ok:
            return answer == Answer::Ok;
        case Buttons::OkCancel:
            return answer == Answer::Ok || answer == Answer::Cancel;
        case Buttons::YesNo:
            return answer == Answer::Yes || answer == Answer::No;
        case Buttons::YesNoCancel:
            return answer != Answer::Ok;
    }
    return false;
}

Answer DecliningAnswer(Buttons buttons) {
    if (buttons == Buttons::Ok) return Answer::Ok;
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

Answer AnswerMessage(Script& script, ShownMessage message) {
    message.Given = DecliningAnswer(message.Choice);
    if (!script.Answers.empty() && HasButton(message.Choice, script.Answers.front())) {
        message.Given = script.Answers.front();
        message.Scripted = true;
        script.Answers.pop_front();
    }
    const Answer given = message.Given;
    script.Messages.push_back(message);
    if (script.OnMessage) script.OnMessage(message);
    return given;
}

std::string AnswerPrompt(Script& script, ShownPrompt prompt) {
    if (!script.Texts.empty()) {
        prompt.Given = script.Texts.front();
        script.Texts.pop_front();
    }
    script.Prompts.push_back(prompt);
    return prompt.Given;
}

std::int32_t NumberAt(const std::string& bytes, std::size_t index) {
    return static_cast<std::int32_t>(BytesToNumber(bytes.substr(index * 4, 4), ""));
}

bool ReadScriptedPicture(const std::string& bytes, Picture& picture) {
    constexpr std::size_t kHead = 2;
    if (bytes.size() < kHead * 4) return false;
    const std::int32_t width = NumberAt(bytes, 0);
    const std::int32_t height = NumberAt(bytes, 1);
    if (width < 0 || height < 0) return false;
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (bytes.size() != (kHead + count) * 4) return false;
    ResizePicture(picture, width, height);
    for (std::size_t index = 0; index < count; ++index) {
        picture.Pixels[index] = NumberAt(bytes, kHead + index);
    }
    return true;
}

}  // namespace

std::string ScriptedPictureFile(const Picture& picture) {
    std::string bytes = LongToBytes(picture.Width) + LongToBytes(picture.Height);
    for (const std::int32_t pixel : picture.Pixels) bytes += LongToBytes(pixel);
    return bytes;
}

PlatformTable ScriptedPlatform(Script& script) {
    PlatformTable table = SilentPlatform();
    table.ShowMessage = [&script](const std::string& text, const std::string& title,
                                  Buttons buttons, MessageIcon icon) {
        return AnswerMessage(script, {text, title, buttons, icon});
    };
    table.AskText = [&script](const std::string& prompt, const std::string& title,
                              const std::string& suggestion) {
        return AnswerPrompt(script, {prompt, title, suggestion, ""});
    };
    table.FileDialog = [&script](FileQuestion& question) {
        script.FileQuestions.push_back(question);
        if (script.Files.empty()) return std::string();
        std::string chosen = script.Files.front();
        script.Files.pop_front();
        return chosen;
    };
    table.ChooseColour = [&script](std::int32_t colour) {
        script.ColourQuestions.push_back(colour);
        if (script.Colours.empty()) return colour;
        const std::int32_t chosen = script.Colours.front();
        script.Colours.pop_front();
        return chosen;
    };
    table.ShowModal = [&script](const std::string& window) {
        script.ModalWindows.push_back(window);
        if (script.OnModal) script.OnModal(window);
    };
    table.ShowWindow = [&script](const std::string& window) { script.Windows.push_back(window); };
    table.PopupMenu = [&script](const std::string& menu) {
        script.PopupMenus.push_back(menu);
        if (script.OnPopup) script.OnPopup(menu);
    };
    table.DrawText = [&script](Picture& picture, const TextLine& line) {
        script.DrawnLines.push_back(line);
        ++picture.Revision;
    };
    table.OpenWebPage = [&script](const std::string& address) {
        script.Pages.push_back(address);
        return script.ProgramsStart;
    };
    table.SavePicture = ScriptedPictureFile;
    table.LoadPicture = ReadScriptedPicture;
    table.HasProgram = [&script](const std::string& program) {
        return !script.IsInstalled || script.IsInstalled(program);
    };
    table.StartProgram = [&script](const std::string& program,
                                   const std::vector<std::string>& arguments) {
        script.Programs.push_back({program, arguments});
        if (script.ProgramsStart && script.OnProgram) script.OnProgram(script.Programs.back());
        return script.ProgramsStart;
    };
    table.ProgramFolder = [&script] { return script.ProgramFolder; };
    table.ListDrives = [&script] { return script.Drives; };
    table.ShowBusy = [&script](bool busy) { script.Busy.push_back(busy); };
    table.CloseMainWindow = [&script] { script.Closed = true; };
    table.EndProgram = [&script] { script.Ended = true; };
    return table;
}

std::vector<std::string> MessageTexts(const Script& script) {
    std::vector<std::string> texts;
    for (const ShownMessage& message : script.Messages) texts.push_back(message.Text);
    return texts;
}

}  // namespace brindlemoor
