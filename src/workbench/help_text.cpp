#include "workbench/help_text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "core/byte_helpers.h"
#include "core/external_program.h"
#include "core/pc_folders.h"
#include "core/platform.h"

namespace brindlemoor {

namespace {

std::vector<std::string> HelpFolders() {
    std::error_code error;
    const std::string here = std::filesystem::current_path(error).string();
    const std::string program = Platform.ProgramFolder();
    std::vector<std::string> folders;
    if (!here.empty()) folders = {here, JoinPath(here, "help")};
    if (!program.empty()) {
        folders.push_back(JoinPath(program, "help"));
        folders.push_back(JoinPath(program, "../share/brindlemoor/help"));
    }
    return folders;
}

}  // namespace

std::string HelpTextPath(const std::string& language) {
    const std::string name = "Brindlemoor " + language;
    for (const std::string& folder : HelpFolders()) {
        const std::vector<std::string> files = FilesIn(folder, "*");
        // PCs write the names of their files in UTF-8, or as the settings file its texts.
        const auto found = std::find_if(files.begin(), files.end(), [&name](const auto& file) {
            return file == name || Windows1252(file) == name;
        });
        if (found != files.end()) return JoinPath(folder, *found);
    }
    return name;
}

void OpenHelpText(const std::string& language) {
    StartExternalProgram(ProgramRole::TextEditor, HelpTextPath(language));
}

}  // namespace brindlemoor
