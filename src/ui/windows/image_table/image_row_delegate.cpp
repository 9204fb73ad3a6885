#include "ui/windows/image_table/image_row_delegate.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/windows/image_table/image_list_model.h"

namespace quill::ui {
namespace {

constexpr int kMargin = 6;
constexpr int kGap = 10;

/// Less than the name, and still to be read: between the text and its ground.
QColor Quieter(QColor text) {
  text.setAlphaF(0.7F);
  return text;
}

/// A frame with hills and a sun, for files that have no thumbnail.
void PaintNeutralPicture(QPainter& painter, const QRectF& square, QColor color) {
  const double unit = square.width() / 16;
  const QRectF frame(square.x() + unit, square.y() + 3 * unit, 14 * unit, 10 * unit);
  color.setAlphaF(0.5F);
  painter.setPen(QPen(color, std::max(1.0, unit / 2)));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(frame, unit, unit);
  QPainterPath hills(frame.bottomLeft() + QPointF(unit, -unit));
  hills.lineTo(frame.x() + 5 * unit, frame.y() + 4 * unit);
  hills.lineTo(frame.x() + 8 * unit, frame.y() + 7 * unit);
  hills.lineTo(frame.x() + 10 * unit, frame.y() + 5 * unit);
  hills.lineTo(frame.bottomRight() - QPointF(unit, unit));
  hills.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPath(hills);
  painter.drawEllipse(QPointF(frame.right() - 4 * unit, frame.y() + 3 * unit), unit, unit);
}

void PaintThumbnail(QPainter& painter, const QRect& square, const QVariant& thumbnail, const QColor& text) {
  if (!thumbnail.isValid()) return;  // it comes in a moment
  const auto image = thumbnail.value<QImage>();
  if (image.isNull()) return PaintNeutralPicture(painter, square, text);
  QSizeF size = QSizeF(image.size()) / painter.device()->devicePixelRatioF();
  if (size.width() > square.width() || size.height() > square.height()) {
    size.scale(square.size(), Qt::KeepAspectRatio);
  }
  QRectF place(QPointF(), size);
  place.moveCenter(QRectF(square).center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, image);
}

}  // namespace

int ImageRowDelegate::ThumbnailEdge(const QFontMetrics& font) {
  return font.lineSpacing() * 3;
}

QSize ImageRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
  const int edge = ThumbnailEdge(option.fontMetrics);
  return {edge * 4, edge + 2 * kMargin};
}

void ImageRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  const QString name = std::exchange(row.text, QString());
  const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);  // the ground, marked or not

  const bool isActive = (row.state & QStyle::State_Active) != 0;
  const bool isSelected = (row.state & QStyle::State_Selected) != 0;
  const QColor text = row.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                        isSelected ? QPalette::HighlightedText : QPalette::Text);
  const auto mirrored = [&](const QRect& rect) { return QStyle::visualRect(row.direction, row.rect, rect); };
  const int edge = ThumbnailEdge(row.fontMetrics);
  const QRect square(row.rect.x() + kMargin, row.rect.y() + kMargin, edge, edge);
  QRect lines = row.rect.adjusted(kMargin + edge + kGap, 0, -kMargin, 0);
  lines.setHeight(row.fontMetrics.lineSpacing());
  lines.moveTop(row.rect.center().y() - lines.height() - 1);

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  PaintThumbnail(*painter, mirrored(square), index.data(ImageListModel::ThumbnailRole), text);
  painter->setPen(text);
  // A name is drawn as it is read, a path from left to right; both begin where the texts around them do.
  const Qt::Alignment leading =
      QStyle::visualAlignment(row.direction, Qt::AlignLeft | Qt::AlignVCenter) | Qt::AlignAbsolute;
  const auto drawLine = [&](const QRect& rect, const QString& line) {
    painter->drawText(mirrored(rect), static_cast<int>(leading) | Qt::TextSingleLine,
                      row.fontMetrics.elidedText(line, Qt::ElideMiddle, rect.width()));
  };
  drawLine(lines, name.simplified());
  painter->setPen(Quieter(text));
  lines.translate(0, lines.height() + 2);
  const QString detail = index.data(ImageListModel::DetailRole).toString();
  if (!detail.isEmpty()) {
    drawLine(lines, detail);
    lines.adjust(row.fontMetrics.horizontalAdvance(detail) + 2 * kGap, 0, 0, 0);
  }
  painter->setLayoutDirection(Qt::LeftToRight);
  if (lines.width() > edge) drawLine(lines, index.data(ImageListModel::FolderRole).toString());
  painter->restore();
}

}  // namespace quill::ui
