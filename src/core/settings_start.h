#pragma once

#include <string>

namespace brindlemoor {

/// The folder that holds the settings folder: the variable `appdata`, else `XDG_CONFIG_HOME`,
/// else `.config` in the user's home. An empty variable counts as none.
std::string SettingsBaseFolder();

/// First half of the start-up: finds the settings file, makes it where there is none, and asks
/// whether to replace one of another version (Yes keeps the old one with the extension "BAK").
/// Ends by reading `CurrentLanguage` and running `ApplyLanguage`. Returns false when the user
/// cancelled, which ends the program. Fails with the number of the system's error where the file
/// cannot be opened, read or written.
bool InitialiseSettings();

}  // namespace brindlemoor
