#include "image/rescue_copy.h"

#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/safe_file.h"
#include "core/screen.h"
#include "core/settings.h"
#include "image/modified_state.h"
#include "image/open_image.h"

namespace brindlemoor {

namespace {

constexpr int kMostCopies = 999;

/// So that the copy opens by a click as its image does.
std::string ExtensionOfImage() {
    const std::string path = Screen.PathDskText();
    const std::size_t dot = path.rfind('.');
    const std::string extension = dot == std::string::npos ? std::string() : path.substr(dot);
    return extension.size() == 4 && HasImageExtension(path) ? extension : ".DSK";
}

/// A path that nothing has yet; empty when all numbers are taken.
std::string FreePath() {
    std::string folder;
    std::string settings;
    SplitPath(Settings.SettingsPath, folder, settings);
    const std::string extension = ExtensionOfImage();
    for (int number = 1; number <= kMostCopies; ++number) {
        std::string path =
            JoinPath(folder, "Brindlemoor rescue " + std::to_string(number) + extension);
        std::error_code error;
        const auto status = std::filesystem::symlink_status(path, error);
        if (status.type() == std::filesystem::file_type::not_found) return path;
    }
    return {};
}

}  // namespace

std::string RescueImage() {
    std::string copy;
    const auto failure = FailureOfStep([&copy] {
        if (Settings.SettingsPath.empty() || Disk.ImageBytes.empty() || !DiffersFromFile()) return;
        const std::string path = FreePath();
        if (path.empty()) return;
        if (!ReplaceFile(path, Disk.ImageHeader + Disk.ImageBytes, Flush::ToDisk)) copy = path;
    });
    return failure ? std::string() : copy;
}

}  // namespace brindlemoor
