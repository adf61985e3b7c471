#include "convert/wav_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "convert/cas_block.h"
#include "convert/wav_format.h"
#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "core/settings.h"

namespace brindlemoor {

namespace {

/// The values of "Audio Options" that the writer needs, in the order of their lines.
struct AudioOptions {
    double SampleRate = 0;     ///< samples a second
    double BitsPerSample = 0;  ///< for the header and the room; a sample is always one byte
    double NumChannels = 0;    ///< for the header alone
    double Volume = 0;         ///< the level of silence within the waves
    double Frec1200 = 0;       ///< hertz of a 0
    double Frec2400 = 0;       ///< hertz of a 1
    double SilenceStart = 0;   ///< seconds
    double SilenceHeader = 0;  ///< what the rate is divided by
};

constexpr double kTurn = 6.2831852;
constexpr double kHalfTurn = 3.1415926;
constexpr double kAmplitude = 110;
constexpr double kHighestSample = 255;
constexpr char kSilence = '\x80';

/// The leader behind the name block is looked for from here on, a 0-based offset.
constexpr std::size_t kSecondLeader = 119;

/// Samples of the pictures of all bytes together.
constexpr double kMostPictures = 1 << 30;

/// Samples that stand in the room for no byte of the stream.
constexpr double kSpareRoom = 45;

/// Bytes of the header that the RIFF size counts.
constexpr double kRiffRest = kWavHeader - kRiffHeader;

const std::string kZeroFormatTag(2, '\0');

double Quotient(double dividend, double divisor) {
    if (divisor == 0) Fail(kDivisionByZero);
    return dividend / divisor;
}

/// Both sides are whole numbers first.
std::int64_t WholeQuotient(double dividend, double divisor) {
    const std::int64_t by = WholeNumber32(divisor);
    if (by == 0) Fail(kDivisionByZero);
    return WholeNumber32(dividend) / by;
}

double OptionAt(std::size_t line) {
    if (line >= Settings.SettingsLines.size()) Fail(kIndexRange);
    const std::string& text = Settings.SettingsLines[line];
    const std::size_t equals = text.find('=');
    return equals == std::string::npos ? 0 : LeadingNumber(text.substr(equals + 1));
}

AudioOptions ReadOptions() {
    std::string dropped = "1";
    auto line = static_cast<std::size_t>(IniValue("Audio Options", "WavFormat", dropped, ""));
    AudioOptions options;
    for (double* value :
         {&options.SampleRate, &options.BitsPerSample, &options.NumChannels, &options.Volume,
          &options.Frec1200, &options.Frec2400, &options.SilenceStart, &options.SilenceHeader}) {
        *value = OptionAt(++line);
    }
    return options;
}

using ByteWaves = std::array<std::string, 256>;

/// The picture of every byte: the waves of its bits, lowest first, each from its first sample.
ByteWaves MakeByteWaves(const AudioOptions& options) {
    const double zero = Quotient(options.SampleRate, options.Frec1200);
    const double one = Quotient(options.SampleRate, options.Frec2400);
    constexpr double kBitsOfEachKind = 256 * 4;
    if ((std::max(zero, 0.0) + std::max(one, 0.0)) * kBitsOfEachKind > kMostPictures) {
        Fail(kOutOfMemory);
    }
    const std::array<std::string, 2> bitWave = {GenerateWave(zero, options.Volume),
                                                GenerateWave(one, options.Volume)};
    ByteWaves byteWave;
    for (std::size_t byte = 0; byte < byteWave.size(); ++byte) {
        for (std::size_t bit = 0; bit < kBitWeights.size(); ++bit) {
            byteWave[byte] += bitWave[byte >> bit & 1];
        }
    }
    return byteWave;
}

/// Writes samples at 1-based positions, as if there were `Room` samples of silence to begin with.
/// The file grows with what is written, so that nearly no byte of it is written twice.
struct SampleBuffer {
    std::string File;  ///< header and samples so far
    std::int64_t Room = 0;

    /// `position` lies within the room; what would stick out of it is cut off.
    void Put(std::int64_t position, const std::string& wave) {
        const auto at = static_cast<std::size_t>(kWavHeader + position - 1);
        const auto fits = static_cast<std::size_t>(Room - position + 1);
        if (at > File.size()) File.resize(at, kSilence);
        if (at == File.size()) {
            File.append(wave, 0, fits);
        } else {
            File.replace(at, std::min(fits, wave.size()), wave, 0, fits);
        }
    }
};

/// The 1-based place of the leader behind the name block; 0 without one.
std::size_t HeaderEnd(const std::string& stream) {
    const std::size_t found = stream.find(std::string(kLeaderLength, kLeaderByte), kSecondLeader);
    return found == std::string::npos ? 0 : found + 1;
}

/// What is laid into the samples: the picture of every byte, each behind the one before.
struct TapePictures {
    const std::string& Stream;
    const AudioOptions& Options;
    ByteWaves Waves;
    std::size_t HeaderEnd = 0;
};

/// Runs `put` with the 1-based position and the picture of every byte. Returns the position behind
/// the last.
template <typename Put>
std::int64_t WalkStream(const TapePictures& tape, Put put) {
    const AudioOptions& options = tape.Options;
    std::int64_t position = WholeNumber32(options.SilenceStart * options.SampleRate);
    for (std::size_t i = 0; i < tape.Stream.size(); ++i) {
        const std::string& wave = tape.Waves[static_cast<unsigned char>(tape.Stream[i])];
        put(position, wave);
        position += static_cast<std::int64_t>(wave.size());
        if (i + 1 == tape.HeaderEnd) {
            position += WholeQuotient(options.SampleRate, options.SilenceHeader);
        }
    }
    return position;
}

/// Samples that there would be room for.
std::int64_t Room(const AudioOptions& options, std::size_t streamSize) {
    const double waves =
        Quotient(options.BitsPerSample * static_cast<double>(streamSize) * options.SampleRate,
                 options.Frec1200);
    const std::int64_t room =
        WholeNumber32(kSpareRoom + waves + options.SilenceStart * options.SampleRate);
    if (room < 0) Fail(kInvalidCall);
    return room;
}

/// The header of a file of so many samples, which declares 44 fewer.
std::string Header(const AudioOptions& options, std::int64_t samples) {
    const double byteRate = options.SampleRate * options.NumChannels * options.BitsPerSample / 8;
    const double blockAlign = options.BitsPerSample * options.NumChannels / 8;
    const auto dataSize = static_cast<double>(samples - kWavHeader);
    return "RIFF" + LongToBytes(WholeNumber32(dataSize + kRiffRest)) + "WAVEfmt " +
           LongToBytes(16) + kZeroFormatTag + NumberToBytes(options.NumChannels, 2, "") +
           NumberToBytes(options.SampleRate, 4, "") + NumberToBytes(byteRate, 4, "") +
           NumberToBytes(blockAlign, 2, "") + NumberToBytes(options.BitsPerSample, 2, "") + "data" +
           LongToBytes(WholeNumber32(dataSize));
}

/// Lays header and pictures of the stream into the buffer. Where each picture goes, and with it the
/// size of the file, is found out first, so that the file is allocated once, and not at all where
/// its size fits no header. Returns the position behind the last picture.
std::int64_t PutStream(SampleBuffer& buffer, const std::string& stream,
                       const AudioOptions& options) {
    const TapePictures tape = {stream, options, MakeByteWaves(options), HeaderEnd(stream)};
    buffer.Room = Room(options, stream.size());
    std::int64_t last = 0;
    const std::int64_t end = WalkStream(tape, [&](std::int64_t position, const std::string& wave) {
        if (position < 1 || position > buffer.Room) Fail(kInvalidCall);
        last = std::max(last, position + static_cast<std::int64_t>(wave.size()) - 1);
    });
    const std::int64_t samples = std::clamp<std::int64_t>(std::max(last, end), 0, buffer.Room);
    const std::string header = Header(options, end);
    buffer.File.reserve(static_cast<std::size_t>(kWavHeader + samples));
    buffer.File += header;
    WalkStream(tape, [&buffer](std::int64_t position, const std::string& wave) {
        buffer.Put(position, wave);
    });
    return end;
}

}  // namespace

std::string GenerateWave(double samplesPerPeriod, double level) {
    if (samplesPerPeriod > kMostPictures) Fail(kOutOfMemory);
    std::string wave;
    for (int i = 0; i <= samplesPerPeriod - 1; ++i) {
        const double angle = i * (kTurn / samplesPerPeriod) + kHalfTurn;
        const double sample = std::nearbyint(std::sin(angle) * kAmplitude + level);
        if (!(sample >= 0 && sample <= kHighestSample)) Fail(kOverflow);
        wave += static_cast<char>(static_cast<unsigned char>(sample));
    }
    return wave;
}

std::string CasToWav(const std::string& data) {
    const AudioOptions options = ReadOptions();
    SampleBuffer buffer;
    const std::int64_t end = PutStream(buffer, data, options);
    // The file has one sample of silence behind the last wave, where there is room for it.
    const std::int64_t samples = std::min(end, buffer.Room);
    if (samples < 0) Fail(kInvalidCall);
    buffer.File.resize(static_cast<std::size_t>(kWavHeader + samples), kSilence);
    return std::move(buffer.File);
}

}  // namespace brindlemoor
