#include "platform/qt/large_blocks.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace brindlemoor {

void ReuseLargeBlocks() {
#ifdef __GLIBC__
    constexpr int kMebibyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 96 * kMebibyte);  // an image is 90 MiB at most
    mallopt(M_TRIM_THRESHOLD, 128 * kMebibyte);
#endif
}

}  // namespace brindlemoor
