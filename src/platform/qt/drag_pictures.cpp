#include "platform/qt/drag_pictures.h"

#include <QPainter>
#include <QPolygonF>

namespace brindlemoor {

namespace {

// The drawings' own square is 32 by 32.
constexpr int kSide = 32;

const QColor kInk(0x1E, 0x24, 0x22);

/// A sheet with a folded corner; lines of writing where it is the front one.
void DrawSheet(QPainter& painter, QPointF corner, bool written) {
    const QPolygonF outline = {corner, corner + QPointF(8, 0), corner + QPointF(12, 4),
                               corner + QPointF(12, 15), corner + QPointF(0, 15)};
    painter.setPen(QPen(kInk, 1));
    painter.setBrush(Qt::white);
    painter.drawPolygon(outline);
    const QPolygonF fold = {corner + QPointF(8, 0), corner + QPointF(8, 4),
                            corner + QPointF(12, 4)};
    painter.drawPolyline(fold);
    if (!written) return;
    painter.setPen(QPen(QColor(0x6B, 0x77, 0x73), 1));
    for (const int line : {6, 9}) {
        painter.drawLine(corner + QPointF(3, line), corner + QPointF(9, line));
    }
}

void DrawPlus(QPainter& painter, QPointF middle) {
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(QColor(0x2F, 0x6B, 0x5E));
    painter.drawEllipse(middle, 5.0, 5.0);
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(middle - QPointF(3, 0), middle + QPointF(3, 0));
    painter.drawLine(middle - QPointF(0, 3), middle + QPointF(0, 3));
}

void DrawPointer(QPainter& painter) {
    const QPolygonF arrow = {{1, 1},      {1, 14},   {4.2, 11}, {6.2, 15.6},
                             {8.4, 14.6}, {6.4, 10}, {10.6, 10}};
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(kInk);
    painter.drawPolygon(arrow);
}

void DrawSheets(QPainter& painter) {
    DrawSheet(painter, {16, 8}, false);
    DrawSheet(painter, {12, 12}, true);
    DrawPlus(painter, {25, 25});
    DrawPointer(painter);
}

void DrawCrossedCircle(QPainter& painter) {
    constexpr qreal kRadius = 9;
    const QPointF middle(16, 16);
    const QPointF slant(kRadius * 0.7, kRadius * 0.7);
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(Qt::white, 6), QPen(QColor(0xB3, 0x2B, 0x2B), 3.5)}) {
        painter.setPen(pen);
        painter.drawEllipse(middle, kRadius, kRadius);
        painter.drawLine(middle - slant, middle + slant);
    }
}

}  // namespace

QPixmap DragPicture(const std::string& name, qreal scale) {
    QPixmap picture(QSize(kSide, kSide) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (name == "Drag") DrawSheets(painter);
    if (name == "NoDrop") DrawCrossedCircle(painter);
    return picture;
}

QCursor DragCursor(const std::string& name, qreal scale) {
    const int tip = name == "Drag" ? 1 : kSide / 2;
    return QCursor(DragPicture(name, scale), tip, tip);
}

}  // namespace brindlemoor
