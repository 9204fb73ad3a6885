#include "ui/windows/monitor/page_chart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QImage>
#include <QtTest/QTest>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"

namespace quill::ui {
namespace {

using testing::HasSubstr;

std::chrono::local_seconds At(int day, int hour = 0) {
  return std::chrono::local_days(std::chrono::year(2026) / 3 / day) + std::chrono::hours(hour);
}

struct Chart : testing::Test {
  Chart() {
    chart.setLocale(QLocale(QStringLiteral("en_GB")));
    chart.resize(600, 300);
    chart.SetHistory(online::ParsePageHistory(kText, 5, At(20)), At(20));
    BringToFront(chart);
    WaitUntil([this] { return chart.isActiveWindow(); });
    chart.setFocus();
  }
  std::string Spoken() {
    return FromQt(QAccessible::queryAccessibleInterface(&chart)->text(QAccessible::Name));
  }

  static constexpr const char* kText =
      "[2026-03-02 09:00:00] 1200\n[2026-03-06 10:30:00] 1204\n[2026-03-06 18:00:00] 1150\n"
      "[2026-03-15 08:00:00] 1201";
  shell::StringTable strings;
  PageChart chart{strings};
};

// Whoever does not see the line goes along its points and hears each.
TEST_F(Chart, IsWalkedWithTheArrowKeys) {
  EXPECT_EQ(chart.current(), 3) << "it begins with the latest";
  Press(Qt::Key_Right);
  EXPECT_EQ(chart.current(), 3) << "there is no later one";
  Press(Qt::Key_Left);
  EXPECT_EQ(Spoken(), "History: 06/03/2026 18:00 – pages: 1,150, change: −54, more than is tolerated");
  Press(Qt::Key_Left);
  EXPECT_THAT(FromQt(chart.CurrentText()), HasSubstr("10:30 – pages: 1,204, change: +4"));
  Press(Qt::Key_Home);
  EXPECT_EQ(FromQt(chart.CurrentText()), "02/03/2026 09:00 – pages: 1,200");
  Press(Qt::Key_End);
  EXPECT_EQ(chart.current(), 3);
  chart.setLayoutDirection(Qt::RightToLeft);
  EXPECT_LT(chart.PlaceOf(3).x(), chart.PlaceOf(0).x());
  Press(Qt::Key_Right);
  EXPECT_EQ(chart.current(), 2) << "to the right is earlier in a mirrored window";
}

// The place of a point is its moment and its total; a click chooses the nearest.
TEST_F(Chart, PlacesPointsByTimeAndTotal) {
  const QPointF first = chart.PlaceOf(0), most = chart.PlaceOf(1), least = chart.PlaceOf(2),
                last = chart.PlaceOf(3);
  EXPECT_LT(most.y(), last.y());
  EXPECT_LT(last.y(), least.y());
  const double whole = last.x() - first.x(), part = most.x() - first.x();
  EXPECT_NEAR(part / whole, (4 * 24 + 1.5) / (13 * 24 - 1), 0.001);
  EXPECT_TRUE(QRectF(chart.rect()).contains(first) && QRectF(chart.rect()).contains(last));
  QTest::mouseClick(&chart, Qt::LeftButton, {}, (most - QPointF(9, -40)).toPoint());
  EXPECT_EQ(chart.current(), 1);
  QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(chart.width() - 2, 5));
  EXPECT_EQ(chart.current(), 3);
}

// A drop has a mark of its own colour above its point; a smaller one has none.
TEST_F(Chart, MarksDrops) {
  const auto redAbove = [this](int point) {
    const QImage picture = chart.grab().toImage();
    const QColor color =
        picture.pixelColor(((chart.PlaceOf(point) - QPointF(0, 7)) * chart.devicePixelRatioF()).toPoint());
    return color.red() > color.blue() + 60;
  };
  chart.SetCurrent(0);
  EXPECT_TRUE(redAbove(2));
  EXPECT_FALSE(redAbove(1));
  EXPECT_FALSE(redAbove(3));
}

// What is looked at stays, while the history grows at its end and loses its beginning.
TEST_F(Chart, KeepsTheCurrentPoint) {
  chart.SetCurrent(1);
  const std::string grown = std::string(kText).substr(27) + "\n[2026-03-16 08:00:00] 1202";
  chart.SetHistory(online::ParsePageHistory(grown, 5, At(20)), At(20));
  EXPECT_EQ(chart.current(), 0);
  EXPECT_THAT(FromQt(chart.CurrentText()), HasSubstr("1,204"));
  chart.SetCurrent(3);
  chart.SetHistory(online::ParsePageHistory(grown + "\n[2026-03-17 08:00:00] 1203", 5, At(20)), At(20));
  EXPECT_EQ(chart.current(), 4) << "who looks at the latest goes on with the latest";
  chart.SetHistory({}, At(20));
  EXPECT_EQ(chart.current(), -1);
  Press(Qt::Key_Left);
  EXPECT_EQ(chart.CurrentText(), QString());
  EXPECT_FALSE(chart.grab().isNull());
}

// A full history must not make typing elsewhere wait.
TEST_F(Chart, PaintsAFullHistoryQuickly) {
  std::vector<online::PageHistoryEntry> history;
  for (int i = 0; i < 1001; ++i)
    history.push_back(
        {At(1) + std::chrono::hours(9 * i), std::to_string(i), 500 + i % 40 * 3, 3, i % 40 == 0});
  chart.SetHistory(history, At(1) + std::chrono::hours(9100));
  chart.grab();
  QElapsedTimer timer;
  timer.start();
  chart.grab();
  RecordProperty("paint_ms", static_cast<int>(timer.elapsed()));
  EXPECT_LT(timer.elapsed(), 200);
}

}  // namespace
}  // namespace quill::ui
