#include "platform/qt/fixed_font.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/text.h"
#include "workbench/grid.h"

namespace brindlemoor {

namespace {

constexpr int kFixedPixelSize = 12;

QString InstalledFamily() {
    const std::array<QString, 3> wanted = {QStringLiteral("Courier New"),
                                           QStringLiteral("Liberation Mono"),
                                           QStringLiteral("DejaVu Sans Mono")};
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : wanted) {
        if (installed.contains(family)) return family;
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

QFont MakeFixedFont(bool bold, int pixelSize, double characterWidth) {
    static const QString family = InstalledFamily();
    QFont font(family);
    font.setPixelSize(pixelSize);
    font.setStyleHint(QFont::TypeWriter);
    font.setKerning(false);
    font.setBold(bold);
    const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    font.setLetterSpacing(QFont::AbsoluteSpacing, characterWidth - advance);
    return font;
}

/// A font for cells of one height, with the glyph of every byte of Windows-1252; 0 where the font
/// has none.
struct CellFont {
    int PixelSize = 0;
    QRawFont Font;
    std::array<quint32, 256> Glyphs = {};
};

/// The font made last is kept: a whole pane asks for the same.
const CellFont& CellFontOf(int pixelSize) {
    static CellFont kept;
    if (kept.PixelSize == pixelSize) return kept;
    kept.PixelSize = pixelSize;
    kept.Font = QRawFont::fromFont(MakeFixedFont(false, pixelSize, kGridCharacterWidth));
    for (std::size_t byte = 0; byte < kept.Glyphs.size(); ++byte) {
        const QString character = ToCells(std::string(1, static_cast<char>(byte)));
        const auto glyphs = kept.Font.glyphIndexesForString(character);
        const bool shown = character.front().isPrint() && !character.front().isSpace();
        kept.Glyphs[byte] = shown && !glyphs.isEmpty() ? glyphs.front() : 0;
    }
    return kept;
}

/// Characters that the font itself is sure to have, so that a run of them keeps the cells.
bool IsPlain(QChar character) {
    return character >= QLatin1Char(' ') && character <= QLatin1Char('~');
}

}  // namespace

QFont FixedFont(bool bold) {
    static const std::array<QFont, 2> fonts = {
        MakeFixedFont(false, kFixedPixelSize, kGridCharacterWidth),
        MakeFixedFont(true, kFixedPixelSize, kGridCharacterWidth)};
    return fonts[bold ? 1 : 0];
}

void DrawFixedText(QPainter& painter, const QRect& place, const QString& text, bool bold,
                   bool rightAligned) {
    if (text.isEmpty()) return;
    painter.setFont(FixedFont(bold));
    const QFontMetrics metrics = painter.fontMetrics();
    const int length = static_cast<int>(text.size());
    int x = place.left();
    if (rightAligned) x += place.width() - length * kGridCharacterWidth;
    const int baseline = place.top() + (place.height() - metrics.height()) / 2 + metrics.ascent();
    if (std::all_of(text.begin(), text.end(), IsPlain)) {
        painter.drawText(x, baseline, text);
        return;
    }
    for (const QChar character : text) {
        if (character.isPrint()) painter.drawText(x, baseline, QString(character));
        x += kGridCharacterWidth;
    }
}

void DrawByteCells(QPainter& painter, const QRectF& place, const std::string& bytes,
                   double cellWidth) {
    // 8.25 points at 96 dots an inch are 11 pixels, in a cell of 12.
    constexpr double kLettersInCell = 11.0 / 12;
    const auto letters = static_cast<int>(std::lround(place.height() * kLettersInCell));
    const CellFont& font = CellFontOf(std::max(letters, 1));
    QList<quint32> glyphs;
    QList<QPointF> places;
    double left = 0;
    for (const char byte : bytes) {
        const quint32 glyph = font.Glyphs[static_cast<unsigned char>(byte)];
        if (glyph != 0) {
            glyphs.append(glyph);
            places.append(QPointF(left, 0));
        }
        left += cellWidth;
    }
    if (glyphs.isEmpty()) return;
    QGlyphRun run;
    run.setRawFont(font.Font);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    const double height = font.Font.ascent() + font.Font.descent();
    const double baseline = place.top() + (place.height() - height) / 2 + font.Font.ascent();
    painter.drawGlyphRun(QPointF(place.left(), baseline), run);
}

}  // namespace brindlemoor
