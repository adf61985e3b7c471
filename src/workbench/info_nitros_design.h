#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// Fields of the identification sector that the dialog shows, the control array `Text`.
inline constexpr int kInfoFields = 20;

/// Check boxes of the attributes (`Att`) and of the format (`DiskFormat`), one a bit from bit 0 on.
inline constexpr int kAttributeBits = 8;
inline constexpr int kFormatBits = 3;

/// Letters of a volume's name.
inline constexpr int kVolumeNameWidth = 32;

/// The fields that have check boxes beside them, and those of the date and the name.
enum InfoField : int { kAttributesField = 6, kFormatField = 8, kDateField = 13, kNameField = 14 };

/// The table of the dialog's controls, with no routine connected and no field filled.
Window DesignedInfoNitros();

}  // namespace brindlemoor
