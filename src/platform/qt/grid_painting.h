#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace brindlemoor {

/// Property of a view whose current cell is marked while the view has the focus.
inline constexpr char kMarksCurrentCell[] = "marksCurrentCell";

/// Paints the cells of a `GridModel`: the cell's colours or the row's, then the text in the fixed
/// font with a margin at both sides, cut where the column ends.
class GridDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// Paints the headers in the cells' font and margins: columns are as narrow as 17 pixels, and the
/// style's own margins would leave nothing of their headers.
class GridHeader : public QHeaderView {
  public:
    explicit GridHeader(QWidget* parent);

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;
};

}  // namespace brindlemoor
