#include "convert/paint_command.h"

#include <algorithm>
#include <utility>

#include "convert/picture_bytes.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/external_program.h"
#include "core/failure_box.h"
#include "core/platform.h"
#include "core/safe_file_name.h"
#include "core/screen.h"
#include "core/temporary_file.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

constexpr int kWaitMessage = 23;

/// The surface gets its size back whatever happens.
struct PaintedSurface {
    PaintSurface Surface;

    explicit PaintedSurface(int height) : Surface(Screen.OpenPaintSurface(kPaintedWidth, height)) {}
    ~PaintedSurface() { Surface.GiveBack(); }
    PaintedSurface(const PaintedSurface&) = delete;
    PaintedSurface& operator=(const PaintedSurface&) = delete;
};

/// Four rows for each 128 bytes: one at least, so that there is a picture, and no more than a
/// window's picture may have.
int HeightFor(std::size_t bytes) {
    constexpr std::size_t kHighest = 16383;
    return static_cast<int>(std::clamp<std::size_t>(bytes * 4 / kPaintedWidth, 1, kHighest));
}

void TellOfNoPicture() {
    constexpr int kInvalidPicture = 481;
    ShowFailure({kInvalidPicture, "Invalid picture"});
}

/// Lets the program work on the picture. False when it did not come to that, or no picture could be
/// read back, after a message. The temporary file is gone in any case.
bool PaintOutside(const std::string& path, Picture& picture) {
    TemporaryFile file;
    std::string bytes = Platform.SavePicture(picture);
    std::error_code error = MakeTemporaryFile(path, bytes, file);
    if (!error) {
        if (!StartExternalProgram(ProgramRole::Painter, file.Path)) return false;
        Platform.ShowMessage(MessageText(kWaitMessage), Disk.AppTitle, Buttons::Ok,
                             MessageIcon::None);
        error = ReadTemporaryFile(file, bytes);
    }
    if (error) {
        ShowFileError(error);
        return false;
    }
    Picture painted;
    const bool read = Platform.LoadPicture(bytes, painted);
    if (read) PlacePicture(painted, picture);
    if (!read) TellOfNoPicture();
    return read;
}

/// `picture` between the ends of the file, as the one segment of a binary.
std::string AroundPicture(const std::string& content, const std::string& picture) {
    constexpr std::int64_t kEnd = 5;
    constexpr std::size_t kLengthOffset = 1;
    std::string bytes = Left(content, kEnd) + picture + Right(content, kEnd);
    bytes.replace(kLengthOffset, 2, NumberToBytes(static_cast<double>(picture.size()), 2, "I"));
    return bytes;
}

}  // namespace

RunStep PaintDiskFile(FileRun& run) {
    if (!HasExternalProgram(ProgramRole::Painter)) return RunStep::End;
    DirEntry& entry = DirTable[run.Row];
    const std::string path = JoinPath(run.FolderPath, SafeFileName(TrimRight(entry.Name)) + ".TMP");
    {
        const PaintedSurface shown(HeightFor(Disk.PcFileBytes.size()));
        Picture none;
        Picture& picture = shown.Surface.Image != nullptr ? *shown.Surface.Image : none;
        if (!PaintOutside(path, picture)) return RunStep::GoOn;
        Disk.PcFileBytes = PictureToBytes(picture);
    }
    entry.Content = AroundPicture(entry.Content, Disk.PcFileBytes);
    return StoreOnDisk(path, true, entry.Content);
}

}  // namespace brindlemoor
