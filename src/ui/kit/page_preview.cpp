#include "ui/kit/page_preview.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QPainter>
#include <QScrollBar>
#include <QTextTable>
#include <QUrl>
#include <algorithm>

#include "ui/kit/picture_format.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

/// Larger pictures would hold up the window while they are unpacked.
constexpr qint64 kMostPixels = 16'000'000;
/// The longer side of a picture as it is kept: more than an excerpt's window shows.
constexpr int kLongestSide = 600;
constexpr int kMostPictures = 40;
constexpr qsizetype kMostKeptKilobytes = 32 << 10;

QPalette PageColors(QPalette palette) {
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

/// Formats that hold nothing but pixels; the readers of others may look for files that the picture names.
bool IsShown(PictureFormat format) {
  return format == PictureFormat::Png || format == PictureFormat::Jpeg || format == PictureFormat::Gif ||
         format == PictureFormat::Bmp || format == PictureFormat::WebP;
}

/// The picture in a "data:image/…;base64,…" address, made smaller when it is large; none when it is no such
/// address.
QImage PictureIn(const QUrl& address) {
  if (address.scheme() != QLatin1String("data")) return {};
  const QByteArray text = address.path(QUrl::FullyEncoded).toLatin1();
  const qsizetype comma = text.indexOf(";base64,");
  if (!text.startsWith("image/") || comma < 0) return {};
  QByteArray data = QByteArray::fromBase64(text.mid(comma + 8));
  const PictureFormat format = FormatOf(data);  // before any reader sees it
  if (!IsShown(format)) return {};
  QBuffer buffer(&data);
  QImageReader reader(&buffer, QtFormatName(format));
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  if (size.isEmpty() || qint64{size.width()} * size.height() > kMostPixels) return {};
  if (std::max(size.width(), size.height()) > kLongestSide) {
    reader.setScaledSize(size.scaled(kLongestSide, kLongestSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
  }
  return reader.read();
}

QImage EmptyFrame() {
  QImage frame(16, 16, QImage::Format_ARGB32_Premultiplied);
  frame.fill(Qt::transparent);
  QPainter painter(&frame);
  painter.setPen(Qt::lightGray);
  painter.drawRect(0, 0, frame.width() - 1, frame.height() - 1);
  return frame;
}

/// Single lines around the cells, which a page draws whatever the markup says of borders.
void TidyTables(const QTextFrame& outer) {
  for (QTextFrame* frame : outer.childFrames()) {
    TidyTables(*frame);
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(0xA3, 0xA3, 0xA3));
    format.setCellSpacing(0);
    format.setCellPadding(std::max(3.0, format.cellPadding()));
    table->setFormat(format);
  }
}

}  // namespace

PagePreview::PagePreview() : m_pictures(kMostKeptKilobytes) {
  setPalette(PageColors(palette()));
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  document()->setDefaultStyleSheet(QStringLiteral("a { color: #0563c1 }"));
}

void PagePreview::ShowHtml(std::string_view html) {
  const QPoint place(horizontalScrollBar()->value(), verticalScrollBar()->value());
  m_picturesOnPage = 0;
  document()->setLayoutEnabled(false);  // laid out once instead of after each step
  setHtml(ToQt(html));
  TidyTables(*document()->rootFrame());
  document()->setLayoutEnabled(true);
  document()->markContentsDirty(0, document()->characterCount());
  horizontalScrollBar()->setValue(place.x());
  verticalScrollBar()->setValue(place.y());
}

QVariant PagePreview::loadResource(int type, const QUrl& name) {
  // Never nothing: the text's layout would look for a file of that name by itself.
  if (type != QTextDocument::ImageResource) return QByteArray(" ");
  if (name.scheme() != QLatin1String("data") || ++m_picturesOnPage > kMostPictures) return EmptyFrame();
  const QImage picture = Picture(name);
  return picture.isNull() ? EmptyFrame() : picture;
}

QImage PagePreview::Picture(const QUrl& address) {
  const QByteArray key = QCryptographicHash::hash(address.toEncoded(), QCryptographicHash::Sha256);
  if (const QImage* known = m_pictures.object(key)) return *known;
  QImage picture = PictureIn(address);
  m_pictures.insert(key, new QImage(picture), 1 + picture.sizeInBytes() / 1024);
  return picture;
}

}  // namespace quill::ui
