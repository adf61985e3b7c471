#include "image/open_image.h"

#include <functional>
#include <string>
#include <utility>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "image/pc_file.h"
#include "image/read_disk.h"

namespace brindlemoor {

namespace {

/// The shortest image with a DECB directory track: 17 tracks of 18 sectors of 256 bytes.
constexpr std::size_t kShortestImage = 78336;

/// The open disk, set aside while another is read.
struct SetAside {
    DiskState State;
    DirectoryTable Rows;
    std::string PathDsk;
    std::function<void()> ShowSectorView;
};

/// Sets the open disk aside without copying its image or its files. `modified` is whether it had
/// unsaved changes, before the user agreed to lose them.
SetAside SetDiskAside(std::int16_t modified) {
    SetAside aside;
    std::string image = std::move(Disk.ImageBytes);
    std::string file = std::move(Disk.ImageOnOpen);
    std::string viewed = std::move(Disk.PcFileBytes);
    aside.State = Disk;
    aside.State.ImageBytes = std::move(image);
    aside.State.ImageOnOpen = std::move(file);
    Disk.PcFileBytes = std::move(viewed);
    aside.State.ImageModified = modified;
    aside.Rows.Swap(DirTable);
    aside.PathDsk = Screen.PathDskText();
    aside.ShowSectorView = Screen.KeepSectorView();
    return aside;
}

void BringDiskBack(SetAside& aside) {
    std::string viewed = std::move(Disk.PcFileBytes);
    std::string viewedType = std::move(Disk.PcFileTypeText);
    Disk = std::move(aside.State);
    Disk.PcFileBytes = std::move(viewed);
    Disk.PcFileTypeText = std::move(viewedType);
    DirTable.Swap(aside.Rows);
    Screen.SetPathDsk(aside.PathDsk);
    aside.ShowSectorView();
    Screen.PaintTrackBlock(-1);
    Screen.FillDirectoryGrid();
    Screen.DrawSectorMap(-1);
}

/// The last three letters of a name, in upper case.
std::string ShortExtension(const std::string& name) {
    return UpperCase(Right(name, 3));
}

/// Asks whether unsaved changes may be lost, if there are any.
bool MayLeaveDisk() {
    if (Disk.ImageModified == 0) return true;
    const Answer answer = Platform.ShowMessage(MessageText(4), Disk.AppTitle, Buttons::OkCancel,
                                               MessageIcon::Question);
    if (answer != Answer::Ok) return false;
    Disk.ImageModified = 0;
    return true;
}

void ShowNewDisk(const std::string& folder, const std::string& name, const std::string& path) {
    Disk.ImageBytes = Disk.PcFileBytes;
    Disk.ImageOnOpen = Disk.PcFileBytes;
    Disk.ImageFolder = folder;
    Disk.PartPath = path;
    Disk.PartOffset = LastPartRead.Offset;
    Disk.PartLength = LastPartRead.Length;
    Disk.DiskName = name;
    Screen.SetPathDsk(path);
    Screen.GiveUpColumnSort();
    ReadDisk();
    Screen.PaintTrackBlock(-1);
    Screen.FillDirectoryGrid();
    Screen.DrawSectorMap(-1);
}

/// Opens what was loaded into `Disk.PcFileBytes`, or brings the open disk back where that fails.
void OpenLoadedImage(const std::string& folder, const std::string& name, const std::string& path) {
    const std::int16_t modified = Disk.ImageModified;
    if (!MayLeaveDisk()) return;
    SetAside before = SetDiskAside(modified);
    const auto failure = FailureOfStep([&] { ShowNewDisk(folder, name, path); });
    if (!failure) return;
    ShowFailure(*failure);
    BringDiskBack(before);
}

/// The viewer frees a text that starts with 239 of its high bits, in place. A disk may start with
/// that byte too, and is opened as it was read: its bytes, or nothing where they stay as they are.
std::string BytesThatViewRepairs(const std::string& bytes) {
    constexpr int kHighBitText = 239;
    return ByteOr(bytes, 0, 0) == kHighBitText ? bytes : std::string();
}

/// Loads the file and shows it in the viewer. A file that cannot be read leaves nothing to view.
bool LoadAndView(const std::string& name, std::string path) {
    std::string bytes;
    const bool loaded = LoadPcFile("A", path, bytes, 0);
    Disk.PcFileBytes = std::move(bytes);
    Disk.PcFileTypeText = ShortExtension(name) == "BAS" ? "0" : "2";
    const std::string repaired = BytesThatViewRepairs(Disk.PcFileBytes);
    Screen.ViewFile(-1, Disk.PcFileTypeText == "0" ? 0 : 2);
    if (!repaired.empty()) Disk.PcFileBytes = repaired;
    return loaded;
}

}  // namespace

bool HasImageExtension(const std::string& name) {
    static const std::string kImageExtensions = ".DSK.VDK.OS9.VHD.DMK";
    return kImageExtensions.find(ShortExtension(name)) != std::string::npos;
}

void OpenImageFromList() {
    const std::string folder = Screen.PcListFolder();
    const std::string name = Screen.PcListName();
    const std::string path = JoinPath(folder, name);
    Screen.SetFilePath(path);
    if (!LoadAndView(name, path) || !HasImageExtension(name)) return;
    if (Disk.PcFileBytes.size() < kShortestImage) {
        Platform.ShowMessage("Disco Virtual muy pequeño, como para leer el Directorio"_w,
                             Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
        return;
    }
    OpenLoadedImage(folder, name, path);
}

}  // namespace brindlemoor
