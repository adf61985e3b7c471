#include "convert/file_run.h"

#include "convert/basic.h"
#include "convert/basic_to_text.h"
#include "core/byte_helpers.h"
#include "core/failure_box.h"
#include "core/runtime_failure.h"
#include "core/safe_file_name.h"
#include "filesystems/write_file.h"
#include "image/modified_state.h"
#include "image/pc_file.h"

namespace brindlemoor {

FileRun FileRunOf(const std::string& folder, const std::string& name, int row) {
    FileRun run;
    run.FolderPath = folder;
    run.FileName = name;
    run.FullPath = JoinPath(folder, row < 0 ? name : SafeFileName(name));
    run.BaseName = name.substr(0, name.find('.'));
    run.Row = row;
    return run;
}

RunStep ChangeBasic(std::string& data, std::string& result) {
    result.clear();
    const bool tokens = IsTokenized(data);
    const auto failure = FailureOfStep([&] { result = BasicConvert(data, false); });
    if (failure) ShowFailure(*failure);
    const bool gaveUp = tokens && !failure && result.empty();
    return gaveUp ? RunStep::End : RunStep::GoOn;
}

RunStep StoreOnDisk(const std::string& name, bool overwrite, const std::string& data) {
    std::string left = data;
    const bool settled = WriteFileToDisk(name, overwrite, left);
    RefreshModified();
    return settled ? RunStep::GoOn : RunStep::End;
}

int FlushOption(const FileRun& run) {
    return run.OneOfMany ? kFlushWithOthers : 0;
}

void StoreOnPc(FileRun& run) {
    std::string target = run.FullPath;
    const int options = kSkipCreateQuestion | kSkipOverwriteQuestion | FlushOption(run);
    run.Written = LoadPcFile("G", target, run.Result, options);
}

void RunAndFlush(const std::string& folder, const std::function<void(bool& written)>& run) {
    bool written = false;
    const auto failure = FailureOfStep([&] { run(written); });
    if (written) FlushPcFolder(folder);
    if (failure) throw RuntimeFailure(*failure);
}

}  // namespace brindlemoor
