#include "convert/disk_commands.h"

#include <array>
#include <cstdint>
#include <string>

#include "convert/cas.h"
#include "convert/conversion.h"
#include "convert/edit_command.h"
#include "convert/file_run.h"
#include "convert/line_ends.h"
#include "convert/paint_command.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/screen.h"
#include "filesystems/delete_file.h"
#include "image/modified_state.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

RunStep ViewDiskFile(FileRun& run) {
    Screen.ShowDetached(run.FullPath, Disk.PcFileBytes, DirTable[run.Row].FileType);
    return RunStep::GoOn;
}

/// `LoadPcFile` empties the path when the user gave up.
RunStep CopyToPc(FileRun& run) {
    std::string path = run.FullPath;
    std::string bytes = Disk.PcFileBytes;
    run.Written = LoadPcFile("G", path, bytes, kSkipCreateQuestion | FlushOption(run));
    return path.empty() ? RunStep::End : RunStep::GoOn;
}

/// Works on the whole selection at once.
RunStep DeleteDiskFiles(FileRun& /*run*/) {
    DeleteCommand();
    RefreshModified();
    return RunStep::End;
}

RunStep ChangeDiskBasic(FileRun& run) {
    run.Changed = true;
    return ChangeBasic(Disk.PcFileBytes, run.Result);
}

RunStep ChangeDiskLineEnds(FileRun& run) {
    return FileLineEnds(run, Disk.PcFileBytes);
}

/// Puts `Disk.PcFileBytes` in the place of the run's file.
RunStep Replace(const FileRun& run, const std::string& name) {
    Disk.DirCount = run.Row;
    DeleteDiskFile();
    return StoreOnDisk(name, true, Disk.PcFileBytes);
}

RunStep ReplaceByOtherBasic(FileRun& run) {
    std::string text;
    const RunStep step = ChangeBasic(Disk.PcFileBytes, text);
    if (text.empty()) return step;
    Disk.PcFileBytes = text;
    return Replace(run, run.FileName);
}

/// The other form of BASIC is stored under the name that the tape would have; the tape itself is
/// made to find that name, and where it cannot be made nothing is stored.
RunStep ReplaceForTape(FileRun& run) {
    std::string text;
    const RunStep step = ChangeBasic(Disk.PcFileBytes, text);
    if (text.empty()) return step;
    Disk.PcFileBytes = text;
    const DirEntry& entry = DirTable[run.Row];
    std::string name = run.FileName;
    std::int16_t type = entry.FileType;
    std::int16_t asciiFlag = entry.FormatChar == "A" ? kAsciiFlag : std::int16_t{0};
    std::int16_t gapFlag = 0;
    const std::string tape = ConvertedOrNothing(
        [&] { return CasConvert(Disk.PcFileBytes, name, type, asciiFlag, gapFlag, 0, 0); });
    return tape.empty() ? RunStep::GoOn : Replace(run, name);
}

using Command = RunStep (*)(FileRun& run);

struct DiskCommandRow {
    int Index;
    Command Run;
};

// By place in `PopMenu`, and in `ConvMenu` from `kFirstConversion` on.
constexpr std::array<DiskCommandRow, 10> kDiskCommands = {
    {{kViewCommand, ViewDiskFile},
     {kEditCommand, [](FileRun& run) { return EditDiskFile(run, ProgramRole::TextEditor); }},
     {kEditBytesCommand, [](FileRun& run) { return EditDiskFile(run, ProgramRole::HexEditor); }},
     {kPaintCommand, PaintDiskFile},
     {kSaveCommand, CopyToPc},
     {kDeleteCommand, DeleteDiskFiles},
     {kFirstConversion, ChangeDiskBasic},
     {kFirstConversion + 1, ChangeDiskLineEnds},
     {kFirstConversion + 3, ReplaceForTape},
     {kFirstConversion + 4, ReplaceByOtherBasic}}};

Command CommandOf(int index) {
    for (const DiskCommandRow& row : kDiskCommands) {
        if (row.Index == index) return row.Run;
    }
    return nullptr;
}

bool IsDeleted(int row) {
    return (DirTable[row].Flags & kFlagDeleted) != 0;
}

RunStep RunOnRow(Command command, FileRun& run) {
    Disk.DirCount = run.Row;
    Disk.PcFileBytes = DirTable[run.Row].Content;
    const RunStep step = command(run);
    if (!run.Changed || run.Result.empty()) return step;
    const RunStep stored = StoreOnDisk(run.FileName, true, run.Result);
    return step == RunStep::End ? step : stored;
}

}  // namespace

void RunDiskCommand(int index, const std::vector<int>& rows) {
    const Command command = CommandOf(index);
    if (command == nullptr || rows.empty()) return;
    const std::string folder = Screen.PcListFolder();
    std::vector<FileRun> runs;
    for (const int row : rows) {
        if (IsDeleted(row)) continue;
        runs.push_back(FileRunOf(folder, TrimRight(DirTable[row].FullName), row));
    }
    const bool many = runs.size() > 1;
    RunAndFlush(folder, [&](bool& written) {
        for (FileRun& run : runs) {
            if (IsDeleted(run.Row)) continue;
            run.OneOfMany = many;
            const RunStep step = RunOnRow(command, run);
            written = written || (many && run.Written);
            if (step == RunStep::End) break;
        }
    });
    Screen.RefreshPcFiles();
}

}  // namespace brindlemoor
