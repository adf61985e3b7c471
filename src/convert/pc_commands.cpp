#include "convert/pc_commands.h"

#include <array>
#include <cstdint>
#include <utility>

#include "convert/cartridge.h"
#include "convert/cas.h"
#include "convert/conversion.h"
#include "convert/line_ends.h"
#include "convert/pc_delete.h"
#include "convert/wav.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/external_program.h"
#include "core/platform.h"
#include "core/safe_file_name.h"
#include "core/screen.h"
#include "core/settings.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

RunStep ViewPcFile(FileRun& run) {
    constexpr int kBasicType = 0;
    constexpr int kBinaryType = 2;
    const bool basic = UpperCase(Right(run.FileName, 3)) == "BAS";
    Screen.ShowDetached(run.FullPath, Disk.PcFileBytes, basic ? kBasicType : kBinaryType);
    return RunStep::GoOn;
}

/// The program works on the file itself. A message that there is none comes once.
RunStep StartOn(const FileRun& run, ProgramRole role) {
    return StartExternalProgram(role, run.FullPath) ? RunStep::GoOn : RunStep::End;
}

RunStep EditPcFile(FileRun& run) {
    return StartOn(run, ProgramRole::TextEditor);
}

RunStep EditBytesOfPcFile(FileRun& run) {
    return StartOn(run, ProgramRole::HexEditor);
}

RunStep PaintPcFile(FileRun& run) {
    return StartOn(run, ProgramRole::Painter);
}

RunStep CopyToDisk(FileRun& run) {
    return StoreOnDisk(run.FullPath, false, Disk.PcFileBytes);
}

RunStep ChangePcBasic(FileRun& run) {
    run.Changed = true;
    return ChangeBasic(Disk.PcFileBytes, run.Result);
}

RunStep ChangePcLineEnds(FileRun& run) {
    return FileLineEnds(run, Disk.PcFileBytes);
}

/// The name on a tape is as foreign as one on a disk.
RunStep ChangePcTape(FileRun& run) {
    std::string name = run.FileName;
    std::int16_t type = 0;
    std::int16_t asciiFlag = 0;
    std::int16_t gapFlag = 0;
    run.Result = ConvertedOrNothing(
        [&] { return CasConvert(Disk.PcFileBytes, name, type, asciiFlag, gapFlag, 0, 0); });
    run.FullPath = JoinPath(run.FolderPath, SafeFileName(name));
    run.Changed = true;
    return RunStep::GoOn;
}

RunStep ChangePcSound(FileRun& run) {
    run.FullPath = JoinPath(run.FolderPath, run.BaseName);
    run.Result = ConvertedOrNothing([&] { return WavConvert(Disk.PcFileBytes, run.FullPath); });
    run.Changed = true;
    return RunStep::GoOn;
}

/// Only the name is given: a dot in the name of a folder begins no extension.
RunStep ChangePcCartridge(FileRun& run) {
    std::string name = run.FileName;
    run.Result = ConvertedOrNothing([&] { return CartConvert(Disk.PcFileBytes, name); });
    run.FullPath = JoinPath(run.FolderPath, name);
    run.Changed = true;
    return RunStep::GoOn;
}

using Command = RunStep (*)(FileRun& run);

struct PcCommandRow {
    int Index;
    Command Run;
};

// By place in `PopMenu`, and in `ConvMenu` from `kFirstConversion` on. The words of the menus say
// other things of the last four.
constexpr std::array<PcCommandRow, 12> kPcCommands = {{{kViewCommand, ViewPcFile},
                                                       {kEditCommand, EditPcFile},
                                                       {kEditBytesCommand, EditBytesOfPcFile},
                                                       {kPaintCommand, PaintPcFile},
                                                       {kSaveCommand, CopyToDisk},
                                                       {kFirstConversion, ChangePcBasic},
                                                       {kFirstConversion + 1, ChangePcLineEnds},
                                                       {kFirstConversion + 3, ChangePcTape},
                                                       {kFirstConversion + 4, ChangePcSound},
                                                       {kFirstConversion + 5, ChangePcCartridge},
                                                       {kFirstConversion + 6, ChangePcBasic},
                                                       {kFirstConversion + 7, ChangePcBasic}}};

Command CommandOf(int index) {
    for (const PcCommandRow& row : kPcCommands) {
        if (row.Index == index) return row.Run;
    }
    return nullptr;
}

/// What was made of one drive of a hard disk image must not take the place of the whole image.
void TellThatOnlyAPartWasRead(const std::string& path) {
    const bool spanish = Settings.LanguageIndex != 0;
    Platform.ShowMessage(
        (spanish ? "Solo se leyó una parte de este archivo, que por eso queda como está:"_w
                 : "Only a part of this file was read, which therefore stays as it is:"_w) +
            "\r\n" + path,
        Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

/// `made` becomes true when a file that was not there before may have come to be.
RunStep RunOnFile(Command command, FileRun& run, bool& made) {
    const std::string source = run.FullPath;
    std::string path = source;
    std::string bytes;
    if (!LoadPcFile("A", path, bytes, 0)) return RunStep::GoOn;
    const bool partly = LastPartRead.Length != 0;
    Disk.PcFileBytes = std::move(bytes);
    const RunStep step = command(run);
    if (!run.Changed || run.Result.empty()) return step;
    if (partly && run.FullPath == source) {
        TellThatOnlyAPartWasRead(source);
        return step;
    }
    StoreOnPc(run);
    made = made || run.FullPath != source;
    return step;
}

}  // namespace

void RunPcCommand(int index, const std::vector<PcFile>& files) {
    if (index == kDeleteCommand) {
        FileRun run;
        DeletePcFiles(run, files);
        return;
    }
    const Command command = CommandOf(index);
    if (command == nullptr || files.empty()) return;
    bool made = false;
    const bool many = files.size() > 1;
    RunAndFlush(files.front().Folder, [&](bool& written) {
        for (const PcFile& file : files) {
            FileRun run = FileRunOf(file.Folder, file.Name);
            run.OneOfMany = many;
            const RunStep step = RunOnFile(command, run, made);
            written = written || (many && run.Written);
            if (step == RunStep::End) break;
        }
    });
    if (made) Screen.RefreshPcFiles();
}

}  // namespace brindlemoor
