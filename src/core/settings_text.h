#pragma once

#include <string>

namespace brindlemoor {

/// The text of a new settings file, in Windows-1252: `[General]`, `[Audio Options]`, `[English]`
/// and `[Spanish]`, lines ended by CR LF but the last.
std::string DefaultSettingsText();

}  // namespace brindlemoor
