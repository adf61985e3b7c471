#include "platform/qt/fixed_font.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>

#include "workbench/grid.h"

namespace brindlemoor {
namespace {

/// Draws `text` into a white picture and returns it.
QImage Drawn(const QString& text, bool bold, bool rightAligned = false, int width = 400) {
    QImage picture(width, 20, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(Qt::black);
    DrawFixedText(painter, picture.rect(), text, bold, rightAligned);
    return picture;
}

/// The pixels of one 7-pixel cell.
QImage Cell(const QImage& picture, int cell) {
    return picture.copy(cell * kGridCharacterWidth, 0, kGridCharacterWidth, picture.height());
}

bool IsWhite(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != QColor(Qt::white)) return false;
        }
    }
    return true;
}

class FixedFontWidths : public testing::TestWithParam<bool> {};

TEST_P(FixedFontWidths, AreSevenPixelsForEveryCharacter) {
    const QFontMetricsF metrics(FixedFont(GetParam()));
    for (char character = ' '; character <= '~'; ++character) {
        const QString run(50, QLatin1Char(character));
        EXPECT_NEAR(metrics.horizontalAdvance(run), 50 * kGridCharacterWidth, 0.01) << character;
    }
}

TEST_P(FixedFontWidths, PutTheSameLetterInEveryCellTheSameWay) {
    const QImage picture = Drawn(QString(40, QLatin1Char('H')), GetParam());
    EXPECT_FALSE(IsWhite(Cell(picture, 0)));
    for (int cell = 1; cell < 40; ++cell) EXPECT_EQ(Cell(picture, cell), Cell(picture, 0)) << cell;
}

TEST_P(FixedFontWidths, KeepBlanksAndTheCellsOfWhatCannotBeShown) {
    const QString text = QStringLiteral("  H") + QChar(1) + QStringLiteral("H\u00F1H");
    const QImage picture = Drawn(text, GetParam());
    EXPECT_TRUE(IsWhite(Cell(picture, 0)));
    EXPECT_TRUE(IsWhite(Cell(picture, 1)));
    EXPECT_FALSE(IsWhite(Cell(picture, 2)));
    EXPECT_TRUE(IsWhite(Cell(picture, 3)));
    EXPECT_EQ(Cell(picture, 4), Cell(picture, 2));
    EXPECT_EQ(Cell(picture, 6), Cell(picture, 2));
}

TEST_P(FixedFontWidths, EndRightAlignedTextAtTheRightEdge) {
    const QImage left = Drawn(QStringLiteral("HHH"), GetParam(), false, 70);
    const QImage right = Drawn(QStringLiteral("HHH"), GetParam(), true, 70);
    for (int cell = 0; cell < 3; ++cell) EXPECT_EQ(Cell(right, 7 + cell), Cell(left, cell));
    EXPECT_TRUE(IsWhite(Cell(right, 6)));
}

INSTANTIATE_TEST_SUITE_P(RegularAndBold, FixedFontWidths, testing::Bool());

}  // namespace
}  // namespace brindlemoor
