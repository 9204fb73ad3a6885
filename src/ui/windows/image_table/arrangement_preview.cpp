#include "ui/windows/image_table/arrangement_preview.h"

#include <QPainter>
#include <algorithm>

namespace quill::ui {
namespace {

constexpr int kPictures = 3;

void PaintPicture(QPainter& painter, const QRectF& where, const QColor& color) {
  QColor ground = color;
  ground.setAlphaF(0.35F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(where, 1.5, 1.5);
  const QPointF hill[] = {where.bottomLeft(),
                          {where.x() + where.width() * 0.45, where.y() + where.height() * 0.4},
                          {where.right(), where.bottom()}};
  painter.setBrush(color);
  painter.drawPolygon(hill, 3);
}

void PaintName(QPainter& painter, const QPointF& centre, double width, QColor color) {
  color.setAlphaF(0.6F);
  painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(centre - QPointF(width / 2, 0), centre + QPointF(width / 2, 0));
}

}  // namespace

ArrangementPreview::ArrangementPreview() {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ArrangementPreview::Show(tools::ImageTableStyle style) {
  m_style = style;
  update();
}

QSize ArrangementPreview::sizeHint() const {
  const int line = std::max(fontMetrics().lineSpacing(), 8);
  return {line * 7, line * 4};
}

void ArrangementPreview::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF page = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const QColor text = palette().color(QPalette::Text), picture = palette().color(QPalette::Highlight);
  QColor edge = text;
  edge.setAlphaF(0.35F);
  painter.setPen(edge);
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(page, 3, 3);

  // Each picture has a cell of its own, side by side or one below the other.
  const bool isRow = m_style.layout == tools::ImageLayout::Horizontal;
  const bool hasNames = m_style.names == tools::ImageNames::Shown;
  const QRectF room = page.adjusted(8, 6, -8, -6);
  const QSizeF cell(isRow ? room.width() / kPictures : room.width(),
                    isRow ? room.height() : room.height() / kPictures);
  const QSizeF size =
      isRow ? QSizeF(cell.width() - 5, cell.width() * 0.7) : QSizeF(cell.height() * 1.4, cell.height() - 4);
  const double nameWidth = isRow ? size.width() * 0.6 : size.width() * 1.5;
  const double blockWidth = hasNames && !isRow ? size.width() + 6 + nameWidth : size.width();
  const double blockHeight = hasNames && isRow ? size.height() + 6 : size.height();
  for (int i = 0; i < kPictures; ++i) {
    const QPointF middle(room.x() + cell.width() * (isRow ? i + 0.5 : 0.5),
                         room.y() + cell.height() * (isRow ? 0.5 : i + 0.5));
    const QRectF where(middle - QPointF(blockWidth, blockHeight) / 2, size);
    PaintPicture(painter, where, picture);
    if (!hasNames) continue;
    const QPointF below(where.center().x(), where.bottom() + 5);
    const QPointF beside(where.right() + 6 + nameWidth / 2, where.center().y());
    PaintName(painter, isRow ? below : beside, nameWidth, text);
  }
}

}  // namespace quill::ui
