#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/disk_state.h"

namespace brindlemoor {

/// `length` bytes of the open image from the first byte of the 0-based logical sector `lsn` on:
/// fewer where the image ends before them. A negative sector or length fails with 5.
std::string SectorBytes(std::int64_t lsn, std::int64_t length = kSectorSize);

/// More bytes than this, gathered for the files of one disk, are a damaged or hostile disk whose
/// files lie over each other again and again.
inline constexpr std::int64_t kMostGatheredBytes = 512LL * 1024 * 1024;

/// Begins the count of gathered bytes anew: another disk is read.
void ResetGatheredBytes();

/// Appends `length` bytes of the open image from the 0-based `offset` on to `content`; fewer where
/// the image ends before them. Fails with 7 when the files of the disk grow past
/// `kMostGatheredBytes`, and with 5 on a negative offset or length.
void GatherBytes(std::string& content, std::int64_t offset, std::int64_t length);

/// Writes `bytes` over the open image from the 0-based `offset` on. The image keeps its length:
/// what would lie behind its end is dropped, and so is everything for an offset before its start.
void PutImageBytes(std::int64_t offset, std::string_view bytes);

/// Shows a message of the disk check with its OK button.
void ShowDiskMessage(const std::string& text);

}  // namespace brindlemoor
