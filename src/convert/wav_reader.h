#pragma once

#include <string>

namespace brindlemoor {

/// The bytes that the samples of the WAV file `data` stand for, from the first edge on that counts.
/// Faults of the header are told in messages, some with `name`, and read over. The distance
/// between two rising edges, in positions of the file, is a bit; 10 to 80 count, and those above
/// 1/1500 second are 0. Bytes are cut from the first bit on, lowest bit first: there is no search
/// for a sync byte. `data` gets one byte more at its end. Fails with 11 on a channel count of 0,
/// with 5 on bits and channels that are both negative, and with 7 where the step from sample to
/// sample would be 0 (8 bits in stereo), a scan without an end; `data` stays as it was then.
std::string WavToCas(std::string& data, const std::string& name);

}  // namespace brindlemoor
