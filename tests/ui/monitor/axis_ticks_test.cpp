#include "ui/windows/monitor/axis_ticks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDateTime>
#include <string>

namespace quill::ui {
namespace {

std::string Labels(const QList<AxisTick>& ticks) {
  std::string labels;
  for (const AxisTick& tick : ticks) labels += (labels.empty() ? "" : " ") + tick.label.toStdString();
  return labels;
}

qint64 At(const char* moment) {
  QDateTime time = QDateTime::fromString(QLatin1String(moment), Qt::ISODate);
  time.setTimeSpec(Qt::UTC);
  return time.toSecsSinceEpoch();
}

// Totals are whole numbers: so is what stands beside them, and every one of them is between the first and the
// last.
TEST(AxisTicks, AreRoundNumbersAroundTheTotals) {
  const QLocale c = QLocale::c();
  EXPECT_EQ(Labels(CountTicks(100, 100, 6, c)), "100 101");
  EXPECT_EQ(Labels(CountTicks(0, 3, 6, c)), "0 1 2 3");
  EXPECT_EQ(Labels(CountTicks(181, 246, 6, c)), "180 200 220 240 260");
  EXPECT_EQ(Labels(CountTicks(0, 1e6, 3, c)), "0 1000000");
  for (const double high : {1.0, 7.0, 999.0, 123'456.0, 9e18}) {
    for (const int most : {0, 2, 5, 12}) {
      const QList<AxisTick> ticks = CountTicks(0, high, most, c);
      EXPECT_LE(ticks.size(), std::max(most, 3)) << high << " " << most;
      EXPECT_GE(ticks.last().at, high);
    }
  }
}

// From an afternoon to decades: the axis has a few labels, each at the beginning of something.
TEST(AxisTicks, AreRoundMoments) {
  const QLocale c = QLocale::c();
  EXPECT_EQ(Labels(TimeTicks(At("2026-03-01T22:10:00"), At("2026-03-02T01:00:00"), 4, c)),
            "23:00:00 2 Mar 2026 01:00:00");
  EXPECT_EQ(Labels(TimeTicks(At("2026-03-01T10:00:00"), At("2026-03-29T10:00:00"), 5, c)),
            "2 Mar 2026 9 Mar 2026 16 Mar 2026 23 Mar 2026")
      << "Mondays";
  EXPECT_EQ(Labels(TimeTicks(At("2025-10-02T10:00:00"), At("2026-02-10T10:00:00"), 8, c)),
            "1 Nov 2025 1 Dec 2025 1 Jan 2026 1 Feb 2026");
  for (const int days : {1, 3, 10, 40, 200, 1000, 20'000}) {
    for (const int most : {2, 5, 9}) {
      const QList<AxisTick> ticks =
          TimeTicks(At("2026-01-15T00:00:01"), At("2026-01-15T00:00:01") + days * 86'400, most, c);
      EXPECT_LE(ticks.size(), most) << days;
      if (most > 2) EXPECT_GE(ticks.size(), 1) << days;
    }
  }
}

}  // namespace
}  // namespace quill::ui
