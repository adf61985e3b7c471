#pragma once

#include <string>

namespace brindlemoor {

/// `name`, as a disk or a tape holds it, as a name of a file in a folder of the PC: one that can
/// never lead out of that folder, and that the user finds again in a list of files. Separators of
/// any PC and control bytes become "_", and so do, where the PC's separator is "\", the characters
/// that its names may not have; an empty name, and one that begins with "." (hidden, or a way up)
/// or "-" (an option to many programs), gets "_" in front. Anything else stays byte for byte.
std::string SafeFileName(const std::string& name);

}  // namespace brindlemoor
