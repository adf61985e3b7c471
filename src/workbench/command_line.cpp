#include "workbench/command_line.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/pc_folders.h"
#include "core/settings.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr char kUsage[] =
    "Usage: brindlemoor [image]\n"
    "Shows, checks and changes disk and tape images of the CoCo and the Dragon.\n"
    "\n"
    "  image      a disk image to open, or a file to view\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

constexpr int kWrongUsage = 2;

std::string WholePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.lexically_normal().string();
}

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& words) {
    CommandLine line;
    bool onlyPaths = false;
    for (const std::string& word : words) {
        if (!onlyPaths && word == "--") {
            onlyPaths = true;
        } else if (!onlyPaths && (word == "--help" || word == "-h")) {
            return {{}, kUsage, 0};
        } else if (!onlyPaths && word == "--version") {
            return {{}, "Brindlemoor " + ProgramVersion() + "\n", 0};
        } else if (word.empty() || !line.Image.empty() || (!onlyPaths && word.front() == '-')) {
            return {{}, kUsage, kWrongUsage};
        } else {
            line.Image = WholePath(word);
        }
    }
    return line;
}

bool OpenFromCommandLine(const std::string& path) {
    if (!FileExists(path)) return false;
    std::string folder;
    std::string name;
    SplitPath(path, folder, name);
    ShowPcFolder(folder);
    Control& files = PrincipalControl("File1");
    const auto found = std::find(files.Items.begin(), files.Items.end(), name);
    if (found == files.Items.end()) return false;
    ClickListEntry(files, static_cast<int>(found - files.Items.begin()));
    return true;
}

}  // namespace brindlemoor
