#include "image/pc_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/file_handle.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/safe_file.h"

namespace brindlemoor {

std::string VhdReply;
FilePart LastPartRead;

namespace {

namespace fs = std::filesystem;

bool ShowSystemError(const std::error_code& error) {
    ShowFileError(error);
    return false;
}

/// Names that come from a disk may hold characters that a PC's file name may not.
void ReplaceForbiddenCharacters(std::string& path) {
    for (char& character : path) {
        if (character == '<' || character == '>') character = '-';
        if (character == '*') character = 'A';
    }
}

/// Asks for the virtual drive until the answer's leading number is one, and returns its part.
FilePart AskHardDiskPart() {
    double drive = 0;
    do {
        VhdReply = Platform.AskText("Seleccione la unidad: DECB 0-255 o [ENTER] para OS9/NITROS9",
                                    Disk.AppTitle, VhdReply);
        drive = TypedNumber(VhdReply);
    } while (drive < 0 || drive > 255);
    if (VhdReply.empty()) return {0, kHardDiskOs9Bytes};
    return {kHardDiskLimit + static_cast<long long>(drive) * kVirtualDriveBytes,
            kVirtualDriveBytes};
}

bool ReadPart(std::FILE* file, FilePart part, std::string& data) {
    if (std::fseek(file, static_cast<long>(part.Offset), SEEK_SET) != 0) return false;
    data.resize(static_cast<std::size_t>(part.Length));
    const std::size_t count = std::fread(data.data(), 1, data.size(), file);
    data.resize(count);
    return std::ferror(file) == 0;
}

bool ReadPcFile(const std::string& path, std::string& data) {
    std::error_code error;
    const File file = OpenForReading(path, error);
    if (!file) return ShowSystemError(error);
    const auto size = fs::file_size(path, error);
    if (error) return ShowSystemError(error);
    FilePart part{0, static_cast<long long>(size)};
    LastPartRead = {};
    if (part.Length > kHardDiskLimit) part = LastPartRead = AskHardDiskPart();
    errno = 0;
    return ReadPart(file.get(), part, data) || ShowSystemError(LastFileError());
}

/// The questions before a file is written. False when the user gave up: `path` becomes empty.
bool AskBeforeWriting(std::string& path, int options) {
    std::error_code error;
    bool exists = fs::exists(path, error);
    if (exists && (options & kSkipOverwriteQuestion) == 0) {
        // The path goes in last: its own bytes are no line breaks and no places.
        const std::string question =
            ReplaceText(ReplaceText(MessageText(0), "\xAC", "\r\n"), "[]", path);
        const std::string answer = Platform.AskText(question, Disk.AppTitle, path);
        const bool renamed = answer != path;
        path = answer;
        if (answer.empty()) return false;
        // A file that is to be overwritten counts as deleted from here on.
        exists = renamed && fs::exists(path, error);
    }
    if (!exists && (options & kSkipCreateQuestion) == 0) {
        const Answer answer =
            Platform.ShowMessage(MessageText(2) + path + MessageText(3), Disk.AppTitle,
                                 Buttons::OkCancel, MessageIcon::Question);
        if (answer == Answer::Cancel) {
            path.clear();
            return false;
        }
    }
    return true;
}

}  // namespace

void ShowFileError(const std::error_code& error) {
    Platform.ShowMessage("Error!!! " + DecimalText(error.value()) + " " + error.message(),
                         Disk.AppTitle, Buttons::Ok, MessageIcon::Critical);
}

bool LoadPcFile(const std::string& mode, std::string& path, std::string& data, int options) {
    ReplaceForbiddenCharacters(path);
    if (mode == "A") return ReadPcFile(path, data);
    const std::string asked = path;
    if (!AskBeforeWriting(path, options)) return false;
    // Another path that the user typed may lead to another disk.
    const bool withOthers = (options & kFlushWithOthers) != 0 && path == asked;
    const std::error_code error =
        ReplaceFile(path, data, withOthers ? Flush::WithOthers : Flush::ToDisk);
    return !error || ShowSystemError(error);
}

void FlushPcFolder(const std::string& folder) {
    Platform.ShowBusy(true);  // a slow disk, and one that others write to, takes its time
    const std::error_code error = FlushFiles(folder);
    Platform.ShowBusy(false);
    if (error) ShowFileError(error);
}

bool WritePcFile(std::string& path, std::string& data, int options) {
    return LoadPcFile("G", path, data, options);
}

}  // namespace brindlemoor
