#pragma once

#include <string>
#include <system_error>

namespace brindlemoor {

/// Whether a file that was written has to be on the disk, not only with the system, before it
/// takes the old one's place.
enum class Flush { No, ToDisk };

/// Writes `bytes` as the file `path`: to a new file in the same folder, which takes the old one's
/// place in one rename. Where anything fails, the old file stands untouched, nothing else is left,
/// and the error comes back. A link stays a link: the file that it leads to is replaced. The new
/// file has the old one's permissions.
///
/// Refused without a try: an empty path or one with a zero byte, a folder, a device or pipe, a
/// file that nobody may write.
std::error_code ReplaceFile(const std::string& path, const std::string& bytes, Flush flush);

}  // namespace brindlemoor
