#pragma once

#include <cstdint>
#include <string>

namespace brindlemoor {

// The types of files, as the name block of a tape has them; the last one only stands for the
// extension of a tape's own file.
inline constexpr std::int16_t kBasicFile = 0;
inline constexpr std::int16_t kDataFile = 1;
inline constexpr std::int16_t kMachineFile = 2;
inline constexpr std::int16_t kTextFile = 3;
inline constexpr std::int16_t kTapeFile = 4;

/// The flag of a file in ASCII, and of gaps between the blocks; 0 is binary, and no gaps.
inline constexpr std::int16_t kAsciiFlag = 0xFF;

/// Turns a file into the stream of a cassette, or a stream, known by five bytes 0x55 at its start,
/// into the first file on it, in the form of `Disk.DiskFamily`: 0 Color Computer, 1 Dragon, any
/// other nothing at all. `name` is cut at its first dot; to tape it gets a dot and the three values
/// become those of the file's form and type 4, from tape all come from the name block and the
/// extension is that of the type. A `gapFlag` of 0 that nothing sets becomes 1. `load` and `exec`
/// take no part. Of a raw file, `type` and `asciiFlag` are the caller's, their low byte is stored.
/// Damage of the stream, and a machine-language type on a file without a header, are told in
/// messages, and the work goes on. Fails with 5 on a Color Computer's binary of fewer than 10 bytes
/// and on a negative `type` that no name block replaces, and with 17 behind the first data block
/// of an ASCII file: what would follow is never written. Nothing is changed then.
std::string CasConvert(const std::string& data, std::string& name, std::int16_t& type,
                       std::int16_t& asciiFlag, std::int16_t& gapFlag, std::int32_t load,
                       std::int32_t exec);

}  // namespace brindlemoor
