#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What `AllocateGranule` returns when there is no free granule on its way.
inline constexpr int kNoGranule = 65535;

/// The `mode` of `AllocateGranule` for the first granule of a file, and for the others.
inline constexpr int kFirstGranule = -1;
inline constexpr int kNextGranule = 0;

/// Takes a free granule for the file in the row `DirCount` of a DECB disk, puts the next 2304 bytes
/// of `data` (or those that are left) into the image and takes them off its front.
///
/// The search begins at `granule`, which becomes the granule taken. A `mode` other than 0 walks
/// outwards on both sides of the directory track; 0 walks up to granule 67 and from 30 on down by
/// pairs. `kFirstGranule` begins the row's `Chain` and `FirstUnit` anew, any other mode adds to
/// `Chain`. `fat`, the working copy of the FAT, gets the link from the granule before and the mark
/// of a last granule with the row's `LastGranuleSectors`. An image that ends before the granule
/// grows by zero bytes to one byte behind it.
///
/// Returns the granule, or `kNoGranule` with nothing changed.
int AllocateGranule(int& granule, int mode, std::string& fat, std::string_view& data);

}  // namespace brindlemoor
