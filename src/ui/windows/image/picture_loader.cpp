#include "ui/windows/image/picture_loader.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <utility>

#include "ui/kit/background.h"
#include "ui/kit/picture_format.h"

namespace quill::ui {
namespace {

// Qt counts in MiB and refuses what needs more. Pixels have eight bytes at most.
constexpr int kDecoderLimit = static_cast<int>(kMostPicturePixels * 8 / (1 << 20)) + 1;
constexpr int kSmallestLevel = 512;

QImage ReadyToDraw(const QImage& image) {
  switch (image.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
      return image;
    default:
      return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                           : QImage::Format_RGB32);
  }
}

std::vector<QImage> Levels(const QImage& image) {
  std::vector<QImage> levels = {ReadyToDraw(image)};
  for (QSize size = image.size() / 2; size.width() >= kSmallestLevel && size.height() >= kSmallestLevel;
       size /= 2) {
    levels.push_back(levels.back().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  return levels;
}

Result<QByteArray, PictureProblem> ReadBytes(const std::filesystem::path& path) {
  QFile file(QString::fromStdString(path.string()));
  // A pipe or a device would hold the reader for ever.
  if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
    return Failure{PictureProblem::Unreadable};
  }
  if (file.size() > kMostPictureBytes) return Failure{PictureProblem::TooManyBytes};
  QByteArray bytes = file.read(kMostPictureBytes + 1);
  if (file.error() != QFile::NoError) return Failure{PictureProblem::Unreadable};
  if (bytes.size() > kMostPictureBytes) return Failure{PictureProblem::TooManyBytes};
  return bytes;
}

}  // namespace

std::string_view PictureProblemKey(PictureProblem problem) {
  switch (problem) {
    case PictureProblem::Unreadable:
      return "errPictureUnreadable";
    case PictureProblem::TooManyBytes:
      return "errPictureTooManyBytes";
    case PictureProblem::TooManyPixels:
      return "errPictureTooManyPixels";
    case PictureProblem::NotAPicture:
      return "errPictureUnknown";
    case PictureProblem::Damaged:
      break;
  }
  return "errPictureDamaged";
}

PictureResult DecodePicture(const QByteArray& bytes) {
  if (bytes.size() > kMostPictureBytes) return Failure{PictureProblem::TooManyBytes};
  const PictureFormat format = FormatOf(bytes);
  if (format == PictureFormat::Unknown) return Failure{PictureProblem::NotAPicture};

  if (QImageReader::allocationLimit() < kDecoderLimit) QImageReader::setAllocationLimit(kDecoderLimit);
  QBuffer buffer;
  buffer.setData(bytes);
  if (!buffer.open(QIODevice::ReadOnly)) return Failure{PictureProblem::Damaged};
  QImageReader reader(&buffer, QtFormatName(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isEmpty()) return Failure{PictureProblem::Damaged};
  if (qint64(size.width()) * size.height() > kMostPicturePixels)
    return Failure{PictureProblem::TooManyPixels};
  if (!IsWhole(bytes, format)) return Failure{PictureProblem::Damaged};

  LoadedPicture picture;
  if (!reader.read(&picture.image) || picture.image.isNull()) return Failure{PictureProblem::Damaged};
  picture.image.setDevicePixelRatio(1);  // names such as "a@2x.png" and resolutions play no part
  picture.levels = Levels(picture.image);
  return picture;
}

PictureResult LoadPicture(const std::filesystem::path& file) {
  const Result<QByteArray, PictureProblem> bytes = ReadBytes(file);
  if (!bytes.ok()) return Failure{bytes.error()};
  return DecodePicture(*bytes);
}

void LoadPictureFor(QObject* receiver, const std::filesystem::path& file,
                    std::function<void(PictureResult)> done) {
  RunInBackground<PictureResult>(
      receiver, [file] { return LoadPicture(file); }, std::move(done));
}

}  // namespace quill::ui
