#include "filesystems/file_names.h"

#include <algorithm>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"

namespace brindlemoor {

namespace {

constexpr int kLongName = 29;
constexpr std::size_t kNameBytes = 8;
constexpr std::size_t kExtBytes = 3;

/// `text` cut, or padded with blanks, to `length` characters.
std::string Fitted(std::string text, std::size_t length) {
    text.resize(length, ' ');
    return text;
}

}  // namespace

std::string WantedName(const std::string& path) {
    std::size_t last = path.rfind('\\');
    const char separator = PathSeparator();
    if (!path.empty() && path.front() == separator) {
        const std::size_t other = path.rfind(separator);
        last = last == std::string::npos ? other : std::max(last, other);
    }
    return last == std::string::npos ? path : path.substr(last + 1);
}

DiskFileName NameForDisk(const std::string& wanted) {
    DiskFileName result;
    if (Disk.DiskFamily != kDecb && Disk.DiskFamily != kDragon) {
        result.Text = Left(wanted, kLongName);
        return result;
    }
    result.Text = Trim(UpperCase(wanted));
    std::replace(result.Text.begin(), result.Text.end(), ' ', '-');
    // The point behind the text makes sure of a first part and, where there is a point, a second.
    const std::vector<std::string> parts = SplitText(result.Text + ".", ".");
    result.Name = Fitted(parts[0], kNameBytes);
    result.Ext = Fitted(parts[1], kExtBytes);
    return result;
}

int TypeOfExtension(const std::string& ext) {
    static const std::string kTypes = "BAS,DAT,BIN,TXT,";
    constexpr std::size_t kTypeBytes = 4;
    constexpr std::size_t kOtherPosition = 9;
    const std::size_t found = kTypes.find(ext + ",");
    return static_cast<int>((found == std::string::npos ? kOtherPosition : found) / kTypeBytes);
}

}  // namespace brindlemoor
