#pragma once

#include <string>

namespace brindlemoor {

/// One period of a sine wave, a byte a sample, that begins at `level` and goes down. It has the
/// whole part of `samplesPerPeriod` samples and an amplitude of 110. Fails with 6 on a sample
/// outside 0 to 255 and with 7 on a period that no memory holds.
std::string GenerateWave(double samplesPerPeriod, double level);

/// The WAV file of the stream `data` of a cassette, with the values of the section "Audio Options".
/// Those are found by their distance from the line of `WavFormat`, and each is the number at the
/// start of what stands behind the equals sign. The header declares 44 bytes fewer than there are.
/// Fails with 5 where a byte would be written in front of the first sample (a `SilenceStart` of 0)
/// or behind the last one that there is room for, with 6 on values that are too large, with 7 on
/// waves that no memory holds, with 9 where the settings end too early, and with 11 on a
/// `Frec1200`, `Frec2400` or, in a stream with a second leader, `SilenceHeader` of 0.
std::string CasToWav(const std::string& data);

}  // namespace brindlemoor
