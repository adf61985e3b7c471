#include "image/modified_state.h"

#include "core/disk_state.h"
#include "core/screen.h"

namespace brindlemoor {

bool DiffersFromFile() {
    const std::string& file = Disk.ImageOnOpen;
    const std::size_t header = Disk.ImageHeader.size();
    if (file.size() != header + Disk.ImageBytes.size()) return true;
    return file.compare(0, header, Disk.ImageHeader) != 0 ||
           file.compare(header, std::string::npos, Disk.ImageBytes) != 0;
}

void RefreshModified() {
    Disk.ImageModified = DiffersFromFile() ? -1 : 0;
    Screen.ShowModified();
}

}  // namespace brindlemoor
