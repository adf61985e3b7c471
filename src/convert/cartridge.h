#pragma once

#include <string>

namespace brindlemoor {

/// Puts the ROM of a cartridge into a snapshot's frame when `path` ends in "CCC", in any case, and
/// takes it out of the frame under any other name; neither the frame nor its length field is looked
/// at. The extension of `path`, from its last dot on, becomes ".PAK" or ".CCC"; without a dot it
/// stays. Fails with 5 on a PAK of fewer than 39 bytes; `path` stays as it was then.
std::string CartConvert(const std::string& data, std::string& path);

}  // namespace brindlemoor
