#pragma once

#include <QApplication>
#include <QColor>
#include <cstdint>

namespace brindlemoor {

/// A colour 0x00BBGGRR of the records.
inline QColor ColourOf(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

/// Puts the program's colours in the place of the desktop's, for every kind of widget: else a dark
/// desktop's text could stand on the program's light ground. Needed again when the desktop's
/// colours change, since it then sets those of some kinds anew.
void ApplyPalette();

/// Gives the program its look: one style, palette and set of icons on every system, so that the
/// window's places and colours fit each other, and a font of 12 pixels.
void ApplyLook(QApplication& application);

/// Gives `widget` the back and fore colour of its record; `kNoColour` is the style's own.
void ShowColours(QWidget* widget, std::int32_t back, std::int32_t fore);

}  // namespace brindlemoor
