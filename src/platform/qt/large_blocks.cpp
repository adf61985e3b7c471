#include "platform/qt/large_blocks.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace brindlemoor {

void ReuseLargeBlocks() {
#ifdef __GLIBC__
    constexpr int kMebibyte = 1 << 20;
    // An image is 90 MiB at most. Some versions allow no threshold of that size; the other one
    // alone would then end the way in which they adapt the first, and nothing would be reused at
    // all.
    if (mallopt(M_MMAP_THRESHOLD, 96 * kMebibyte) == 0) return;
    mallopt(M_TRIM_THRESHOLD, 128 * kMebibyte);
#endif
}

}  // namespace brindlemoor
