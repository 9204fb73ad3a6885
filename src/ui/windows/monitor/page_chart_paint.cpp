// What `PageChart` looks like.
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/kit/dark.h"
#include "ui/windows/monitor/page_chart.h"

namespace quill::ui {
namespace {

constexpr double kPointSize = 3;
constexpr double kDropSize = 6;
constexpr double kGap = 6;

QColor Faded(QColor color, float alpha) {
  color.setAlphaF(alpha);
  return color;
}

QColor DropColor(const QPalette& palette) {
  return IsDark(palette) ? QColor(0xff, 0x8a, 0x7a) : QColor(0xb8, 0x2a, 0x1c);
}

/// The palette's accent, where it is seen on the chart's ground.
QColor LineColor(const QPalette& palette) {
  constexpr int kLeastDifference = 60;
  const QColor accent = palette.color(QPalette::Highlight);
  const int difference = accent.lightness() - palette.color(QPalette::Base).lightness();
  return std::abs(difference) >= kLeastDifference ? accent : palette.color(QPalette::Link);
}

/// An arrow head that points down: a drop is told by its form, too.
QPolygonF DropMark(const QPointF& tip) {
  return {{tip, tip + QPointF(-kDropSize, -1.7 * kDropSize), tip + QPointF(kDropSize, -1.7 * kDropSize)}};
}

}  // namespace

void PageChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);  // dates read as their language does
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  if (m_history.empty()) return;
  PaintTotals(painter);
  PaintTimes(painter);
  PaintLine(painter);
  PaintPoints(painter);
  PaintCurrent(painter);
}

void PageChart::PaintTotals(QPainter& painter) const {
  const double line = QFontMetricsF(font()).height();
  const QColor text = palette().color(QPalette::Text);
  for (const AxisTick& tick : m_totals) {
    const double y = std::round(VerticalPlace(tick.at)) + 0.5;
    painter.setPen(QPen(Faded(text, 0.15F), 1));
    painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
    painter.setPen(Faded(text, 0.8F));
    QRectF box(0, y - line / 2, m_plot.left() - kGap, line);
    if (IsMirrored())
      box = QRectF(m_plot.right() + kGap, y - line / 2, width() - m_plot.right() - 2 * kGap, line);
    painter.drawText(box, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter, tick.label);
  }
}

void PageChart::PaintTimes(QPainter& painter) const {
  const QFontMetricsF metrics(font());
  const QColor text = palette().color(QPalette::Text);
  const double room = metrics.horizontalAdvance(QStringLiteral("00/00/0000")) + 3 * kGap;
  const int most = std::max(2, static_cast<int>(m_plot.width() / room));
  double taken = -1e9;  // where the last label ends, in the direction of time
  for (const AxisTick& tick :
       TimeTicks(static_cast<qint64>(m_from), static_cast<qint64>(m_to), most, locale())) {
    const double x = std::round(HorizontalPlace(tick.at)) + 0.5;
    painter.setPen(QPen(Faded(text, 0.15F), 1));
    painter.drawLine(QPointF(x, m_plot.top()), QPointF(x, m_plot.bottom()));
    const double wide = metrics.horizontalAdvance(tick.label) + 2;
    QRectF box(x - wide / 2, m_plot.bottom() + kGap, wide, metrics.height());
    box.moveLeft(std::clamp(box.left(), 2.0, std::max(2.0, width() - wide - 2)));
    if ((IsMirrored() ? -box.right() : box.left()) < taken + kGap) continue;
    taken = IsMirrored() ? -box.left() : box.right();
    painter.setPen(Faded(text, 0.8F));
    painter.drawText(box, Qt::AlignCenter, tick.label);
  }
}

void PageChart::PaintLine(QPainter& painter) const {
  QPainterPath path(PlaceOf(0));
  for (int i = 1; i < PointCount(); ++i) {
    const QPointF place = PlaceOf(i);
    path.lineTo(place.x(), path.currentPosition().y());
    path.lineTo(place);
  }
  path.lineTo(
      HorizontalPlace(std::max(SecondsOf(PointCount() - 1), double(m_now.time_since_epoch().count()))),
      path.currentPosition().y());
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(LineColor(palette()), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

void PageChart::PaintPoints(QPainter& painter) const {
  constexpr double kLeastRoom = 8;  // closer together they only make the line thick
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < PointCount(); ++i) {
    const QPointF place = PlaceOf(i);
    if (m_history[static_cast<std::size_t>(i)].isDrop) {
      painter.setBrush(DropColor(palette()));
      painter.drawPolygon(DropMark(place));
    } else if (m_plot.width() >= kLeastRoom * PointCount()) {
      painter.setBrush(LineColor(palette()));
      painter.drawEllipse(place, kPointSize, kPointSize);
    }
  }
}

void PageChart::PaintCurrent(QPainter& painter) const {
  const QPointF place = PlaceOf(m_current);
  const QColor color = palette().color(QPalette::Text);
  painter.setPen(QPen(Faded(color, 0.5F), 1, Qt::DashLine));
  painter.drawLine(QPointF(place.x(), m_plot.top()), QPointF(place.x(), m_plot.bottom()));
  painter.setPen(QPen(color, 2));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawEllipse(place, kPointSize + 1.5, kPointSize + 1.5);
}

}  // namespace quill::ui
