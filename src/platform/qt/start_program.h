#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// True when `program` can be started: the path of an executable file, or the name of one in the
/// folders where the system looks for programs. On Windows that is left to the start itself.
bool IsProgramInstalled(const std::string& program);

/// Starts a program that goes on by itself, with a list of arguments that arrive byte for byte.
/// Returns at once; false when it cannot be started.
bool StartProgramDetached(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace brindlemoor
