#pragma once

#include <string>
#include <system_error>

namespace brindlemoor {

/// Puts `bytes` in the place of `Disk.PartLength` bytes at the 0-based offset `Disk.PartOffset` of
/// the hard disk image at `path`; all its other bytes stay. The image is written as
/// `ReplaceFile` does: whole, or not at all. One zero byte more than the part holds, which a disk
/// gets with its last granule, is left out; any other bytes too many are refused as an invalid
/// argument.
std::error_code ReplaceHardDiskPart(const std::string& path, const std::string& bytes);

}  // namespace brindlemoor
