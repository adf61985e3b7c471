#include "core/settings.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/file_handle.h"
#include "core/runtime_failure.h"
#include "core/safe_file.h"

namespace brindlemoor {

SettingsState Settings;

namespace {

constexpr int kVersionMajor = 1;
constexpr int kVersionMinor = 1;
constexpr int kVersionRevision = 3;

const std::string kLineEnd = "\r\n";

[[noreturn]] void FailWith(const std::error_code& error) {
    throw RuntimeFailure{error.value(), error.message()};
}

bool BeginsWith(const std::string& line, const std::string& start) {
    return line.compare(0, start.size(), start) == 0;
}

/// Where a key was looked for, and what was found there.
struct KeyPlace {
    std::size_t Line = 0;  ///< of the key, or where it belongs
    bool SectionFound = false;
    bool KeyFound = false;
};

/// A header is compared by its beginning only, and one that comes again inside its own section is
/// stepped over.
KeyPlace FindKey(const std::vector<std::string>& lines, const std::string& header,
                 const std::string& keyStart) {
    KeyPlace place;
    for (; place.Line < lines.size(); ++place.Line) {
        if (BeginsWith(lines[place.Line], header)) {
            place.SectionFound = true;
            ++place.Line;
            if (place.Line == lines.size()) Fail(kIndexRange);
        }
        if (!place.SectionFound) continue;
        const std::string& line = lines[place.Line];
        if (BeginsWith(line, "[") || Trim(line).empty()) break;
        place.KeyFound = BeginsWith(line, keyStart);
        if (place.KeyFound) break;
    }
    return place;
}

/// Makes the line of a key that is not there. Where its section is missing too, the key takes the
/// very line that the header would stand on, and an empty last line follows: the section is not
/// rebuilt.
void AddKey(std::vector<std::string>& lines, const KeyPlace& place, const std::string& keyLine) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.Line), keyLine);
    if (!place.SectionFound) lines.emplace_back();
    Disk.DirCount = static_cast<int>(lines.size()) - 1;
}

void WriteSettingsLines() {
    WriteSettings(Settings.SettingsPath, JoinText(Settings.SettingsLines, kLineEnd));
}

}  // namespace

std::string ProgramVersion() {
    return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision);
}

std::string ReadSettings(const std::string& path) {
    std::error_code error;
    const File file = OpenForReading(path, error);
    if (!file) FailWith(error);
    errno = 0;
    std::string text;
    char block[16384];
    for (;;) {
        const std::size_t count = std::fread(block, 1, sizeof block, file.get());
        text.append(block, count);
        if (count < sizeof block) break;
    }
    if (std::ferror(file.get()) != 0) FailWith(LastFileError());
    return text;
}

std::string OpenOrMakeSettings(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) WriteSettings(path, "");
    return ReadSettings(path);
}

void WriteSettings(const std::string& path, const std::string& text) {
    const std::error_code error = ReplaceFile(path, text, Flush::No);
    if (error) FailWith(error);
}

int IniValue(const std::string& section, const std::string& key, std::string& value,
             const std::string& mode) {
    std::vector<std::string>& lines = Settings.SettingsLines;
    if (Settings.SettingsCacheMark.empty()) {
        lines = SplitText(ReadSettings(Settings.SettingsPath), kLineEnd);
        Settings.SettingsCacheMark = "I";
    }

    const std::string keyStart = key + "=";
    const KeyPlace place = FindKey(lines, "[" + section + "]", keyStart);
    if (!place.KeyFound) {
        AddKey(lines, place, keyStart + value);
        WriteSettingsLines();
    } else if (mode.empty()) {
        const std::string& line = lines[place.Line];
        value = line.substr(line.find('=') + 1);
    } else {
        lines[place.Line] = keyStart + value;
        if (mode == "G") WriteSettingsLines();
    }
    return static_cast<int>(place.Line);
}

void StoreSetting(const std::string& key, const std::string& value) {
    std::string stored = value;
    IniValue("General", key, stored, "G");
}

}  // namespace brindlemoor
