#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace brindlemoor {

// The header of a WAV file, all numbers low byte first:
//
//   Offset  Size
//   0       4     "RIFF"
//   4       4     RIFF size: bytes of the file behind this field
//   8       4     "WAVE"
//   12      4     "fmt "
//   16      4     size of the format chunk, 16 for plain samples
//   20      2     format tag
//   22      2     channels
//   24      4     samples a second
//   28      4     bytes a second
//   32      2     bytes of one sample of all channels
//   34      2     bits of a sample
//   36      4     "data", behind the format chunk
//   40      4     data size: bytes of the samples
//   44            samples

inline constexpr std::int64_t kRiffSizeOffset = 4;
inline constexpr std::int64_t kWaveOffset = 8;
inline constexpr std::int64_t kFmtOffset = 12;
inline constexpr std::int64_t kFormatSizeOffset = 16;
inline constexpr std::int64_t kChannelsOffset = 22;
inline constexpr std::int64_t kSampleRateOffset = 24;
inline constexpr std::int64_t kByteRateOffset = 28;
inline constexpr std::int64_t kBlockAlignOffset = 32;
inline constexpr std::int64_t kBitsOffset = 34;
inline constexpr std::int64_t kDataSizeOffset = 40;

/// Where "data" stands, less the size of the format chunk.
inline constexpr std::int64_t kFormatOffset = 20;

/// Bytes in front of the samples, and of the file that the RIFF size does not count.
inline constexpr std::int64_t kWavHeader = 44;
inline constexpr std::int64_t kRiffHeader = 8;

/// The value of each bit of a byte, in the order of the tape.
inline constexpr std::array<int, 8> kBitWeights = {1, 2, 4, 8, 16, 32, 64, 128};

}  // namespace brindlemoor
