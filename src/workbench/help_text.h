#pragma once

#include <string>

namespace brindlemoor {

/// The path of the file "Brindlemoor " and `language` (Windows-1252, as the language menu shows
/// it): in the working folder, in its folder "help", or where the program is installed. Where
/// none of them has it, the bare name, which stands for the working folder.
std::string HelpTextPath(const std::string& language);

/// Opens that file with the user's text editor.
void OpenHelpText(const std::string& language);

}  // namespace brindlemoor
