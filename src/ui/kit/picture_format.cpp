#include "ui/kit/picture_format.h"

#include <QtEndian>
#include <cstdlib>

namespace quill::ui {
namespace {

constexpr qsizetype kSvgHead = 64 << 10;  // comments and a document type may stand before the element

bool IsSvg(const QByteArray& bytes) {
  QByteArray head = bytes.first(qMin(bytes.size(), kSvgHead));
  if (head.startsWith("\xEF\xBB\xBF")) head.remove(0, 3);
  return head.trimmed().startsWith('<') && head.contains("<svg");
}

int ByteAt(const QByteArray& bytes, qsizetype at) {
  return at >= 0 && at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : -1;
}

/// Skips the segments before the first scan, whose previews may have an end of their own, then looks for the
/// end mark: inside a scan it cannot occur by chance.
bool IsWholeJpeg(const QByteArray& bytes) {
  constexpr int kStartOfScan = 0xDA;
  qsizetype at = 2;
  while (ByteAt(bytes, at) == 0xFF) {
    const int marker = ByteAt(bytes, at + 1);
    if (marker == 0xFF) {  // padding
      ++at;
      continue;
    }
    if (at + 4 > bytes.size()) return false;
    if (marker == kStartOfScan) return bytes.indexOf("\xFF\xD9", at) >= 0;
    at += 2 + qFromBigEndian<quint16>(bytes.constData() + at + 2);
  }
  return false;
}

/// The byte behind a chain of length-prefixed blocks, -1 when the chain has no end.
qsizetype BehindBlocks(const QByteArray& bytes, qsizetype at) {
  for (int length = ByteAt(bytes, at); length >= 0; length = ByteAt(bytes, at)) {
    at += 1 + length;
    if (length == 0) return at;
  }
  return -1;
}

/// True when the first frame, the one that is shown, is there to its end.
bool IsWholeGif(const QByteArray& bytes) {
  const auto tableSize = [&](qsizetype flagsAt) -> qsizetype {
    const int flags = ByteAt(bytes, flagsAt);
    return flags >= 0 && (flags & 0x80) != 0 ? qsizetype(3) << ((flags & 7) + 1) : 0;
  };
  qsizetype at = 13 + tableSize(10);
  for (int kind = ByteAt(bytes, at); kind == '!' && at >= 0; kind = ByteAt(bytes, at)) {
    at = BehindBlocks(bytes, at + 2);
  }
  if (ByteAt(bytes, at) != ',') return false;
  return BehindBlocks(bytes, at + 10 + tableSize(at + 9) + 1) >= 0;
}

bool IsWholeBmp(const QByteArray& bytes) {
  constexpr qsizetype kHeaders = 54;
  if (bytes.size() < 26) return false;
  const char* data = bytes.constData();
  const qint64 pixelsAt = qFromLittleEndian<quint32>(data + 10);
  if (qFromLittleEndian<quint32>(data + 14) < 40) return bytes.size() > pixelsAt;  // the short, old header
  if (bytes.size() < kHeaders) return false;
  const qint64 width = qFromLittleEndian<qint32>(data + 18);
  const qint64 height = std::abs(qint64(qFromLittleEndian<qint32>(data + 22)));
  const qint64 bits = qFromLittleEndian<quint16>(data + 28);
  const quint32 compression = qFromLittleEndian<quint32>(data + 30);
  const qint64 stated = qFromLittleEndian<quint32>(data + 34);
  const bool runLengths = compression == 1 || compression == 2;
  const qint64 needed = runLengths ? stated : (width * bits + 31) / 32 * 4 * height;
  return bytes.size() >= pixelsAt + needed;
}

}  // namespace

PictureFormat FormatOf(const QByteArray& bytes) {
  if (bytes.startsWith("\x89PNG\r\n\x1a\n")) return PictureFormat::Png;
  if (bytes.startsWith("\xFF\xD8\xFF")) return PictureFormat::Jpeg;
  if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a")) return PictureFormat::Gif;
  if (bytes.startsWith("BM")) return PictureFormat::Bmp;
  if (bytes.startsWith(QByteArray("II*\0", 4)) || bytes.startsWith(QByteArray("MM\0*", 4))) {
    return PictureFormat::Tiff;
  }
  if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP") return PictureFormat::WebP;
  return IsSvg(bytes) ? PictureFormat::Svg : PictureFormat::Unknown;
}

QByteArray QtFormatName(PictureFormat format) {
  switch (format) {
    case PictureFormat::Png:
      return "png";
    case PictureFormat::Jpeg:
      return "jpeg";
    case PictureFormat::Gif:
      return "gif";
    case PictureFormat::Bmp:
      return "bmp";
    case PictureFormat::Tiff:
      return "tiff";
    case PictureFormat::WebP:
      return "webp";
    case PictureFormat::Svg:
      return "svg";
    case PictureFormat::Unknown:
      break;
  }
  return {};
}

bool IsWhole(const QByteArray& bytes, PictureFormat format) {
  switch (format) {
    case PictureFormat::Jpeg:
      return IsWholeJpeg(bytes);
    case PictureFormat::Gif:
      return IsWholeGif(bytes);
    case PictureFormat::Bmp:
      return IsWholeBmp(bytes);
    default:
      return true;
  }
}

}  // namespace quill::ui
