// The program's logic as a process that does one job and ends, to be measured beside other
// programs that are such a process:
//
//   brindlemoor_one_job dir IMAGE             lists the directory
//   brindlemoor_one_job get IMAGE FOLDER      writes all files, as the menu's command does
//   brindlemoor_one_job get-only IMAGE FOLDER the same without waiting for the disk
//   brindlemoor_one_job convert TAPE WAV      turns a cassette stream into sound

#include <cstdio>
#include <string>
#include <vector>

#include "convert/disk_commands.h"
#include "convert/file_commands.h"
#include "convert/wav.h"
#include "core/disk_state.h"
#include "core/file_operations.h"
#include "core/platform.h"
#include "core/safe_file.h"
#include "core/screen.h"
#include "core/settings.h"
#include "image/pc_file.h"
#include "image/read_disk.h"

namespace {

using namespace brindlemoor;

bool Open(std::string image) {
    if (!LoadPcFile("A", image, Disk.ImageBytes, 0)) return false;
    ReadDisk();
    return Disk.DirRows > 0;
}

int List() {
    for (int row = 0; row < Disk.DirRows; ++row) {
        const DirEntry& entry = DirTable[row];
        std::printf("%-40s %8ld\n", entry.FullName.c_str(), static_cast<long>(entry.Size));
    }
    return 0;
}

int WriteAll(const std::string& folder) {
    Screen.PcListFolder = [&folder] { return folder; };
    std::vector<int> rows;
    for (int row = 0; row < Disk.DirRows; ++row) rows.push_back(row);
    RunDiskCommand(kSaveCommand, rows);
    return 0;
}

void WaitForNoDisk() {
    FileOperations.FlushToDisk = [](std::FILE*) { return true; };
    FileOperations.FlushFolder = [](const std::string&) {};
    FileOperations.FlushFileSystem = [](const std::string&) { return std::error_code(); };
}

/// With the values that the window of the sound options starts with.
int MakeSound(std::string tape, const std::string& wave) {
    Settings.SettingsCacheMark = "I";
    Settings.SettingsLines = {"[Audio Options]",  "WavFormat=1",   "SampleRate=44100",
                              "BitsPerSample=8",  "NumChannels=1", "Volume=110",
                              "Frec1200=1200",    "Frec2400=2400", "SilenceStart=1",
                              "SilenceHeader=500"};
    std::string bytes;
    if (!LoadPcFile("A", tape, bytes, 0)) return 1;
    std::string name = tape;
    const std::string sound = WavConvert(bytes, name);
    return sound.empty() || ReplaceFile(wave, sound, Flush::No) ? 1 : 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    Platform = SilentPlatform();
    Screen = NoScreen();
    if (words.size() == 2 && words[0] == "dir" && Open(words[1])) return List();
    if (words.size() == 3 && words[0] == "get-only") WaitForNoDisk();
    if (words.size() == 3 && words[0].rfind("get", 0) == 0 && Open(words[1])) {
        return WriteAll(words[2]);
    }
    if (words.size() == 3 && words[0] == "convert") return MakeSound(words[1], words[2]);
    return 1;
}
