#include "practice/pictures.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QUrl>

#include "base/atomic_file.h"

namespace quill::practice {
namespace {

namespace fs = std::filesystem;

constexpr qint64 kLargestPicture = qint64{32} << 20;
constexpr qsizetype kMostPictures = 200;

QString Extension(QStringView type) {
  return type == u"jpeg" ? QString("jpg") : type.toString();
}

/// Writes one picture and returns its address; empty when that fails.
QString WritePicture(QStringView type, QStringView base64, const fs::path& folder) {
  const auto bytes =
      QByteArray::fromBase64Encoding(base64.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
  if (bytes.decodingStatus != QByteArray::Base64DecodingStatus::Ok) return {};
  const QByteArray& picture = *bytes;
  const QByteArray hash = QCryptographicHash::hash(picture, QCryptographicHash::Sha1).toHex().left(12);
  const fs::path own = folder / hash.toStdString();
  const fs::path file = own / ("clip_image001." + Extension(type).toStdString());
  std::error_code problem;
  fs::create_directories(own, problem);
  if (problem ||
      !WriteFileAtomically(file, {picture.constData(), static_cast<std::size_t>(picture.size())}).ok()) {
    return {};
  }
  return QUrl::fromLocalFile(QString::fromStdString(file.string())).toString(QUrl::FullyEncoded);
}

QString ReadPicture(const QString& address) {
  const QUrl url(address);
  const QFileInfo info(url.toLocalFile());
  if (!url.isLocalFile() || !info.isFile() || info.size() > kLargestPicture) return {};
  QFile file(info.filePath());
  if (!file.open(QFile::ReadOnly)) return {};
  const QByteArray bytes = file.readAll();
  const QString type = QMimeDatabase().mimeTypeForData(bytes).name();
  static const QStringList kTypes = {"image/png", "image/jpeg", "image/gif", "image/webp", "image/bmp"};
  if (!kTypes.contains(type)) return {};
  return "data:" + type + ";base64," + QString::fromLatin1(bytes.toBase64());
}

}  // namespace

QString PicturesToFiles(const QString& html, const fs::path& folder) {
  static const QRegularExpression kPicture(
      R"re(src="(data:image/(png|jpeg|gif|webp|bmp);base64,([A-Za-z0-9+/=]*+))")re");
  QString result;
  qsizetype copied = 0;
  for (auto i = kPicture.globalMatch(html); i.hasNext();) {
    const QRegularExpressionMatch match = i.next();
    const QString address = WritePicture(match.capturedView(2), match.capturedView(3), folder);
    if (address.isEmpty()) continue;
    result += QStringView(html).mid(copied, match.capturedStart(1) - copied);
    result += address;
    copied = match.capturedEnd(1);
  }
  result += QStringView(html).mid(copied);
  return result;
}

QVariantMap PicturesFromFiles(const QString& html) {
  static const QRegularExpression kSource(R"re(\ssrc=(?:"(file:[^">]*)"|'(file:[^'>]*)'|(file:[^\s">]*)))re",
                                          QRegularExpression::CaseInsensitiveOption);
  QVariantMap pictures;
  for (auto i = kSource.globalMatch(html); i.hasNext() && pictures.size() < kMostPictures;) {
    const QRegularExpressionMatch match = i.next();
    const QString address = match.captured(match.lastCapturedIndex()).replace("&amp;", "&");
    const QString data = ReadPicture(address);
    if (!data.isEmpty()) pictures.insert(address, data);
  }
  return pictures;
}

QString DataAddress(const QByteArray& png) {
  return "data:image/png;base64," + QString::fromLatin1(png.toBase64());
}

}  // namespace quill::practice
