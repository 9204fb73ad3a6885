#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>
#include <cmath>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/win_ruler.h"

namespace quill::ui {
namespace {

constexpr RulerUnit kUnits[] = {RulerUnit::Pixels, RulerUnit::Centimetres, RulerUnit::Inches};

// An inch on the glass is an inch on the ruler, and a pixel is one of the display's.
TEST(RulerScale, MeasuresInEachUnit) {
  struct Row {
    RulerUnit unit;
    RulerDisplay display;
    double at;
    const char* reading;
  };
  const Row rows[] = {
      {RulerUnit::Pixels, {96, 1}, 128, "128 px"},       {RulerUnit::Pixels, {96, 2}, 128, "256 px"},
      {RulerUnit::Pixels, {96, 1.5}, 3, "5 px"},         {RulerUnit::Centimetres, {96, 1}, 96, "2.54 cm"},
      {RulerUnit::Centimetres, {127, 2}, 50, "1.00 cm"}, {RulerUnit::Inches, {96, 1}, 128, "1.333 in"},
      {RulerUnit::Inches, {110, 2}, 55, "0.500 in"},     {RulerUnit::Pixels, {96, 1}, 0, "0 px"},
  };
  for (const Row& row : rows) EXPECT_EQ(RulerReading(row.unit, row.at, row.display), row.reading);
}

// Screens that know nothing about their size must not give a ruler without lines or with millions of them.
TEST(RulerScale, DistrustsImpossibleScreens) {
  for (const double physical : {0.0, -5.0, 0.001, 1e9, std::nan("")}) {
    EXPECT_EQ(DescribeDisplay(physical, 96, 2).dotsPerInch, 96) << physical;
  }
  EXPECT_EQ(DescribeDisplay(109, 96, 2).dotsPerInch, 109);
}

// On every display the lines stand apart, the numbers do not touch, and each number is at its place.
TEST(RulerScale, LinesCanBeReadOnEveryDisplay) {
  for (const RulerUnit unit : kUnits) {
    for (const double dpi : {40.0, 72.0, 96.0, 163.0, 300.0}) {
      for (const double ratio : {1.0, 1.25, 2.0, 3.0}) {
        const RulerDisplay display{dpi, ratio};
        const std::vector<RulerTick> ticks = RulerTicks(unit, 900, display);
        ASSERT_GT(ticks.size(), 5u);
        double lastNumber = -1000;
        for (std::size_t i = 0; i < ticks.size(); ++i) {
          ASSERT_LE(ticks[i].at, 900);
          ASSERT_GE(ticks[i].at - (i > 0 ? ticks[i - 1].at : -4), 3.49);
          EXPECT_EQ(ticks[i].label.empty(), ticks[i].rank < 2);
          if (ticks[i].label.empty()) continue;
          EXPECT_GE(ticks[i].at - lastNumber, 15);
          lastNumber = ticks[i].at;
          EXPECT_NEAR(std::stod(ticks[i].label) * LogicalPerUnit(unit, display), ticks[i].at, 1e-6);
        }
      }
    }
  }
  const std::vector<RulerTick> centimetre = RulerTicks(RulerUnit::Centimetres, 38, {96, 1});
  ASSERT_EQ(centimetre.size(), 11u) << "a millimetre a line";
  EXPECT_EQ(centimetre[5].rank, 1);
  EXPECT_EQ(centimetre[10].label, "1");
}

class Ruler : public testing::Test {
 protected:
  MWinRuler* Open() {
    auto* ruler = new MWinRuler(world.strings, memory);
    ruler->show();
    ruler->activateWindow();
    EXPECT_TRUE(WaitUntil([ruler] { return ruler->isActiveWindow(); }));
    return ruler;
  }

  GuiWorld world;
  std::shared_ptr<RulerMemory> memory = std::make_shared<RulerMemory>();
};

// All of it without a mouse: moved, resized, turned, another unit, closed.
TEST_F(Ruler, IsUsedByKeyboardAlone) {
  QPointer<MWinRuler> ruler = Open();
  const QRect start = ruler->geometry();
  Press(Qt::Key_Right);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(ruler->geometry(), start.translated(1, 10));
  Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(ruler->size(), start.size() + QSize(10, 1));
  Press(Qt::Key_V);
  EXPECT_EQ(ruler->size(), (start.size() + QSize(10, 1)).transposed());
  EXPECT_EQ(ruler->pos(), start.topLeft() + QPoint(1, 10));
  Press(Qt::Key_U);
  EXPECT_EQ(ruler->unit(), RulerUnit::Centimetres);
  for (int i = 0; i < 200; ++i) Press(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(ruler->height(), MWinRuler::kLeastLength);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return ruler.isNull(); }));
}

// The mouse drags the ruler at its middle and resizes it at its edges; the opposite edge stays.
TEST_F(Ruler, FollowsTheMouse) {
  MWinRuler* ruler = Open();
  const QRect start = ruler->geometry();
  const auto drag = [ruler](QPoint from, QPoint by) {
    const QPoint global = ruler->mapToGlobal(from);
    QTest::mousePress(ruler, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(from + by), QPointF(global + by), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(ruler, &move);
    QTest::mouseRelease(ruler, Qt::LeftButton, {}, from);
  };
  drag(ruler->rect().center(), {40, -15});
  EXPECT_EQ(ruler->geometry(), start.translated(40, -15));
  drag({2, 30}, {-25, 0});
  EXPECT_EQ(ruler->geometry(), start.translated(40, -15).adjusted(-25, 0, 0, 0));
  drag({2, 30}, {5000, 0});
  EXPECT_EQ(ruler->width(), MWinRuler::kLeastLength);
  EXPECT_EQ(ruler->geometry().right(), start.translated(40, -15).right());
  drag({60, ruler->height() - 2}, {0, 5000});
  EXPECT_EQ(ruler->height(), MWinRuler::kMostBreadth);
  QTest::mouseDClick(ruler, Qt::LeftButton, {}, {50, 30});
  EXPECT_EQ(ruler->orientation(), Qt::Vertical);
}

// The next ruler is like the last one and not exactly on top of it.
TEST_F(Ruler, RemembersHowItWasSet) {
  MWinRuler* first = Open();
  first->SetUnit(RulerUnit::Inches);
  MWinRuler* second = Open();
  EXPECT_EQ(second->unit(), RulerUnit::Inches);
  EXPECT_NE(second->pos(), first->pos());
  second->SetOrientation(Qt::Vertical);
  EXPECT_EQ(first->orientation(), Qt::Horizontal);
  EXPECT_EQ(Open()->orientation(), Qt::Vertical);
  EXPECT_EQ(RulerMemory().unit, RulerUnit::Pixels);
}

// The context menu, opened by its key, changes the unit and shows which one is set.
TEST_F(Ruler, HasAContextMenu) {
  MWinRuler* ruler = Open();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10}, ruler->mapToGlobal(QPoint(10, 10)));
  QCoreApplication::sendEvent(ruler, &event);
  ASSERT_TRUE(WaitUntil([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; }));
  Picture(*QApplication::activePopupWidget(), "ruler-menu");
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  EXPECT_TRUE(WaitUntil([&] { return ruler->unit() == RulerUnit::Centimetres; }));
}

// How it looks, in both directions.
TEST_F(Ruler, ShowsItsLength) {
  MWinRuler* ruler = Open();
  EXPECT_THAT(FromQt(ruler->accessibleDescription()), testing::HasSubstr(" px long"));
  EXPECT_EQ(FromQt(ruler->accessibleName()), "Ruler");
  Picture(*ruler, "ruler-px");
  ruler->SetUnit(RulerUnit::Centimetres);
  Picture(*ruler, "ruler-cm");
  QCursor::setPos(ruler->mapToGlobal(QPoint(237, 30)));
  ruler->SetUnit(RulerUnit::Inches);
  ProcessEventsFor(80ms);
  Picture(*ruler, "ruler-in");
  ruler->SetUnit(RulerUnit::Centimetres);
  ruler->SetOrientation(Qt::Vertical);
  Picture(*ruler, "ruler-vertical");
}

}  // namespace
}  // namespace quill::ui
