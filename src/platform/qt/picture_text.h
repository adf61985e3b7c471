#pragma once

#include <QImage>

#include "core/picture.h"

namespace brindlemoor {

/// A copy of a picture's pixels as the window system has them.
QImage ImageOf(const Picture& picture);

/// Draws a line of text into a picture: `Platform.DrawText`. Cells below `kLeastTextHeight` pixels
/// are too small for letters; a grey box stands for each character that is not blank.
void DrawPictureText(Picture& picture, const TextLine& line);

inline constexpr double kLeastTextHeight = 4;

}  // namespace brindlemoor
