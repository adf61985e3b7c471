#include "platform/qt/icon.h"

#include <QPainter>
#include <QPainterPath>

namespace brindlemoor {

namespace {

// The drawing's own square is 64 by 64.

void DrawCase(QPainter& painter) {
    QPainterPath outline;
    outline.moveTo(7, 3);
    outline.lineTo(53, 3);
    outline.lineTo(61, 11);
    outline.lineTo(61, 57);
    outline.quadTo(61, 61, 57, 61);
    outline.lineTo(7, 61);
    outline.quadTo(3, 61, 3, 57);
    outline.lineTo(3, 7);
    outline.quadTo(3, 3, 7, 3);
    QLinearGradient shade(0, 3, 0, 61);
    shade.setColorAt(0, QColor(0x3F, 0x83, 0x74));
    shade.setColorAt(1, QColor(0x21, 0x51, 0x48));
    painter.setPen(QPen(QColor(0x12, 0x30, 0x2B), 2));
    painter.setBrush(shade);
    painter.drawPath(outline);
}

void DrawShutter(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xD5, 0xDC, 0xD8));
    painter.drawRoundedRect(QRectF(17, 4, 30, 18), 2, 2);
    painter.setBrush(QColor(0x21, 0x51, 0x48));
    painter.drawRect(QRectF(35, 7, 7, 12));
}

/// The label: sky, a low sun, two ridges of moor and a stem with leaves before them.
void DrawLabel(QPainter& painter) {
    const QRectF label(11, 28, 42, 33);
    painter.save();
    QPainterPath edge;
    edge.addRoundedRect(label, 3, 3);
    painter.setClipPath(edge);
    painter.fillRect(label, QColor(0xFB, 0xF1, 0xD8));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xF0, 0xA6, 0x3C));
    painter.drawEllipse(QPointF(41, 40), 6.5, 6.5);
    QPainterPath far;
    far.moveTo(10, 48);
    far.cubicTo(20, 38, 28, 40, 36, 47);
    far.cubicTo(44, 43, 50, 43, 54, 47);
    far.lineTo(54, 62);
    far.lineTo(10, 62);
    painter.setBrush(QColor(0x9A, 0x77, 0xA8));
    painter.drawPath(far);
    QPainterPath near;
    near.moveTo(10, 56);
    near.cubicTo(24, 48, 38, 50, 54, 57);
    near.lineTo(54, 62);
    near.lineTo(10, 62);
    painter.setBrush(QColor(0x6B, 0x8E, 0x4E));
    painter.drawPath(near);
    painter.restore();
}

void DrawLeaf(QPainter& painter) {
    painter.setPen(QPen(QColor(0x2C, 0x55, 0x2B), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(QColor(0x4E, 0x84, 0x3F));
    QPainterPath leaf;
    leaf.moveTo(21, 59);
    leaf.cubicTo(12, 50, 14, 40, 24, 33);
    leaf.cubicTo(32, 42, 31, 51, 21, 59);
    painter.drawPath(leaf);
    painter.drawLine(QPointF(21, 60), QPointF(23, 40));
}

}  // namespace

QPixmap ProgramPicture(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 64.0, size / 64.0);
    DrawCase(painter);
    DrawShutter(painter);
    DrawLabel(painter);
    DrawLeaf(painter);
    return picture;
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(ProgramPicture(size));
    return icon;
}

}  // namespace brindlemoor
