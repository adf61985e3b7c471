#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QString>
#include <string>

namespace brindlemoor {

/// The fixed-pitch font of the grid and of the lines under it: the first installed of a list of
/// families, set so that every character advances `kGridCharacterWidth` pixels exactly, whatever
/// the family's own width, bold or not. The totals rest on that width.
QFont FixedFont(bool bold = false);

/// Draws one line of text with the painter's pen, character by character in cells of that width
/// from the left edge of `place`, or ending at its right edge. Nothing is elided; the caller clips.
/// Characters that cannot be shown take their cell and leave it blank.
void DrawFixedText(QPainter& painter, const QRect& place, const QString& text, bool bold,
                   bool rightAligned);

/// Draws bytes of Windows-1252 with the painter's pen in cells of any size, one byte a cell, from
/// the left edge of `place`, whose height is that of a cell: the font is of 8.25 points, 11 pixels,
/// in a cell 12 pixels high, and grows with it. Bytes without a character leave their cell blank.
void DrawByteCells(QPainter& painter, const QRectF& place, const std::string& bytes,
                   double cellWidth);

}  // namespace brindlemoor
