#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// The dialog of the values that tapes are turned into sound with. Its combo boxes bear the names
/// of the keys of the section "Audio Options".
extern Window AudioConvert;

/// Builds the dialog anew, as it stands before it is shown: the combo boxes hold what the settings
/// file has for them, the captions are those of the language in force, and the derived numbers
/// follow. A key that is missing comes into being with the value of the design. Fails as
/// `IniValue` does.
void OpenAudioConvert();

}  // namespace brindlemoor
