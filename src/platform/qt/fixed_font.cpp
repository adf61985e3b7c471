#include "platform/qt/fixed_font.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>
#include <array>

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

QFont MakeFixedFont(bool bold) {
    QFont font(InstalledFamily());
    font.setPixelSize(kFixedPixelSize);
    font.setStyleHint(QFont::TypeWriter);
    font.setKerning(false);
    font.setBold(bold);
    const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    font.setLetterSpacing(QFont::AbsoluteSpacing, kGridCharacterWidth - advance);
    return font;
}

/// Characters that the font itself is sure to have, so that a run of them keeps the cells.
bool IsPlain(QChar character) {
    return character >= QLatin1Char(' ') && character <= QLatin1Char('~');
}

}  // namespace

QFont FixedFont(bool bold) {
    static const std::array<QFont, 2> fonts = {MakeFixedFont(false), MakeFixedFont(true)};
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

}  // namespace brindlemoor
