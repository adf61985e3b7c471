#pragma once

#include "image/blank_image.h"
#include "workbench/control.h"

namespace brindlemoor {

/// The dialog that asks for the shape of a blank disk. Its values stay from one showing to the
/// next.
extern Window NewDisk;

/// The user gave the dialog up, by its button or by closing it. Clear it before the dialog shows.
extern bool NewDiskCancelled;

/// Builds the dialog with its first values.
void BuildNewDisk();

/// The shape that the dialog's fields stand for. Fails with 6 on a number beyond 16 bits.
BlankShape NewDiskShape();

/// The index of the first option of "Virtual Disk Format" that is chosen.
int NewDiskFormat();

/// The caption of that option.
const std::string& NewDiskFormatCaption();

}  // namespace brindlemoor
