#include "ui/windows/image/picture_view.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include "gui_world.h"
#include "image/pictures.h"

namespace quill::ui {

namespace {

class PictureViewTest : public testing::Test {
 protected:
  void Open(const QImage& image, QSize size = {400, 300}) {
    view.resize(size);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.Show(Loaded(image));
  }

  /// A place of the window that lies in this pixel.
  QPoint Middle(QPoint pixel) {
    const QPointF middle = view.ToViewport(QPointF(pixel) + QPointF(0.5, 0.5));
    return {static_cast<int>(std::floor(middle.x())), static_cast<int>(std::floor(middle.y()))};
  }

  void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(view.viewport(), button, {}, from);
    // A drag begins after a few pixels, so it is made in two steps.
    const auto move = [&](QPoint at) {
      QMouseEvent event(QEvent::MouseMove, QPointF(at), view.viewport()->mapToGlobal(QPointF(at)),
                        Qt::NoButton, button, {});
      QCoreApplication::sendEvent(view.viewport(), &event);
    };
    move((from + to) / 2);
    move(to);
    QTest::mouseRelease(view.viewport(), button, {}, to);
  }

  void Select(const QRect& rect) {
    view.Change([rect](CropFrame& frame) { frame.Set(rect); });
  }

  void Wheel(QPoint at, int delta, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event(QPointF(at), view.viewport()->mapToGlobal(QPointF(at)), {}, {0, delta}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &event);
  }

  QRect Frame() const { return view.frame().rect(); }

  PictureView view;
};

// At 100 % every pixel of the picture is one pixel of the screen, also on displays with two for one.
TEST_F(PictureViewTest, ShowsPixelForPixel) {
  const QImage image = Patterned(120, 90);
  Open(image);
  EXPECT_EQ(view.zoom(), 1);
  const QImage shown = view.viewport()->grab().toImage();
  const QPoint origin = (view.ToViewport({0, 0}) * view.devicePixelRatioF()).toPoint();
  EXPECT_EQ(shown.copy(QRect(origin, image.size())).convertToFormat(QImage::Format_RGB32).size(),
            image.size());
  int wrong = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      wrong += (shown.pixel(origin + QPoint(x, y)) & 0xFFFFFF) == (image.pixel(x, y) & 0xFFFFFF) ? 0 : 1;
    }
  }
  EXPECT_EQ(wrong, 0);
}

// A large picture is shown whole, a small one as it is; a window that grows shows more of the large one.
TEST_F(PictureViewTest, FitsLargePicturesIntoTheWindow) {
  Open(Patterned(3000, 1000));
  const auto whole = [this] {
    const QRectF shown(view.ToViewport({0, 0}), view.ToViewport({3000, 1000}));
    return shown.width() <= view.viewport()->width() + 1 && shown.height() <= view.viewport()->height() + 1 &&
           shown.width() > view.viewport()->width() - 2;
  };
  EXPECT_TRUE(whole());
  EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
  const double before = view.zoom();
  view.resize(500, 300);
  EXPECT_TRUE(WaitUntil([&] { return view.zoom() > before; }));
  EXPECT_TRUE(whole());
  view.SetZoom(1);
  view.resize(400, 300);
  EXPECT_EQ(view.zoom(), 1) << "a chosen zoom stays";
  EXPECT_TRUE(WaitUntil([&] { return view.horizontalScrollBar()->isVisible(); }));
}

// Zooming with the wheel keeps what is under the pointer under the pointer.
TEST_F(PictureViewTest, ZoomsAtThePointer) {
  Open(Patterned(3000, 2000));
  const QPoint at(300, 120);
  const QPointF before = view.ToPicture(at);
  const double zoom = view.zoom();
  for (int i = 0; i < 12; ++i) Wheel(at, 120, Qt::ControlModifier);
  EXPECT_GT(view.zoom(), zoom * 10);
  const QPointF away = view.ToPicture(at) - before;
  EXPECT_LT(away.manhattanLength(), 12) << "one logical pixel of rounding a step at most";
  for (int i = 0; i < 200; ++i) Wheel(at, 120, Qt::ControlModifier);
  EXPECT_EQ(view.zoom(), PictureView::kMostZoom);
  for (int i = 0; i < 200; ++i) Wheel(at, -120, Qt::ControlModifier);
  EXPECT_EQ(view.zoom(), PictureView::kLeastZoom);
  view.SetZoom(1);
  const double still = view.zoom();
  Wheel(at, -120, Qt::NoModifier);
  EXPECT_EQ(view.zoom(), still) << "without Control the wheel scrolls";
  EXPECT_GT(view.verticalScrollBar()->value(), 0);
}

// What is drawn with the mouse is what is selected, to the pixel, at every zoom.
TEST_F(PictureViewTest, SelectsThePixelsUnderTheMouse) {
  Open(Patterned(200, 150));
  for (const double scale : {1.0, 2.0, 8.0}) {
    view.Unselect();
    view.SetZoom(scale * view.devicePixelRatioF());
    const QPoint first = view.ToPicture(QPointF(view.viewport()->rect().center())).toPoint() - QPoint(10, 8);
    const QPoint last = first + QPoint(17, 13);
    Drag(Middle(first), Middle(last));
    EXPECT_EQ(Frame(), QRect(first, last)) << scale;
    EXPECT_EQ(view.Selected(), view.image().copy(QRect(first, last))) << scale;
    // By the handle at the right lower corner, three pixels further.
    const QPoint corner = view.ToViewport(last + QPoint(1, 1)).toPoint();
    const int by = qRound(view.ToViewport({3, 3}).x() - view.ToViewport({0, 0}).x());
    Drag(corner + QPoint(4, 4), corner + QPoint(4 + std::max(by, 12), 4 + std::max(by, 12)));
    EXPECT_EQ(Frame().topLeft(), first) << scale;
    EXPECT_EQ(Frame().right() - last.x(), qRound(std::max(by, 12) / scale)) << scale;
    // Moved as a whole.
    const QRect before = Frame();
    const QPoint inside = view.ToViewport(QPointF(before.center())).toPoint();
    const QPoint step(static_cast<int>(-12 * scale / std::min(scale, 4.0)), 0);
    Drag(inside, inside + step);
    EXPECT_EQ(Frame(), before.translated(qRound(step.x() / scale), 0)) << scale;
  }
  // Far below one pixel for one, and beyond the borders.
  view.SetZoom(0.25 * view.devicePixelRatioF());
  Drag(view.ToViewport({-300, -300}).toPoint(), view.ToViewport({100, 5000}).toPoint());
  EXPECT_EQ(Frame().topLeft(), QPoint(0, 0));
  EXPECT_EQ(Frame().bottom(), 149);
  EXPECT_NEAR(Frame().right(), 100, 4);
}

// A click beside the selection drops it; a click in it, or the trembling of a hand, changes nothing.
TEST_F(PictureViewTest, ClicksDoNotChangeTheSelection) {
  Open(Patterned(200, 150));
  Select({50, 50, 60, 40});
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Middle({80, 70}));
  EXPECT_EQ(Frame(), QRect(50, 50, 60, 40));
  Drag(Middle({80, 70}), Middle({80, 70}) + QPoint(1, 1));
  EXPECT_EQ(Frame(), QRect(50, 50, 60, 40));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Middle({10, 10}));
  EXPECT_TRUE(view.frame().empty());
}

// A person without a mouse puts the frame to the pixel.
TEST_F(PictureViewTest, ArrowKeysMoveAndResize) {
  Open(Patterned(200, 150));
  Select({50, 50, 60, 40});
  const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&view, key, modifiers);
  };
  press(Qt::Key_Right);
  press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Frame(), QRect(51, 40, 60, 40));
  press(Qt::Key_Left, Qt::AltModifier);
  press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_EQ(Frame(), QRect(51, 40, 59, 50));
  for (int i = 0; i < 30; ++i) press(Qt::Key_Down, Qt::ShiftModifier);
  for (int i = 0; i < 30; ++i) press(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_EQ(Frame(), QRect(51, 100, 149, 50));
  view.Unselect();
  view.SetZoom(8);
  const int before = view.horizontalScrollBar()->value();
  press(Qt::Key_Right);
  EXPECT_GT(view.horizontalScrollBar()->value(), before) << "without a selection they scroll";
}

// The middle button, or the space bar, moves the picture and leaves the selection.
TEST_F(PictureViewTest, MovesThePicture) {
  Open(Patterned(900, 900));
  view.SetZoom(4);
  Select({400, 400, 20, 20});
  const QPointF before = view.ToPicture({100, 100});
  Drag({200, 200}, {160, 170}, Qt::MiddleButton);
  EXPECT_LT((view.ToPicture({60, 70}) - before).manhattanLength(), 0.5);
  QTest::keyPress(&view, Qt::Key_Space);
  Drag({160, 170}, {200, 200});
  QTest::keyRelease(&view, Qt::Key_Space);
  EXPECT_LT((view.ToPicture({100, 100}) - before).manhattanLength(), 0.5);
  EXPECT_EQ(Frame(), QRect(400, 400, 20, 20));
}

// Fine stripes of a large picture become an even grey when it is shown small, not a wild pattern.
TEST_F(PictureViewTest, ScalesDownSmoothly) {
  QImage stripes(4000, 3000, QImage::Format_RGB32);
  for (int y = 0; y < stripes.height(); ++y) {
    for (int x = 0; x < stripes.width(); ++x) stripes.setPixel(x, y, x % 2 == 0 ? 0xFF000000 : 0xFFFFFFFF);
  }
  Open(stripes);
  const QImage shown = view.viewport()->grab().toImage();
  for (int x = shown.width() / 4; x < shown.width() * 3 / 4; ++x) {
    ASSERT_NEAR(qGray(shown.pixel(x, shown.height() / 2)), 127, 16) << x;
  }
}

}  // namespace
}  // namespace quill::ui
