#pragma once
#include <QList>
#include <QLocale>
#include <QString>

namespace quill::ui {

/// A line of a chart's grid and what stands beside it.
struct AxisTick {
  double at = 0;
  QString label;
};

/// Round whole numbers from `low` to `high`, `most` at the most, but never fewer than two; the first is not
/// above `low` and the last not below `high`.
QList<AxisTick> CountTicks(double low, double high, int most, const QLocale& locale);

/// Round moments between two, `most` at the most: hours, days, or the beginnings of months and years. Moments
/// are seconds since 1970 on the clock of the place.
QList<AxisTick> TimeTicks(qint64 from, qint64 to, int most, const QLocale& locale);

}  // namespace quill::ui
