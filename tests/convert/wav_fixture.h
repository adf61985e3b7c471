#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "convert/tape_fixture.h"

namespace brindlemoor::test {

/// A WAV file field by field. What is left at `kRight` is set to what agrees with the rest.
inline constexpr std::int64_t kRight = -0x7FFFFFFFF;

struct WavFile {
    std::string Riff = "RIFF";
    std::string Wave = "WAVE";
    std::string Fmt = "fmt ";
    std::string DataKey = "data";
    std::int64_t RiffSize = kRight;
    std::int64_t FormatSize = 16;
    std::int64_t Channels = 1;
    std::int64_t SampleRate = 44100;
    std::int64_t ByteRate = kRight;
    std::int64_t BlockAlign = kRight;
    std::int64_t Bits = 8;
    std::int64_t DataSize = kRight;
    std::string Samples;

    std::string Bytes() const;
};

/// `length` bytes of `value`, lowest first.
std::string LowFirst(std::int64_t value, int length);

/// `period` 8-bit samples: low, then high. The rising edge stands at the offset `low`, 1 where the
/// first sample behind an edge must be low for that long.
std::string Pulse(std::size_t period, std::size_t low = 1);

/// Samples whose rising edges stand these distances apart, the first one counted from the first
/// sample.
std::string Edges(const std::vector<std::size_t>& periods);

/// The samples of `bytes`, lowest bit first: a period of `zero` or of `one` samples for each.
std::string Modulated(const std::string& bytes, std::size_t zero = 36, std::size_t one = 18);

/// What the rule of the reader gives for the file `data`, followed word for word and slowly.
std::string SlowlyDecoded(const std::string& data);

}  // namespace brindlemoor::test
