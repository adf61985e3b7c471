#include "convert/wav_fixture.h"

#include <cmath>

namespace brindlemoor::test {

namespace {

/// A number of 1 to 4 bytes as the reader sees it: 2 and 4 bytes are signed.
double NumberAt(const std::string& data, std::size_t offset, std::size_t length) {
    if (offset >= data.size()) return 0;
    const std::string bytes = data.substr(offset, length);
    std::int64_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
        value = value * 256 + static_cast<unsigned char>(bytes[i - 1]);
    }
    if (bytes.size() == 2 && value >= 0x8000) value -= 0x10000;
    if (bytes.size() == 4 && value >= 0x80000000) value -= 0x100000000;
    return static_cast<double>(value);
}

}  // namespace

std::string LowFirst(std::int64_t value, int length) {
    std::string bytes;
    for (int i = 0; i < length; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

std::string WavFile::Bytes() const {
    const auto orRight = [](std::int64_t value, std::int64_t right) {
        return value == kRight ? right : value;
    };
    const std::string extra(
        FormatSize > 16 && FormatSize < 100 ? static_cast<std::size_t>(FormatSize) - 16 : 0, '\0');
    const auto samples = static_cast<std::int64_t>(Samples.size());
    return Riff +
           LowFirst(orRight(RiffSize, samples + 36 + static_cast<std::int64_t>(extra.size())), 4) +
           Wave + Fmt + LowFirst(FormatSize, 4) + LowFirst(1, 2) + LowFirst(Channels, 2) +
           LowFirst(SampleRate, 4) +
           LowFirst(orRight(ByteRate, SampleRate * Channels * Bits / 8), 4) +
           LowFirst(orRight(BlockAlign, Channels * Bits / 8), 2) + LowFirst(Bits, 2) + extra +
           DataKey + LowFirst(orRight(DataSize, samples), 4) + Samples;
}

std::string Pulse(std::size_t period, std::size_t low) {
    return std::string(low, '\x10') + std::string(period - low, '\xF0');
}

std::string Edges(const std::vector<std::size_t>& periods) {
    std::string samples;
    for (const std::size_t period : periods) {
        // The edge that ends this period is the first sample behind it.
        if (samples.empty()) {
            samples = std::string(period, '\x10');
        } else {
            samples += std::string(1, '\xF0') + std::string(period - 1, '\x10');
        }
    }
    return samples + '\xF0';
}

std::string Modulated(const std::string& bytes, std::size_t zero, std::size_t one) {
    std::vector<std::size_t> periods;
    for (const char byte : bytes) {
        for (int bit = 0; bit < 8; ++bit) periods.push_back((byte >> bit & 1) != 0 ? one : zero);
    }
    return Edges(periods);
}

std::string SlowlyDecoded(const std::string& data) {
    const std::string samples = data + '\x8A';
    const int bits = static_cast<int>(NumberAt(data, 34, 2));
    const int channels = static_cast<int>(NumberAt(data, 22, 2));
    const int step = bits / (channels * 8);
    const double limit = std::nearbyint(NumberAt(data, 28, 4) / 1500);
    if (step <= 0) return {};
    std::string bytes;
    std::int64_t lastEdge = 45;
    int previous = 0;
    int accumulator = 0;
    int bitCount = 0;
    for (std::int64_t p = 45; p <= static_cast<std::int64_t>(data.size()) + 1; p += step) {
        const double sample =
            NumberAt(samples, static_cast<std::size_t>(p - 1), static_cast<std::size_t>(bits / 8));
        const int state = sample >= 148 ? 1 : 0;
        if (previous == 0 && state == 1) {
            const std::int64_t period = p - lastEdge;
            lastEdge = p;
            if (period >= 10 && period <= 80) {
                if (static_cast<double>(period) <= limit) accumulator += 1 << bitCount;
                if (++bitCount == 8) {
                    bytes += static_cast<char>(accumulator);
                    accumulator = 0;
                    bitCount = 0;
                }
            }
        }
        previous = state;
    }
    return bytes;
}

}  // namespace brindlemoor::test
