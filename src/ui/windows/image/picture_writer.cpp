#include "ui/windows/image/picture_writer.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <string_view>

#include "base/atomic_file.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kJpegQuality = 92;

QString SuffixOf(const std::filesystem::path& file) {
  return QString::fromStdString(file.extension().string()).toLower();
}

QImage OnWhite(const QImage& image) {
  if (!image.hasAlphaChannel()) return image;
  QImage opaque(image.size(), QImage::Format_RGB32);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(0, 0, image);
  return opaque;
}

Result<QByteArray> Encode(const QImage& image, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (std::string_view(format) == "jpeg") writer.setQuality(kJpegQuality);
  if (!writer.write(image)) return Failure{FromQt(writer.errorString())};
  return buffer.data();
}

}  // namespace

bool IsWritablePictureName(const std::filesystem::path& file) {
  const QString suffix = SuffixOf(file);
  return suffix == u".png" || suffix == u".jpg" || suffix == u".jpeg";
}

Status<> WritePicture(const QImage& image, const std::filesystem::path& file) {
  const bool png = SuffixOf(file) == u".png";
  const Result<QByteArray> bytes = png ? Encode(image, "png") : Encode(OnWhite(image), "jpeg");
  if (!bytes.ok()) return Failure{bytes.error()};
  QSaveFile out(QString::fromStdString(file.string()));
  if (!out.open(QIODevice::WriteOnly)) return Failure{FromQt(out.errorString())};
  out.write(*bytes);
  if (!out.commit()) return Failure{FromQt(out.errorString())};
  return Done();
}

Status<> WritePrivatePng(const QImage& image, const std::filesystem::path& file) {
  const Result<QByteArray> bytes = Encode(image, "png");
  if (!bytes.ok()) return Failure{bytes.error()};
  return WriteFileAtomically(file, {bytes->constData(), static_cast<std::size_t>(bytes->size())});
}

}  // namespace quill::ui
