#pragma once

#include <string>

namespace brindlemoor {

/// `name`, as a disk or a tape holds it, as a name of a file in a folder of the PC: one that can
/// never lead out of that folder, and that the user finds again in a list of files. Separators of
/// any PC, control bytes, dots in front (hidden, or a way up) and, where the PC's separator is "\",
/// the characters that its names may not have become "-" each; an empty name becomes "-". Anything
/// else stays byte for byte. A name may begin with "-": give programs whole paths.
std::string SafeFileName(const std::string& name);

}  // namespace brindlemoor
