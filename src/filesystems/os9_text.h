#pragma once

#include <string>

// Names and dates as OS-9 keeps them. FLEX dates use the same three bytes.
//
// A name ends in the character whose bit 7 is set. A date is year, month and day, a byte each,
// followed in the longer form by hour and minute; year bytes from 70 up are in the 1900s, those
// below in the 2000s.

namespace brindlemoor {

/// A name in the other of its two forms: trailing zero bytes and blanks cut, bit 7 of the last
/// character flipped. Zero bytes inside become blanks; a first byte of 0 stays. An empty text
/// stays empty.
std::string Os9NameText(const std::string& text);

/// Converts a date between its forms. An empty `bytes` gets five bytes from `date` (fails with 5
/// for a year outside 1900 to 2155); other bytes go into `date` as `ReadOs9Date` says. Returns
/// `date` as text.
std::string Os9DateBytes(std::string& bytes, double& date);

/// The date in `bytes`, three or five, over `date`. An impossible date leaves it as it was; a day
/// and a month of 0 give the time of day alone, or 0. Other lengths, as a cut image has them,
/// change nothing.
void ReadOs9Date(const std::string& bytes, double& date);

/// `date` as `length` (3 or 5) bytes for writing, fields outside their range as 0. A year outside
/// 1900 to 2155 makes all fields 0. (A minute out of range would set `Disk.DirCount` to 0.)
std::string Os9DateField(double date, int length);

}  // namespace brindlemoor
