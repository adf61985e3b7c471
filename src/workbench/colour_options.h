#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// The window in which the colours of the directory grid are looked at and changed. A colour
/// chosen lives in its box, that of the alternate rows also in the grid; the settings file keeps
/// the colours that it has.
extern Window Opciones;

/// Builds the window with the texts of its design.
void BuildColourOptions();

/// Puts the language's texts and the colours of `Settings.ColourOptions` into it.
void OpenColourOptions();

}  // namespace brindlemoor
