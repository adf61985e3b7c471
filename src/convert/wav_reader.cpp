#include "convert/wav_reader.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "convert/wav_format.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

/// What the header says, believed as it stands.
struct WavFormat {
    double RiffSize = 0;
    double FormatSize = 0;
    double SampleRate = 0;
    double ByteRate = 0;
    double DataSize = 0;
    int NumChannels = 0;
    int BlockAlign = 0;
    int BitsPerSample = 0;
};

/// The first sample, as a 1-based position.
constexpr std::int64_t kFirstPosition = kWavHeader + 1;

/// Samples from here on are high, whatever their width.
constexpr int kThreshold = 148;

/// Distances between edges that are a bit, in positions.
constexpr std::int64_t kShortestPeriod = 10;
constexpr std::int64_t kLongestPeriod = 80;

/// Periods above this part of a second are a 0.
constexpr double kBitFrequency = 1500;

/// The byte put behind the samples, so that the last of them can be read.
constexpr char kGuard = '\x8A';

double Number(const std::string& data, std::int64_t offset, std::int64_t length) {
    return BytesToNumber(CutBytes(data, offset, length), "");
}

WavFormat ReadFormat(const std::string& data) {
    WavFormat format;
    format.RiffSize = Number(data, kRiffSizeOffset, 4);
    format.FormatSize = Number(data, kFormatSizeOffset, 4);
    format.NumChannels = static_cast<int>(Number(data, kChannelsOffset, 2));
    format.SampleRate = Number(data, kSampleRateOffset, 4);
    format.ByteRate = Number(data, kByteRateOffset, 4);
    format.BlockAlign = static_cast<int>(Number(data, kBlockAlignOffset, 2));
    format.BitsPerSample = static_cast<int>(Number(data, kBitsOffset, 2));
    format.DataSize = Number(data, kDataSizeOffset, 4);
    return format;
}

void Expect(bool holds, const std::string& message) {
    if (holds) return;
    Platform.ShowMessage(message, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

bool HasKey(const std::string& data, std::int64_t offset, const std::string& key) {
    return offset >= 0 && CutBytes(data, offset, 4) == key;
}

void CheckHeader(const WavFormat& format, const std::string& data, const std::string& name) {
    const auto length = static_cast<double>(data.size());
    const std::string inFile = " en el Archivo :\r\n" + name;
    const auto dataOffset = static_cast<std::int64_t>(format.FormatSize) + kFormatOffset;
    const double bits = format.BitsPerSample;
    Expect(length == format.RiffSize + kRiffHeader,
           "Error El tamaño TOTAL es incorrecto"_w + inFile);
    Expect(HasKey(data, kWaveOffset, "WAVE"), "Error No Existe la clave 'WAVE'" + inFile);
    Expect(HasKey(data, kFmtOffset, "fmt "), "Error No Existe la clave 'fmt '" + inFile);
    Expect(format.SampleRate * format.NumChannels * bits / 8 == format.ByteRate,
           "ERROR!!! En Byte Rate");
    Expect(format.NumChannels * bits / 8 == format.BlockAlign,
           "ERROR!!! En Block Alin debe ser igual a NumChannels * BitsPerSample/8");
    Expect(HasKey(data, dataOffset, "data"), "Error No Existe la clave 'data'" + inFile);
    Expect(length == format.DataSize + kWavHeader,
           "Error El tamaño de los dato es incorrecto"_w + inFile);
}

/// The bits of the tape as they come together to bytes.
struct TapeBits {
    std::string Bytes;
    std::int64_t Limit = 0;  ///< the longest period of a 1
    std::int64_t LastEdge = kFirstPosition;
    int Accumulator = 0;
    std::size_t BitCount = 0;
};

void TakeEdge(TapeBits& bits, std::int64_t position) {
    const std::int64_t period = position - bits.LastEdge;
    bits.LastEdge = position;
    if (period < kShortestPeriod || period > kLongestPeriod) return;
    if (period <= bits.Limit) bits.Accumulator += kBitWeights[bits.BitCount];
    if (++bits.BitCount < kBitWeights.size()) return;
    bits.Bytes += static_cast<char>(bits.Accumulator);
    bits.Accumulator = 0;
    bits.BitCount = 0;
}

/// Walks over the samples from `kFirstPosition` to `last` in steps of `step`, which is above 0.
/// `isHigh` says whether the sample at a 1-based position reaches the threshold.
template <typename IsHigh>
void FindEdges(TapeBits& bits, std::int64_t last, std::int64_t step, IsHigh isHigh) {
    std::int64_t position = kFirstPosition;
    while (position <= last) {
        while (position <= last && !isHigh(position)) position += step;
        if (position > last) return;
        TakeEdge(bits, position);
        position += step;
        while (position <= last && isHigh(position)) position += step;
    }
}

/// `data` ends with the guard, which is the last position.
void FindBits(TapeBits& bits, const std::string& data, int bytesPerSample, int step) {
    const auto last = static_cast<std::int64_t>(data.size());
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.data());
    if (bytesPerSample == 1) {
        FindEdges(bits, last, step,
                  [bytes](std::int64_t position) { return bytes[position - 1] >= kThreshold; });
    } else if (bytesPerSample == 2) {
        // The high byte of a sample that is cut off is missing, and its low byte the guard.
        FindEdges(bits, last - 1, step, [bytes](std::int64_t position) {
            const int value = bytes[position - 1] | bytes[position] << 8;
            return static_cast<std::int16_t>(value) >= kThreshold;
        });
    } else {
        // Any number of more than 8 bytes is 0. A header may ask for thousands at every position.
        const int length = std::min(bytesPerSample, 9);
        FindEdges(bits, last, step, [&data, length](std::int64_t position) {
            return BytesToNumber(Mid(data, position, length), "") >= kThreshold;
        });
    }
}

void AppendGuard(std::string& data) {
    if (data.size() == data.capacity()) {
        // Growing in place would take twice the memory for this one byte.
        std::string longer;
        longer.reserve(data.size() + 1);
        longer += data;
        data.swap(longer);
    }
    data += kGuard;
}

}  // namespace

std::string WavToCas(std::string& data, const std::string& name) {
    const WavFormat format = ReadFormat(data);
    CheckHeader(format, data, name);
    if (format.NumChannels == 0) Fail(kDivisionByZero);
    const int bytesPerSample = format.BitsPerSample / 8;
    const int step = format.BitsPerSample / (format.NumChannels * 8);
    // The scan would stand still for ever.
    const bool entered = static_cast<std::int64_t>(data.size()) + 1 >= kFirstPosition;
    if (step == 0 && entered) Fail(kOutOfMemory);
    if (step > 0 && bytesPerSample < 0 && entered) Fail(kInvalidCall);

    TapeBits bits;
    bits.Limit = WholeNumber32(format.ByteRate / kBitFrequency);
    AppendGuard(data);
    // A step backwards meets no edge behind another one, and so gives no bit.
    if (step > 0) FindBits(bits, data, bytesPerSample, step);
    return std::move(bits.Bytes);
}

}  // namespace brindlemoor
