#include "core/bitmap.h"

#include <cstdint>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

constexpr int kOutOfRange = -1;
constexpr int kUnknownMode = -2;

/// The number of the bit at the 0-based `position` within its byte.
int BitOf(int position, bool fromTop) {
    return fromTop ? 7 - position % 8 : position % 8;
}

bool IsSet(const std::string& bitmap, int position) {
    const auto byte = static_cast<unsigned char>(bitmap[static_cast<std::size_t>(position / 8)]);
    return (byte >> (position % 8) & 1) != 0;
}

void ChangeBit(std::string& bitmap, int position, int bit, bool set) {
    char& byte = bitmap[static_cast<std::size_t>(position / 8)];
    const int mask = 1 << bit;
    byte = static_cast<char>(set ? byte | mask : byte & ~mask);
}

/// True while the 0-based `position` may be touched. The bounds are compared in bits: an `end`
/// that falls inside the byte behind the bitmap is out of range too.
bool InRange(const std::string& bitmap, int start, int end, int position) {
    const auto bits = static_cast<std::int64_t>(bitmap.size()) * 8;
    return position < end && start <= end && start >= 0 && end <= bits;
}

/// Looks forward for a bit equal to `wanted`. After each bit that differs the walk advances by
/// two, so that it sees every other bit only.
int SearchForward(const std::string& bitmap, int& start, int end, bool wanted) {
    const auto skipped = static_cast<char>(wanted ? 0 : 255);
    for (int position = start; position < end; position += 2) {
        while (position < end && position % 8 == 0 &&
               bitmap[static_cast<std::size_t>(position / 8)] == skipped) {
            position += 8;
        }
        if (position < end && IsSet(bitmap, position) == wanted) {
            start = position + 1;
            return start;
        }
    }
    return kOutOfRange;
}

int SearchBackward(const std::string& bitmap, int& start, bool wanted) {
    for (int position = start - 1; position >= 0; --position) {
        if (IsSet(bitmap, position) == wanted) {
            start = position + 1;
            return start;
        }
    }
    return kOutOfRange;
}

/// Clears or sets `run` bits from the 0-based `position` on, and returns the number of the last
/// within its byte. A run that crosses `end` changes the bits up to it.
int ChangeRun(std::string& bitmap, int start, int end, int run, bool fromTop, bool set) {
    int position = start - 1;
    for (;; --run, ++position) {
        if (!InRange(bitmap, start, end, position)) return kOutOfRange;
        const int bit = BitOf(position, fromTop);
        if (run == 0) return bit;
        ChangeBit(bitmap, position, bit, set);
        if (run <= 1) return bit;
    }
}

}  // namespace

int BitmapOp(std::string& bitmap, int& start, int& end, std::string& mode, int run) {
    mode = UpperCase(mode);
    if (end <= 0) end = static_cast<int>(bitmap.size()) * 8;
    if (start < 0 || !InRange(bitmap, start, end, start - 1)) return kOutOfRange;

    const char operation = mode.empty() ? '\0' : mode.front();
    const char last = mode.empty() ? '\0' : mode.back();
    const bool fromTop = last == '-';
    switch (operation) {
        case '?':
            if (start == 0) return 0;
            return IsSet(bitmap, (start - 1) / 8 * 8 + BitOf(start - 1, fromTop)) ? 1 : 0;
        case '0':
        case 'R':
            return start == 0 ? 0 : ChangeRun(bitmap, start, end, run, fromTop, false);
        case '1':
        case 'S':
            return start == 0 ? 0 : ChangeRun(bitmap, start, end, run, fromTop, true);
        case 'P':
            return SearchForward(bitmap, start, end, last == '1');
        case 'A':
            return SearchBackward(bitmap, start, last == '1');
        default:
            return kUnknownMode;
    }
}

}  // namespace brindlemoor
