#pragma once

#include <string>

namespace brindlemoor {

/// Tests, changes or searches the bits of an allocation bitmap, numbered from 1.
///
/// `mode` (any case; it is upper-cased in place) selects by its first character: "?" test (1 when
/// bit `start` is set, else 0), "0" or "R" clear `run` bits from `start` on, "1" or "S" set them,
/// "P" and "A" search forward and backward for the value named by the mode's last character. A
/// last character "-" counts the bits of a byte from bit 7 down (OS-9's allocation map), else
/// from bit 0 up (Dragon DOS's bitmap).
///
/// `end` is the last bit that may be touched; 0 or less becomes 8 times the bitmap's length, and
/// the caller sees it. `start` 0 is no bit: test, clear and set do nothing there and return 0.
/// Clear and set return the number of the last bit within its byte, the searches the number of the
/// bit found, which `start` takes too; the forward search looks at every other bit only. Returns -1
/// when `start` is out of range, or when nothing was found or a run crossed `end` (the bits up to
/// it are changed); -2 for an unknown mode.
int BitmapOp(std::string& bitmap, int& start, int& end, std::string& mode, int run = 1);

}  // namespace brindlemoor
