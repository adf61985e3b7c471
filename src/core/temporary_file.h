#pragma once

#include <cstdint>
#include <string>
#include <system_error>

namespace brindlemoor {

/// The most bytes that are read back from a temporary file, far more than any disk holds.
inline constexpr std::int64_t kLongestTemporary = 94371840;

/// A file that another program works on for a while. It goes with the record, whatever happened to
/// it meanwhile; a folder that took its place stays.
struct TemporaryFile {
    std::string Path;  ///< empty: there is none

    TemporaryFile() = default;
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
};

/// Makes the file `wanted` (a path that ends in an extension) with those bytes: new, so that no
/// file or link of the user is touched, and to be read and written by the user alone. Where the
/// name is taken, a number stands in front of the extension. `file.Path` is where it came to be.
/// After an error nothing is left.
std::error_code MakeTemporaryFile(const std::string& wanted, const std::string& bytes,
                                  TemporaryFile& file);

/// The bytes of the file as they are now, which may be none. An error when it is gone, is no file
/// any more, or is longer than `kLongestTemporary`.
std::error_code ReadTemporaryFile(const TemporaryFile& file, std::string& bytes);

}  // namespace brindlemoor
