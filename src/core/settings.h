#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace brindlemoor {

/// A colour that the user can change: its settings key, value and built-in value (0x00BBGGRR).
struct ColourOption {
    std::string Name;
    std::int32_t Value = 0;
    std::int32_t Default = 0;
};

/// The entries of `ColourOptions` in use.
enum ColourOptionIndex { kAlternateRowColour = 0, kSectorErrorColour = 1, kContinuationColour = 2 };

/// What the program knows of its settings file.
struct SettingsState {
    std::string SettingsPath;                  ///< full path of the file, once start-up has run
    std::vector<std::string> SettingsLines;    ///< the file split at CR LF, as `IniValue` sees it
    std::string SettingsCacheMark;             ///< not empty: `SettingsLines` is valid
    std::string CurrentLanguage;               ///< name of the language section in force
    int LanguageIndex = 0;                     ///< checked item of `LanguageMenu`
    std::vector<std::string> ColumnOrderList;  ///< 18 items, index 0 is column 1
    std::vector<std::string> ColumnWidthList;  ///< 18 items, index 0 is column 1
    std::vector<std::string> VisibleColumnsList;  ///< 4 items, by `DiskFamily`
    std::vector<std::string> ColumnHeaderList;    ///< 18 items, index 0 is column 1
    std::array<ColourOption, 10> ColourOptions;
};

extern SettingsState Settings;

/// The version that stands in the settings file and in the window's title.
std::string ProgramVersion();

/// The settings file whole. Fails with the number of the system's error where it cannot be read.
std::string ReadSettings(const std::string& path);

/// The same; a file that is not there is made, empty.
std::string OpenOrMakeSettings(const std::string& path);

/// Empties the settings file and writes `text` into it. Fails with the number of the system's
/// error.
void WriteSettings(const std::string& path, const std::string& text);

/// Reads ("" as `mode`) or replaces (any other mode; "G" also writes the file) the value of a key,
/// and returns the index of its line in `SettingsLines`. Names are compared exactly. A missing
/// key is made with `value`, and the file written, in every mode; `Disk.DirCount` is overwritten
/// then with the new last index. A header as the very last line fails with 9.
int IniValue(const std::string& section, const std::string& key, std::string& value,
             const std::string& mode);

/// Stores a key of `[General]`, and writes the file.
void StoreSetting(const std::string& key, const std::string& value);

}  // namespace brindlemoor
