#pragma once

#include <string>

namespace brindlemoor {

/// Turns a WAV file, known by "RIFF" at its start, into the bytes of its tape, or the stream of a
/// cassette, known by five bytes 0x55, into a WAV file. `name` loses its extension and gets ".CAS"
/// or ".WAV". Anything else is told in a message, and gives nothing. Fails as `WavToCas` and
/// `CasToWav` do; `data` and `name` stay as they were then. From a WAV file, `data` gets one byte
/// more.
std::string WavConvert(std::string& data, std::string& name);

}  // namespace brindlemoor
