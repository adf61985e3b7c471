#pragma once

#include <string>

namespace brindlemoor {

/// The address in the machine's memory where the first line of a program goes.
inline constexpr int kCocoFirstLine = 0x2601;
inline constexpr int kDragonFirstLine = 0x2401;

/// The exec address in the header of every Dragon program.
inline constexpr int kDragonExec = 0x8B8D;

/// `text` as a program in tokens (convert/basic_to_text.h has the layout), for the Color Computer
/// when the open disk is its own, for the Dragon with any other disk. Lines end in CR, LF or
/// CR LF; a number is what stands in front of the next blank, whole lines before it included. A
/// word is known wherever it stands outside quotes, remarks and data, also in the middle of a name,
/// and in capitals only. "?" becomes PRINT with the question mark behind it. An open quote within a
/// remark or within data lets words be known there. Fails with 6 on a line number above 32,767,
/// and on a program that ends in the machine's memory above that address: 23,040 bytes for the
/// Color Computer, 23,558 for the Dragon.
std::string TextToBasic(const std::string& text);

}  // namespace brindlemoor
