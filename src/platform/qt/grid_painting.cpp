#include "platform/qt/grid_painting.h"

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
    const bool right =
        (model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
         Qt::AlignRight) != 0;
    DrawFixedText(*painter, rect.adjusted(kGridCellMargin, 0, -kGridCellMargin, 0),
                  model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString(), false,
                  right);
    painter->restore();
}

QSize GridHeader::sectionSizeFromContents(int section) const {
    const QString text = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    return {TextWidth(text), kHeaderHeight};
}

}  // namespace brindlemoor
