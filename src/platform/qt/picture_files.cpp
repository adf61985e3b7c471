#include "platform/qt/picture_files.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cstddef>

#include "platform/qt/picture_text.h"

namespace brindlemoor {

namespace {

std::int32_t RecordColour(QRgb colour) {
    return qRed(colour) | (qGreen(colour) << 8) | (qBlue(colour) << 16);
}

/// Paint programs may save with transparency where there was none.
QImage OnWhite(const QImage& image) {
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(0, 0, image);
    return opaque;
}

}  // namespace

std::string PictureFileOf(const Picture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ImageOf(picture).convertToFormat(QImage::Format_RGB888).save(&buffer, "BMP");
    return bytes.toStdString();
}

bool ReadPictureFile(const std::string& bytes, Picture& picture) {
    QImage image;
    const QByteArray data = QByteArray::fromStdString(bytes);
    if (!image.loadFromData(data) || image.isNull()) return false;
    if (image.hasAlphaChannel()) image = OnWhite(image);
    ResizePicture(picture, image.width(), image.height());
    std::size_t place = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            picture.Pixels[place++] = RecordColour(image.pixel(x, y));
        }
    }
    return true;
}

}  // namespace brindlemoor
