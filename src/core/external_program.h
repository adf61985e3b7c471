#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// What a program of the PC is needed for.
enum class ProgramRole { TextEditor, HexEditor, Painter };

/// A program, and the arguments that stand in front of the file's path.
struct ProgramCall {
    std::string Program;
    std::vector<std::string> Arguments;
    bool operator==(const ProgramCall&) const = default;
};

/// The programs to try for `role`, in their order: the user's own, named by the environment
/// variable `BRINDLEMOOR_EDITOR`, `BRINDLEMOOR_HEXEDITOR` or `BRINDLEMOOR_PAINT`, and the usual
/// ones of the PC. A variable that holds blanks is the path of a program first, and a program with
/// arguments second.
std::vector<ProgramCall> ProgramsFor(ProgramRole role);

/// True when a program for `role` is installed. If none is, a message says so and names the
/// variable.
bool HasExternalProgram(ProgramRole role);

/// Starts the first program for `role` that is installed on the file `path`, without waiting: the
/// whole path from the root on is one argument, and no shell sees it. One that does not start
/// counts as not installed. False when none did, after the same message.
bool StartExternalProgram(ProgramRole role, const std::string& path);

}  // namespace brindlemoor
