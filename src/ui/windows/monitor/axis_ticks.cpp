#include "ui/windows/monitor/axis_ticks.h"

#include <QDateTime>
#include <QTimeZone>
#include <algorithm>
#include <cmath>

namespace quill::ui {
namespace {

constexpr qint64 kHour = 3600, kDay = 24 * kHour;
constexpr qint64 kFirstMonday = 4 * kDay;  // 5 January 1970: weeks begin there

QDateTime Moment(qint64 seconds) {
  return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

/// The smallest of 1, 2, 5, 10, … that needs no more than `most` steps.
double RoundStep(double span, int most) {
  double power = std::pow(10, std::floor(std::log10(std::max(span / most, 1.0))));
  for (const double factor : {1, 2, 5, 10}) {
    if (span / (power * factor) <= most) return power * factor;
  }
  return power * 10;
}

QList<AxisTick> EvenTicks(qint64 from, qint64 to, qint64 step, const QLocale& locale) {
  QList<AxisTick> ticks;
  const qint64 origin = step % (7 * kDay) == 0 ? kFirstMonday : 0;
  const qint64 first = static_cast<qint64>(std::ceil(double(from - origin) / double(step))) * step + origin;
  for (qint64 at = first; at <= to; at += step) {
    const bool isDay = at % kDay == 0;
    ticks.append({double(at), isDay ? locale.toString(Moment(at).date(), QLocale::ShortFormat)
                                    : locale.toString(Moment(at).time(), QLocale::ShortFormat)});
  }
  return ticks;
}

QList<AxisTick> MonthTicks(qint64 from, qint64 to, int step, const QLocale& locale) {
  QList<AxisTick> ticks;
  const QDate begin = Moment(from).date();
  const int month = (begin.year() * 12 + begin.month() - 1) / step * step;
  for (QDate date(month / 12, month % 12 + 1, 1); date.isValid(); date = date.addMonths(step)) {
    const qint64 at = QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
    if (at > to) break;
    if (at >= from) ticks.append({double(at), locale.toString(date, QLocale::ShortFormat)});
  }
  return ticks;
}

}  // namespace

QList<AxisTick> CountTicks(double low, double high, int most, const QLocale& locale) {
  const double step = RoundStep(std::max(high - low, 1.0), std::max(most - 2, 1));
  QList<AxisTick> ticks;
  double at = std::floor(low / step) * step;
  do {
    ticks.append({at, locale.toString(at, 'f', 0)});
    at += step;
  } while (ticks.last().at < high || ticks.size() < 2);
  return ticks;
}

QList<AxisTick> TimeTicks(qint64 from, qint64 to, int most, const QLocale& locale) {
  const qint64 span = to - from;
  for (const qint64 step : {kHour, 3 * kHour, 6 * kHour, 12 * kHour, kDay, 2 * kDay, 7 * kDay, 14 * kDay}) {
    if (span / step < most) return EvenTicks(from, to, step, locale);
  }
  for (const int months : {1, 2, 3, 6, 12, 24, 60, 120, 240, 600}) {
    if (span / (months * 28 * kDay) < most) return MonthTicks(from, to, months, locale);
  }
  return MonthTicks(from, to, 1200, locale);
}

}  // namespace quill::ui
