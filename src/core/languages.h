#pragma once

#include <string>

namespace brindlemoor {

/// Reads the settings file anew and puts it into effect: column, colour and list settings of every
/// section, then the captions, menus, lists and messages of the section `language`. Fails with
/// 730 on a key that names nothing in the main window, 9 on a menu key with more items than its
/// menu has, 13 on a colour or index that is no number.
void ApplyLanguage(const std::string& language);

/// What a choice of a language does: puts it into effect, stores it and rebuilds the grid.
/// `language` is the section's name.
void ChooseLanguage(const std::string& language);

}  // namespace brindlemoor
