// The program's operator new and delete, with a count. They take the place of the library's in this
// test program alone. One thread allocates here.

#include "memory/counted_memory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace brindlemoor::test {

namespace {

/// In front of every block stands its size. It keeps what is behind it aligned.
constexpr std::size_t kSizeField = alignof(std::max_align_t);
static_assert(kSizeField >= sizeof(std::size_t));

MemoryCount count;
std::size_t largeSize = 0;

/// Null where there is no memory.
void* AllocateOrNull(std::size_t size) noexcept {
    void* block = std::malloc(size + kSizeField);
    if (block == nullptr) return nullptr;
    *static_cast<std::size_t*>(block) = size;
    if (size >= largeSize) ++count.LargeAllocations;
    count.LargestSize = std::max(count.LargestSize, size);
    count.Live += size;
    count.Peak = std::max(count.Peak, count.Live);
    return static_cast<char*>(block) + kSizeField;
}

void* Allocate(std::size_t size) {
    void* memory = AllocateOrNull(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void Release(void* memory) {
    if (memory == nullptr) return;
    void* block = static_cast<char*>(memory) - kSizeField;
    count.Live -= std::min(count.Live, *static_cast<std::size_t*>(block));
    std::free(block);
}

}  // namespace

void CountMemory(std::size_t size) {
    count = MemoryCount();
    largeSize = size;
}

MemoryCount CountedMemory() {
    return count;
}

}  // namespace brindlemoor::test

void* operator new(std::size_t size) {
    return brindlemoor::test::Allocate(size);
}

void* operator new[](std::size_t size) {
    return brindlemoor::test::Allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return brindlemoor::test::AllocateOrNull(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return brindlemoor::test::AllocateOrNull(size);
}

void operator delete(void* memory) noexcept {
    brindlemoor::test::Release(memory);
}

void operator delete[](void* memory) noexcept {
    brindlemoor::test::Release(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    brindlemoor::test::Release(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    brindlemoor::test::Release(memory);
}
