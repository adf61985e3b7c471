#pragma once

#include <cstddef>
#include <string>

// Programs in tokens, as files hold them. Numbers are two bytes, high byte first.
//
// Color Computer:              Dragon:
//   0  1  0xFF                   0  1  0x55
//   1  2  length of the rest     1  1  type, 1 BASIC (not used here)
//   3     lines                  2  2  load address (not used here)
//                                4  2  length of the lines (not used here)
//                                6  2  exec address (not used here)
//                                8  1  0xAA
//                                9     lines
//
// A line, of which a link of 0 is the last:
//   0  2  link: address of the next line in the machine's memory
//   2  2  number
//   4     bytes below 0x80 as they are, commands from 0x80 on, functions behind the prefix 0xFF;
//         a colon that stands in front of ELSE and ' is not shown
//      1  0

namespace brindlemoor {

inline constexpr int kCocoFileMark = 0xFF;
inline constexpr int kDragonFileMark = 0x55;
inline constexpr int kDragonHeaderEndMark = 0xAA;
inline constexpr std::size_t kCocoHeaderBytes = 3;
inline constexpr std::size_t kDragonHeaderBytes = 9;

/// True when the first byte of `data` is that of a program in tokens.
bool IsTokenized(const std::string& data);

/// The text of the program in tokens `data`, which is not empty: a CR, then the lines, each its
/// number, a blank, its text and a CR (with `addLineFeed` CR LF, but for the first). A Color
/// Computer's `data` is cut to one byte more than its length field says, which leaves out the last
/// link. Shows a message on a Dragon header without 0xAA, at the end of a file within a line, and
/// on every byte that is no token: with Cancel there the result is empty, with OK the word before
/// is shown again. Words within quotes, remarks and data are shown as everywhere. Fails with 5 on a
/// negative length field; `data` stays as it was then.
std::string BasicToText(std::string& data, bool addLineFeed);

}  // namespace brindlemoor
