#pragma once

#include <functional>
#include <string>

namespace brindlemoor {

/// Items of `PopMenu` by their place. The last two are also reached by a drop and by the Delete
/// key.
inline constexpr int kViewCommand = 0;
inline constexpr int kEditCommand = 1;
inline constexpr int kEditBytesCommand = 2;
inline constexpr int kPaintCommand = 3;
inline constexpr int kSaveCommand = 6;
inline constexpr int kDeleteCommand = 7;

/// The first index of the items of `ConvMenu`.
inline constexpr int kFirstConversion = 20;

/// What a command works on: one selected file.
struct FileRun {
    std::string FolderPath;  ///< the folder of `File1`, also for a file of the disk
    std::string FileName;    ///< text of the list's row, or `FullName` without blanks at its end
    std::string FullPath;    ///< where the PC has the file, or would have it
    std::string BaseName;    ///< of `FileName`, in front of its first dot
    int Row = -1;            ///< of `DirTable`; -1 for a file of the PC
    bool OneOfMany = false;  ///< what it writes on the PC is flushed with the others of the run
    bool Written = false;    ///< it has written a file on the PC

    std::string Result;    ///< what a conversion made of the file
    bool Changed = false;  ///< `Result` is to be stored

    /// The path that a deleting took last. A deleting works on all files at once and ends its run,
    /// so that no other command ever finds a path here.
    std::string DeletedPath;
};

/// A file of the PC.
struct PcFile {
    std::string Folder;
    std::string Name;
};

/// Whether the next of the selected files has its turn: a Cancel ends the whole run.
enum class RunStep { GoOn, End };

/// A run for the file `name` of `folder`. Nothing in the name leads out of that folder when the
/// file is one of the disk (`row` is not -1).
FileRun FileRunOf(const std::string& folder, const std::string& name, int row = -1);

/// Puts the other form of a BASIC program into `result`; `data` is changed as `BasicConvert` does.
/// `result` is empty where the conversion failed, after the error box, and where the user gave up
/// at an error in the tokens, which ends the run.
RunStep ChangeBasic(std::string& data, std::string& result);

/// Writes `data` as a file of the open disk by `WriteFileToDisk`, and shows whether the disk
/// differs from its file then. Ends the run when the user gave up the question for another name.
RunStep StoreOnDisk(const std::string& name, bool overwrite, const std::string& data);

/// The bit of the options of `LoadPcFile` for what the run writes on the PC.
int FlushOption(const FileRun& run);

/// Writes the run's `Result` as its `FullPath` on the PC, over what stands there. Shows the error
/// of a writing that failed.
void StoreOnPc(FileRun& run);

/// Runs `run` over many files. Where it says in `written` that files of `folder` on the PC are to
/// be flushed together, the disk keeps them in the end: also where a failure ends the run, which
/// goes on from here.
void RunAndFlush(const std::string& folder, const std::function<void(bool& written)>& run);

}  // namespace brindlemoor
