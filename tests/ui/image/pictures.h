#pragma once
#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include "ui/windows/image/picture_loader.h"

namespace quill::ui {

/// A picture in which every pixel has a colour of its own, so that a wrong pixel is seen.
inline QImage Patterned(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256 + y / 256 * 16) % 256));
  }
  return image;
}

inline QByteArray Encoded(const QImage& image, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter(&buffer, format).write(image);
  return buffer.data();
}

inline LoadedPicture Loaded(const QImage& image) {
  return *DecodePicture(Encoded(image, "png"));
}

}  // namespace quill::ui
