#include "core/platform.h"

namespace brindlemoor {

namespace {

Answer DecliningAnswer(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::YesNo:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

}  // namespace

PlatformTable SilentPlatform() {
    PlatformTable table;
    table.ShowMessage = [](const std::string&, const std::string&, Buttons buttons, MessageIcon) {
        return DecliningAnswer(buttons);
    };
    table.AskText = [](const std::string&, const std::string&, const std::string&) {
        return std::string();
    };
    table.FileDialog = [](FileQuestion&) { return std::string(); };
    table.ChooseColour = [](std::int32_t colour) { return colour; };
    table.ShowModal = [](const std::string&) {};
    table.ShowWindow = [](const std::string&) {};
    table.PopupMenu = [](const std::string&) {};
    table.DrawText = [](Picture&, const TextLine&) {};
    table.SavePicture = [](const Picture&) { return std::string(); };
    table.LoadPicture = [](const std::string&, Picture&) { return false; };
    table.OpenWebPage = [](const std::string&) { return false; };
    table.HasProgram = [](const std::string&) { return false; };
    table.StartProgram = [](const std::string&, const std::vector<std::string>&) { return false; };
    table.ProgramFolder = [] { return std::string(); };
    table.ListDrives = [] { return std::vector<DriveEntry>(); };
    table.ShowBusy = [](bool) {};
    table.CloseMainWindow = [] {};
    table.EndProgram = [] {};
    return table;
}

PlatformTable Platform = SilentPlatform();

}  // namespace brindlemoor
