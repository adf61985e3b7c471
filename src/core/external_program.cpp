#include "core/external_program.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/settings.h"

namespace brindlemoor {

namespace {

struct RoleRow {
    ProgramRole Role;
    const char* Variable;
    const char* English;  ///< what the program is for, as the message says it
    const char* Spanish;
    std::vector<std::string> Programs;
};

const std::vector<RoleRow>& RoleRows() {
#ifdef _WIN32
    static const std::vector<RoleRow> rows = {{ProgramRole::TextEditor,
                                               "BRINDLEMOOR_EDITOR",
                                               "edits texts",
                                               "edite textos",
                                               {"Notepad.exe"}},
                                              {ProgramRole::HexEditor,
                                               "BRINDLEMOOR_HEXEDITOR",
                                               "edits bytes in hexadecimal",
                                               "edite bytes en hexadecimal",
                                               {"Hexedit.exe"}},
                                              {ProgramRole::Painter,
                                               "BRINDLEMOOR_PAINT",
                                               "paints pictures",
                                               "pinte imágenes",
                                               {"Mspaint.exe"}}};
#else
    static const std::vector<RoleRow> rows = {
        {ProgramRole::TextEditor,
         "BRINDLEMOOR_EDITOR",
         "edits texts",
         "edite textos",
         {"gnome-text-editor", "gedit", "kate", "kwrite", "xed", "pluma", "mousepad", "featherpad",
          "l3afpad", "leafpad", "geany", "gvim", "emacs", "xedit"}},
        {ProgramRole::HexEditor,
         "BRINDLEMOOR_HEXEDITOR",
         "edits bytes in hexadecimal",
         "edite bytes en hexadecimal",
         {"okteta", "ghex", "bless", "imhex", "wxHexEditor", "wxhexeditor"}},
        {ProgramRole::Painter,
         "BRINDLEMOOR_PAINT",
         "paints pictures",
         "pinte imágenes",
         {"kolourpaint", "mtpaint", "pinta", "drawing", "gpaint", "gimp", "krita", "xpaint"}}};
#endif
    return rows;
}

const RoleRow& RowOf(ProgramRole role) {
    const std::vector<RoleRow>& rows = RoleRows();
    return *std::find_if(rows.begin(), rows.end(),
                         [role](const RoleRow& row) { return row.Role == role; });
}

/// What the user's variable asks for, in the order in which it may be meant.
std::vector<ProgramCall> OwnPrograms(const char* variable) {
    const char* value = std::getenv(variable);
    const std::string text = value == nullptr ? std::string() : Trim(value);
    if (text.empty()) return {};
    std::vector<std::string> words = SplitText(text, " ");
    words.erase(std::remove(words.begin(), words.end(), std::string()), words.end());
    std::vector<ProgramCall> programs = {{text, {}}};
    if (words.size() > 1) programs.push_back({words[0], {words.begin() + 1, words.end()}});
    return programs;
}

void TellOfNoProgram(ProgramRole role) {
    const RoleRow& row = RowOf(role);
    const std::string variable = row.Variable;
    const bool spanish = Settings.LanguageIndex != 0;
    const std::string text =
        spanish ? "No se encontró ningún programa que "_w + Windows1252(row.Spanish) +
                      ".\r\n\r\nInstale uno, o escriba el suyo en la variable de entorno " +
                      variable + "."
                : "No program that " + std::string(row.English) +
                      " was found.\r\n\r\nInstall one, or name your own in the environment "
                      "variable " +
                      variable + ".";
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

std::string WholePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.string();
}

bool Starts(const ProgramCall& call, const std::string& path) {
    if (!Platform.HasProgram(call.Program)) return false;
    std::vector<std::string> arguments = call.Arguments;
    arguments.push_back(path);
    return Platform.StartProgram(call.Program, arguments);
}

}  // namespace

std::vector<ProgramCall> ProgramsFor(ProgramRole role) {
    const RoleRow& row = RowOf(role);
    std::vector<ProgramCall> programs = OwnPrograms(row.Variable);
    for (const std::string& program : row.Programs) programs.push_back({program, {}});
    return programs;
}

bool HasExternalProgram(ProgramRole role) {
    const std::vector<ProgramCall> programs = ProgramsFor(role);
    const bool found = std::any_of(programs.begin(), programs.end(), [](const ProgramCall& call) {
        return Platform.HasProgram(call.Program);
    });
    if (!found) TellOfNoProgram(role);
    return found;
}

bool StartExternalProgram(ProgramRole role, const std::string& path) {
    const std::string whole = WholePath(path);
    const std::vector<ProgramCall> programs = ProgramsFor(role);
    const bool started =
        std::any_of(programs.begin(), programs.end(),
                    [&whole](const ProgramCall& call) { return Starts(call, whole); });
    if (!started) TellOfNoProgram(role);
    return started;
}

}  // namespace brindlemoor
