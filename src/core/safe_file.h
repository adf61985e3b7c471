#pragma once

#include <string>
#include <system_error>

namespace brindlemoor {

/// Whether a file that was written has to be on the disk, not only with the system, before it
/// takes the old one's place. `WithOthers` leaves that to `FlushFiles`, but for the bytes of a file
/// that takes an old one's place: those are flushed first, since the rename gives up the old bytes.
enum class Flush { No, ToDisk, WithOthers };

/// Writes `bytes` as the file `path`: to a new file in the same folder, which takes the old one's
/// place in one rename. Where anything fails, the old file stands untouched, nothing else is left,
/// and the error comes back. A link stays a link: the file that it leads to is replaced. The new
/// file has the old one's permissions.
///
/// Refused without a try: an empty path or one with a zero byte, a folder, a device or pipe, a
/// file that nobody may write.
std::error_code ReplaceFile(const std::string& path, const std::string& bytes, Flush flush);

/// Returns when all that was written with `Flush::WithOthers` to the disk of `folder` is on it,
/// which for many files takes the time of a few. The error is that of any of them.
std::error_code FlushFiles(const std::string& folder);

}  // namespace brindlemoor
