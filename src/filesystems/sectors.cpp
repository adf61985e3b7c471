#include "filesystems/sectors.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

std::int64_t gatheredBytes = 0;

}  // namespace

std::string SectorBytes(std::int64_t lsn, std::int64_t length) {
    return CutBytes(Disk.ImageBytes, lsn * kSectorSize, length);
}

void ResetGatheredBytes() {
    gatheredBytes = 0;
}

void GatherBytes(std::string& content, std::int64_t offset, std::int64_t length) {
    if (offset < 0 || length < 0) Fail(kInvalidCall);
    const auto size = static_cast<std::int64_t>(Disk.ImageBytes.size());
    if (offset >= size) return;
    const std::int64_t there = std::min(length, size - offset);
    gatheredBytes += there;
    if (gatheredBytes > kMostGatheredBytes) Fail(kOutOfMemory);
    content.append(Disk.ImageBytes, static_cast<std::size_t>(offset),
                   static_cast<std::size_t>(there));
}

void PutImageBytes(std::int64_t offset, std::string_view bytes) {
    const auto size = static_cast<std::int64_t>(Disk.ImageBytes.size());
    if (offset < 0 || offset >= size) return;
    const auto there = bytes.substr(0, static_cast<std::size_t>(size - offset));
    std::copy(there.begin(), there.end(), Disk.ImageBytes.begin() + offset);
}

void ShowDiskMessage(const std::string& text) {
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

}  // namespace brindlemoor
