#include "ui/windows/monitor/page_chart.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/kit/qt_text.h"
#include "ui/windows/monitor/axis_ticks.h"
#include "ui/windows/monitor/page_words.h"

namespace quill::ui {
namespace {

constexpr double kGap = 6;

double Seconds(std::chrono::local_seconds at) {
  return static_cast<double>(at.time_since_epoch().count());
}

}  // namespace

PageChart::PageChart(const shell::StringTable& strings) : m_strings(strings) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  TellScreenReader();
}

void PageChart::SetHistory(std::vector<online::PageHistoryEntry> history, std::chrono::local_seconds now) {
  const bool wasLast = m_current + 1 == PointCount();
  const std::string time = m_current >= 0 ? m_history[static_cast<std::size_t>(m_current)].time : "";
  m_history = std::move(history);
  m_now = now;
  int current = PointCount() - 1;
  const auto same = std::ranges::find(m_history, time, &online::PageHistoryEntry::time);
  if (!wasLast && same != m_history.end()) current = static_cast<int>(same - m_history.begin());
  m_current = current;
  Measure();
  TellScreenReader();
  update();
  emit CurrentChanged();
}

void PageChart::SetCurrent(int point) {
  point = std::clamp(point, m_history.empty() ? -1 : 0, PointCount() - 1);
  if (point == m_current) return;
  m_current = point;
  TellScreenReader();
  update();
  emit CurrentChanged();
}

QString PageChart::CurrentText() const {
  if (m_current < 0) return {};
  return PointText(m_history[static_cast<std::size_t>(m_current)], m_strings, locale());
}

void PageChart::TellScreenReader() {
  const QString name = ToQt(m_strings.Text("strPagesChart"));
  setAccessibleName(m_current < 0 ? name : name + QStringLiteral(": ") + CurrentText());
}

void PageChart::Measure() {
  constexpr double kHalfDay = 12 * 3600;
  if (m_history.empty()) return;
  const auto [first, last] = std::ranges::minmax(m_history, {}, &online::PageHistoryEntry::at);
  m_from = Seconds(first.at);
  m_to = std::max(Seconds(last.at), Seconds(m_now));
  if (m_to - m_from < 2 * kHalfDay) {
    const double middle = (m_from + m_to) / 2;
    m_from = middle - kHalfDay;
    m_to = middle + kHalfDay;
  }
  const auto [least, most] = std::ranges::minmax(m_history, {}, &online::PageHistoryEntry::total);
  const QFontMetricsF metrics(font());
  m_totals = CountTicks(static_cast<double>(least.total), static_cast<double>(most.total),
                        static_cast<int>(height() / (metrics.lineSpacing() * 2)), locale());
  double label = 0;
  for (const AxisTick& tick : m_totals) label = std::max(label, metrics.horizontalAdvance(tick.label));
  const double beside = label + 2 * kGap, end = 2 * kGap;
  m_plot = QRectF(rect()).adjusted(IsMirrored() ? end : beside, 2 * kGap + 2, IsMirrored() ? -beside : -end,
                                   -metrics.lineSpacing() - 2 * kGap);
}

double PageChart::HorizontalPlace(double seconds) const {
  const double way = (seconds - m_from) / (m_to - m_from) * m_plot.width();
  return IsMirrored() ? m_plot.right() - way : m_plot.left() + way;
}

double PageChart::VerticalPlace(double total) const {
  const double low = m_totals.first().at, high = m_totals.last().at;
  return m_plot.bottom() - (total - low) / (high - low) * m_plot.height();
}

double PageChart::SecondsOf(int point) const {
  return Seconds(m_history[static_cast<std::size_t>(point)].at);
}

QPointF PageChart::PlaceOf(int point) const {
  const double total = static_cast<double>(m_history[static_cast<std::size_t>(point)].total);
  return {HorizontalPlace(SecondsOf(point)), VerticalPlace(total)};
}

void PageChart::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Measure();
}

void PageChart::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  Measure();
  update();
}

QSize PageChart::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 16};
}

QSize PageChart::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * 8};
}

int PageChart::NearestPoint(const QPointF& place) const {
  int nearest = -1;
  double least = 0;
  for (int i = 0; i < PointCount(); ++i) {
    const double far = std::abs(PlaceOf(i).x() - place.x());
    if (nearest >= 0 && far > least) continue;
    nearest = i;
    least = far;
  }
  return nearest;
}

bool PageChart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int point = NearestPoint(help->pos());
  if (point < 0) return false;
  const QString words = PointText(m_history[static_cast<std::size_t>(point)], m_strings, locale());
  QToolTip::showText(help->globalPos(), words, this);
  return true;
}

void PageChart::keyPressEvent(QKeyEvent* event) {
  const int forth = IsMirrored() ? -1 : 1;
  switch (event->key()) {
    case Qt::Key_Right:
      return SetCurrent(m_current + forth);
    case Qt::Key_Left:
      return SetCurrent(m_current - forth);
    case Qt::Key_Home:
      return SetCurrent(0);
    case Qt::Key_End:
      return SetCurrent(PointCount() - 1);
    default:
      QWidget::keyPressEvent(event);
  }
}

void PageChart::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) SetCurrent(NearestPoint(event->position()));
}

void PageChart::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) SetCurrent(NearestPoint(event->position()));
}

}  // namespace quill::ui
