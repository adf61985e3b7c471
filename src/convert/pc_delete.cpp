#include "convert/pc_delete.h"

#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/screen.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kOneFileMessage = 9;
constexpr int kManyFilesMessage = 10;

bool MayDelete(const std::string& question) {
    return Platform.ShowMessage(question, Disk.AppTitle, Buttons::OkCancel,
                                MessageIcon::Question) != Answer::Cancel;
}

/// Of a link, the link goes.
void DeletePcFile(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (fs::is_directory(status)) {
        error = std::make_error_code(std::errc::is_a_directory);
    } else if (!fs::remove(path, error) && !error) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (error) ShowFileError(error);
}

}  // namespace

void DeletePcFiles(FileRun& run, const std::vector<PcFile>& files) {
    if (files.empty()) return;
    const auto count = static_cast<std::int64_t>(files.size());
    if (count > 1 && !MayDelete(MessageText(kManyFilesMessage) + DecimalText(count))) return;
    for (const PcFile& file : files) {
        run.DeletedPath = JoinPath(file.Folder, file.Name);
        const std::string question = MessageText(kOneFileMessage) + "\r\n" + run.DeletedPath;
        if (count == 1 && !MayDelete(question)) return;
        DeletePcFile(run.DeletedPath);
    }
    Screen.RefreshPcFiles();
}

}  // namespace brindlemoor
