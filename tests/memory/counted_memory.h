#pragma once

#include <cstddef>

namespace brindlemoor::test {

/// What the program asked of `operator new` since the last `CountMemory`. Memory that was returned
/// counts no longer in `Live`.
struct MemoryCount {
    std::size_t LargeAllocations = 0;  ///< of at least `LargeSize` bytes
    std::size_t LargestSize = 0;       ///< bytes
    std::size_t Live = 0;              ///< bytes that are in use and were not before
    std::size_t Peak = 0;              ///< most of `Live`
};

/// Starts anew. Allocations of `largeSize` bytes and more count as large.
void CountMemory(std::size_t largeSize);

MemoryCount CountedMemory();

}  // namespace brindlemoor::test
