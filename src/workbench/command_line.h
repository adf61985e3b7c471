#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// What the program was started with.
struct CommandLine {
    std::string Image;   ///< path of the image to open, whole; empty without one
    std::string Answer;  ///< not empty: print this, and end with `ExitCode`
    int ExitCode = 0;
};

/// Reads the words behind the program's name: "--help" ("-h"), "--version", or one path. Behind
/// "--" every word is a path. Anything else is answered with the usage and exit code 2.
CommandLine ReadCommandLine(const std::vector<std::string>& words);

/// Shows the folder of `path` and clicks the file in the list. Returns false, and leaves all as it
/// is, when there is no such file.
bool OpenFromCommandLine(const std::string& path);

}  // namespace brindlemoor
