// What `MWinRuler` looks like.
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <array>

#include "ui/kit/qt_text.h"
#include "ui/windows/win_ruler.h"

namespace quill::ui {
namespace {

constexpr std::array<double, 3> kTickLengths = {6, 10, 16};  // by rank
constexpr double kNumberGap = 3;

}  // namespace

void MWinRuler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QColor ground = palette().color(QPalette::Base);
  ground.setAlphaF(static_cast<float>(m_opacity));
  painter.setLayoutDirection(Qt::LeftToRight);  // it begins with the program's, not the window's
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(rect(), ground);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  PaintTicks(painter);
  PaintPointer(painter);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void MWinRuler::PaintTicks(QPainter& painter) const {
  const QFontMetricsF metrics(font());
  painter.setPen(palette().color(QPalette::Text));
  for (const RulerTick& tick : RulerTicks(m_unit, IsHorizontal() ? width() : height(), Display())) {
    const double length = kTickLengths[static_cast<std::size_t>(tick.rank)];
    const double at = tick.at + 0.5 / devicePixelRatioF();
    if (IsHorizontal()) {
      painter.drawLine(QPointF(at, 0), QPointF(at, length));
    } else {
      painter.drawLine(QPointF(0, at), QPointF(length, at));
    }
    if (tick.label.empty() || tick.at == 0) continue;
    const QString label = ToQt(tick.label);
    const double wide = metrics.horizontalAdvance(label);
    const QPointF middle = IsHorizontal() ? QPointF(at, length + kNumberGap + metrics.height() / 2)
                                          : QPointF(length + kNumberGap + wide / 2, at);
    QRectF box(0, 0, wide + 2, metrics.height());
    box.moveCenter(middle);
    if (QRectF(rect()).contains(box)) painter.drawText(box, Qt::AlignCenter, label);
  }
}

void MWinRuler::PaintPointer(QPainter& painter) const {
  const QFontMetricsF metrics(font());
  const double length = IsHorizontal() ? width() : height();
  // Without a pointer the read-out tells how long the ruler is.
  const double place = m_pointer.value_or(length);
  const QString reading = ToQt(RulerReading(m_unit, place, Display()));
  QRectF box(0, 0, metrics.horizontalAdvance(reading) + 10, metrics.height() + 2);
  if (m_pointer) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
    const double at = *m_pointer + 0.5 / devicePixelRatioF();
    if (IsHorizontal()) {
      painter.drawLine(QPointF(at, 0), QPointF(at, height()));
    } else {
      painter.drawLine(QPointF(0, at), QPointF(width(), at));
    }
  }
  if (IsHorizontal()) {
    box.moveTopLeft({m_pointer ? place + 3 : length - box.width() - 4, height() - box.height() - 4});
    if (box.right() > width() - 2) box.moveRight(std::min(place - 3, width() - 4.0));
  } else {
    box.moveTopLeft({(width() - box.width()) / 2, m_pointer ? place + 3 : length - box.height() - 4});
    if (box.bottom() > height() - 2) box.moveBottom(std::min(place - 3, height() - 4.0));
    box.moveLeft(std::max(1.0, width() - box.width() - 3));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(palette().color(QPalette::HighlightedText));
  painter.drawText(box, Qt::AlignCenter, reading);
}

}  // namespace quill::ui
