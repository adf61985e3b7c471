#pragma once

#include "workbench/control.h"

namespace brindlemoor {

/// The makers' page, which the about box shows and the help menu opens.
inline constexpr char kMakersPage[] = "https://brindlemoor.example/";

/// The about box: the program's name and version, its makers, their web page and mail address.
extern Window Acerca;

/// Builds the about box. Nothing in it changes afterwards.
void BuildAcerca();

}  // namespace brindlemoor
