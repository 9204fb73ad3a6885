#include "ui/windows/image_table/picture_facts.h"

#include <QFile>
#include <QImageReader>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "ui/kit/picture_format.h"

namespace quill::ui {
namespace {

constexpr qint64 kMostPixels = 40'000'000;
/// JPEG is made smaller while it is decoded, eight times in each direction at most.
constexpr qint64 kMostJpegPixels = 400'000'000;
constexpr qint64 kFirstBytes = 512;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool HasReader(PictureFormat format) {
  return format == PictureFormat::Png || format == PictureFormat::Jpeg || format == PictureFormat::Gif ||
         format == PictureFormat::Bmp;
}

/// The size into which the reader scales, before it turns the picture: the same, as the frame is a square.
QSize FittedInto(QSize size, int edge) {
  if (size.width() <= edge && size.height() <= edge) return size;
  return size.scaled(edge, edge, Qt::KeepAspectRatio).expandedTo({1, 1});
}

void ReadPicture(QIODevice& file, int edge, PictureFacts& facts) {
  const PictureFormat format = FormatOf(file.peek(kFirstBytes));
  if (!HasReader(format)) return;
  QImageReader reader(&file, QtFormatName(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isEmpty()) return;
  const bool isTurned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
  facts.size = isTurned ? size.transposed() : size;
  const qint64 most = format == PictureFormat::Jpeg ? kMostJpegPixels : kMostPixels;
  if (qint64(size.width()) * size.height() > most) return;
  reader.setScaledSize(FittedInto(size, edge));
  facts.thumbnail = reader.read();
  facts.thumbnail.setDevicePixelRatio(1);
}

}  // namespace

PictureFacts ReadPictureFacts(const std::string& path, int edge) {
  PictureFacts facts;
  std::error_code error;
  // A pipe or a device would hold the reader for ever.
  if (!std::filesystem::is_regular_file(path, error)) return facts;
  // Not by Qt's name: it could not say one that is no UTF-8.
  const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen(path.c_str(), "rb"));
  QFile file;
  if (!opened || !file.open(opened.get(), QIODevice::ReadOnly)) return facts;
  const std::uintmax_t bytes = std::filesystem::file_size(path, error);
  if (!error) facts.bytes = bytes;
  ReadPicture(file, edge, facts);
  return facts;
}

}  // namespace quill::ui
