#include "platform/qt/grid_painting.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOptionHeader>

#include "platform/qt/colours.h"
#include "platform/qt/fixed_font.h"
#include "platform/qt/grid_model.h"

namespace brindlemoor {

namespace {

constexpr int kHeaderHeight = 20;

QColor BackColourOf(const GridModel& model, const GridCell& cell, int modelRow) {
    const Grid& grid = model.Record();
    if (cell.BackColour != kNoColour) return ColourOf(cell.BackColour);
    const bool alternate = modelRow % 2 == 1 && grid.AlternateRowBackColour != kNoColour;
    return ColourOf(alternate ? grid.AlternateRowBackColour : grid.BackColour);
}

/// The usual ink, or white on a row that the user gave a dark colour.
QColor InkOn(const QColor& back, const QPalette& palette) {
    const bool dark = qGray(back.rgb()) < 128;
    return dark ? QColor(Qt::white) : palette.color(QPalette::Text);
}

int TextWidth(const QString& text) {
    return static_cast<int>(text.size()) * kGridCharacterWidth + 2 * kGridCellMargin;
}

constexpr int kArrowRoom = 12;  ///< pixels at the right end of a header that shows a picture
constexpr int kArrowWidth = 8;
constexpr int kArrowHeight = 5;

/// The picture of a column that is sorted by: an arrow that points to where the values grow.
void PaintSortPicture(QPainter* painter, const QRect& header, int picture) {
    const int left = header.right() - kArrowRoom + (kArrowRoom - kArrowWidth) / 2;
    const int top = header.top() + (header.height() - kArrowHeight) / 2;
    const bool upwards = picture == kAscendingPicture;
    const int base = upwards ? top + kArrowHeight : top;
    const int tip = upwards ? top : top + kArrowHeight;
    const QPolygon arrow({{left, base}, {left + kArrowWidth, base}, {left + kArrowWidth / 2, tip}});
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(painter->pen().color());
    painter->drawPolygon(arrow);
    painter->setRenderHint(QPainter::Antialiasing, false);
}

/// The current cell, while the user moves in the grid by keys.
bool IsMarked(const QWidget* widget, const QModelIndex& index) {
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    return view != nullptr && view->hasFocus() && view->currentIndex() == index &&
           view->property(kMarksCurrentCell).toBool();
}

/// Areas a pixel wide, which no scaling of the screen makes vanish.
void PaintOutline(QPainter* painter, const QRect& cell, const QColor& colour) {
    painter->fillRect(QRect(cell.left(), cell.top(), cell.width(), 1), colour);
    painter->fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), colour);
    painter->fillRect(QRect(cell.left(), cell.top(), 1, cell.height()), colour);
    painter->fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), colour);
}

}  // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const auto& model = static_cast<const GridModel&>(*index.model());
    const GridCell* cell = model.CellAt(index);
    if (cell == nullptr) return;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const bool active = (option.state & QStyle::State_Active) != 0;
    const auto group = active ? QPalette::Active : QPalette::Inactive;
    const QColor back = selected ? option.palette.color(group, QPalette::Highlight)
                                 : BackColourOf(model, *cell, index.row());
    QColor fore = InkOn(back, option.palette);
    if (cell->ForeColour != kNoColour) fore = ColourOf(cell->ForeColour);
    if (selected) fore = option.palette.color(group, QPalette::HighlightedText);
    painter->fillRect(option.rect, back);
    painter->save();
    painter->setClipRect(option.rect);
    painter->setPen(fore);
    const QRect place =
        option.rect.adjusted(kGridCellMargin + cell->Indent, 0, -kGridCellMargin, 0);
    DrawFixedText(*painter, place, index.data().toString(), cell->Bold, cell->RightAligned);
    if (IsMarked(option.widget, index)) {
        PaintOutline(painter, option.rect, fore);
    }
    painter->restore();
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                             const QModelIndex& index) const {
    const auto& model = static_cast<const GridModel&>(*index.model());
    const GridCell* cell = model.CellAt(index);
    if (cell == nullptr) return {};
    const GridRow* row = model.RowAt(index.row());
    return {TextWidth(index.data().toString()) + cell->Indent, row->Height};
}

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setFixedHeight(kHeaderHeight);
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = section;
    option.position = QStyleOptionHeader::Middle;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
    painter->save();
    painter->setClipRect(rect);
    painter->setPen(palette().color(QPalette::ButtonText));
    const int picture = model()->headerData(section, Qt::Horizontal, Qt::DecorationRole).toInt();
    if (picture != 0) PaintSortPicture(painter, rect, picture);
    const int room = picture != 0 ? kArrowRoom : 0;
    const QRect text = rect.adjusted(kGridCellMargin, 0, -kGridCellMargin - room, 0);
    painter->setClipRect(rect.adjusted(0, 0, -room, 0));
    const bool right =
        (model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
         Qt::AlignRight) != 0;
    DrawFixedText(*painter, text,
                  model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString(), false,
                  right);
    painter->restore();
}

QSize GridHeader::sectionSizeFromContents(int section) const {
    const QString text = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    return {TextWidth(text), kHeaderHeight};
}

}  // namespace brindlemoor
