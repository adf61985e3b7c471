#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/disk_fixture.h"

namespace brindlemoor::test {

/// What `CasConvert` gave, and what it made of the values passed by reference.
struct CasResult {
    std::string Data;
    std::string Name;
    int Type = 0;
    int AsciiFlag = 0;
    int GapFlag = 0;
};

/// A user who closes every message.
class TapeTest : public DiskTest {
  protected:
    void SetUp() override;

    /// `CasConvert` with these values; it must not change `data`.
    static CasResult Cas(const std::string& data, const std::string& name = "TAPE.BIN",
                         std::int16_t type = 0, std::int16_t asciiFlag = 0,
                         std::int16_t gapFlag = 0);
};

// A tape byte by byte, from the table of its format.

/// `count` bytes 0x55.
std::string Leader(std::size_t count = 128);

/// A block with a sum that is right.
std::string TapeBlock(int type, const std::string& body);

/// The body of a name block; `fields` are the two addresses, four bytes.
std::string NameBody(const std::string& name, int type, int ascii, int gap,
                     const std::string& fields);

/// Leader, name block, leader, the contents in blocks of up to 255 bytes, end block.
std::string WholeTape(const std::string& nameBody, const std::string& contents);

/// `count` bytes that count up from `start`.
std::string Counting(std::size_t count, unsigned start = 0);

/// The blocks of a sound tape, each from the byte in front of its sync byte to its sum, as far as
/// the first end block.
std::vector<std::string> BlocksOf(const std::string& stream);

}  // namespace brindlemoor::test
