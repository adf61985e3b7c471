#include "convert/edit_command.h"

#include "convert/text_repair.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/settings.h"
#include "core/temporary_file.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

constexpr int kWaitMessage = 23;
constexpr int kToTextMessage = 28;
constexpr int kLineFeedsMessage = 31;
constexpr std::uint8_t kBasicType = 0;

/// What was done to the text for the editor's sake.
struct Prepared {
    bool WasTokenized = false;
    bool AddedLineFeeds = false;
};

/// How one step of the editing ended.
enum class Stage { GoOn, Leave, EndRun };

Stage StageOf(RunStep step) {
    return step == RunStep::End ? Stage::EndRun : Stage::Leave;
}

Answer Ask(int message) {
    return Platform.ShowMessage(MessageText(message), Disk.AppTitle, Buttons::YesNoCancel,
                                MessageIcon::Question);
}

bool IsTokenizedBasic(const DirEntry& entry) {
    const bool binary = entry.FormatChar == "B" || entry.FormatChar == std::string(1, '\0');
    return entry.FileType == kBasicType && binary;
}

/// An empty program has no text, and stays as it is.
Stage OfferText(const DirEntry& entry, Prepared& prepared) {
    if (!IsTokenizedBasic(entry)) return Stage::GoOn;
    const Answer answer = Ask(kToTextMessage);
    if (answer == Answer::Cancel) return Stage::EndRun;
    if (answer != Answer::Yes) return Stage::GoOn;
    std::string text;
    const RunStep step = ChangeBasic(Disk.PcFileBytes, text);
    if (text.empty() && !entry.Content.empty()) return StageOf(step);
    Disk.PcFileBytes = text;
    prepared.WasTokenized = true;
    return Stage::GoOn;
}

Stage OfferLineFeeds(const DirEntry& entry, Prepared& prepared) {
    const bool asciiBasic = entry.FileType == kBasicType && entry.FormatChar == "A";
    if (!prepared.WasTokenized && !asciiBasic) return Stage::GoOn;
    const Answer answer = Ask(kLineFeedsMessage);
    if (answer == Answer::Cancel) return Stage::EndRun;
    if (answer != Answer::Yes) return Stage::GoOn;
    prepared.AddedLineFeeds = true;
    Disk.PcFileBytes = ReplaceText(Disk.PcFileBytes, "\r", "\r\n");
    return Stage::GoOn;
}

/// Lets the program work on the bytes. False when it did not come to that, or nothing could be read
/// back, after a message. The temporary file is gone in any case.
bool EditOutside(const std::string& path, ProgramRole editor, std::string& bytes) {
    TemporaryFile file;
    if (const std::error_code error = MakeTemporaryFile(path, bytes, file)) {
        ShowFileError(error);
        return false;
    }
    if (!StartExternalProgram(editor, file.Path)) return false;
    Platform.ShowMessage(MessageText(kWaitMessage), Disk.AppTitle, Buttons::Ok, MessageIcon::None);
    const std::error_code error = ReadTemporaryFile(file, bytes);
    if (error) ShowFileError(error);
    return !error;
}

/// Nobody means to keep a name without a file: what was there is kept, and the user is told.
void TellOfEmptyFile(const std::string& name) {
    const std::string text =
        Settings.LanguageIndex != 0
            ? "El editor dejó el archivo vacío: en el disco queda como estaba.\r\n"_w
            : "The editor left the file empty: it stays on the disk as it was.\r\n";
    Platform.ShowMessage(text + name, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

/// With line feeds added, the text goes back to what the machine reads, an ASCII program too.
RunStep StoreEdited(const FileRun& run, const Prepared& prepared) {
    std::string bytes = Disk.PcFileBytes;
    if (prepared.AddedLineFeeds) {
        std::string text = ReplaceText(bytes, "\r\n", "\r");
        const RunStep step = ChangeBasic(text, bytes);
        if (bytes.empty()) return step;
        Disk.PcFileBytes = bytes;
    }
    if (bytes == DirTable[run.Row].Content) return RunStep::GoOn;
    return StoreOnDisk(run.FileName, true, bytes);
}

}  // namespace

RunStep EditDiskFile(FileRun& run, ProgramRole editor) {
    if (!HasExternalProgram(editor)) return RunStep::End;
    const DirEntry& entry = DirTable[run.Row];
    Prepared prepared;
    if (editor == ProgramRole::TextEditor) {
        Stage stage = OfferText(entry, prepared);
        if (stage == Stage::GoOn) stage = OfferLineFeeds(entry, prepared);
        if (stage != Stage::GoOn) return stage == Stage::EndRun ? RunStep::End : RunStep::GoOn;
    }
    StripHighBits(Disk.PcFileBytes);
    const std::string given = Disk.PcFileBytes;
    if (!EditOutside(run.FullPath + ".TMP", editor, Disk.PcFileBytes)) return RunStep::GoOn;
    if (Disk.PcFileBytes == given) return RunStep::GoOn;
    if (Disk.PcFileBytes.empty()) {
        TellOfEmptyFile(run.FileName);
        return RunStep::GoOn;
    }
    return StoreEdited(run, prepared);
}

}  // namespace brindlemoor
