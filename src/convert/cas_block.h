#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace brindlemoor {

// A block of a cassette, n bytes of body:
//
//   Offset  Size
//   0       1     55, the last byte of the leader
//   1       1     3C, the sync byte
//   2       1     type
//   3       1     n, 0 to 255
//   4       n     body
//   4 + n   1     sum of type, n and body, modulo 256
//   5 + n   1     55, the trailer

inline constexpr char kLeaderByte = 0x55;
inline constexpr char kSyncByte = 0x3C;

/// Bytes of 0x55 that stand in front of the name block and behind it.
inline constexpr std::size_t kLeaderLength = 128;

/// A stream begins with this many bytes of 0x55; that alone makes it one.
inline constexpr std::size_t kStreamMark = 5;

/// The longest body of a block.
inline constexpr std::size_t kLongestBody = 255;

/// The types of blocks.
inline constexpr std::int16_t kNameBlock = 0;
inline constexpr std::int16_t kDataBlock = 1;
inline constexpr std::int16_t kEndBlock = 0xFF;

/// Whether `data` is the stream of a cassette.
bool IsCasStream(const std::string& data);

/// A block of that type, 0 to 255. Fails with 6 on a body of more than 255 bytes.
std::string CasMakeBlock(const std::string& body, std::int16_t type);

/// The body of the first block in `stream`, and its type in `type`; cuts `stream` so that it begins
/// with the block's trailer. Without a sync byte it says so and takes the bytes at the offsets 1
/// and 2 of `stream` for type and length. A wrong checksum or trailer is told too, and the body
/// returned all the same. Where the stream ends in front of a length, the body is empty and the
/// type that of an end block. Never fails.
std::string CasReadBlock(std::string& stream, std::int16_t& type);

/// A block as it was found on the tape.
struct CasBlock {
    std::string Body;
    std::int16_t Type = kEndBlock;
    bool Found = true;  ///< false: there was no sync byte, the block is a guess
};

/// The same for the part of `stream` from the 0-based `offset` on, which moves to the trailer: a
/// long tape is not shifted for each of its blocks.
CasBlock ReadBlockAt(const std::string& stream, std::size_t& offset);

}  // namespace brindlemoor
