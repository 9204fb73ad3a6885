#include "ui/windows/image/crop_frame.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quill::ui {

namespace {

constexpr QSize kPicture(200, 100);

CropFrame Selected(const QRect& rect, bool locked = false) {
  CropFrame frame;
  frame.SetPicture(kPicture);
  frame.Set(rect);
  frame.LockRatio(locked);
  return frame;
}

QRect Dragged(CropPart part, const QRect& start, QPoint by, bool locked = false) {
  CropFrame frame = Selected(start, locked);
  frame.Drag(part, start, by);
  return frame.rect();
}

// Each handle moves its own edges, keeps the opposite ones, and stops at the picture and at one pixel.
TEST(CropFrame, HandlesMoveTheirEdges) {
  const QRect start(50, 30, 40, 20);
  struct Row {
    CropPart part;
    QPoint by;
    QRect expected;
  };
  const Row rows[] = {
      {CropPart::Left, {-10, 7}, {40, 30, 50, 20}},
      {CropPart::Left, {100, 0}, {89, 30, 1, 20}},
      {CropPart::Left, {-500, 0}, {0, 30, 90, 20}},
      {CropPart::Right, {10, 7}, {50, 30, 50, 20}},
      {CropPart::Right, {500, 0}, {50, 30, 150, 20}},
      {CropPart::Right, {-500, 0}, {50, 30, 1, 20}},
      {CropPart::Top, {7, -10}, {50, 20, 40, 30}},
      {CropPart::Top, {0, 500}, {50, 49, 40, 1}},
      {CropPart::Bottom, {7, 500}, {50, 30, 40, 70}},
      {CropPart::TopLeft, {-5, -5}, {45, 25, 45, 25}},
      {CropPart::TopLeft, {-500, -500}, {0, 0, 90, 50}},
      {CropPart::TopRight, {5, -5}, {50, 25, 45, 25}},
      {CropPart::BottomLeft, {-5, 5}, {45, 30, 45, 25}},
      {CropPart::BottomRight, {500, 500}, {50, 30, 150, 70}},
      {CropPart::BottomRight, {-500, -500}, {50, 30, 1, 1}},
      {CropPart::Inside, {500, -500}, {160, 0, 40, 20}},
      {CropPart::Inside, {-3, 4}, {47, 34, 40, 20}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Dragged(row.part, start, row.by), row.expected)
        << int(row.part) << " by " << row.by.x() << "," << row.by.y();
  }
}

// With the ratio locked the other side follows, the anchor stays, and the picture's border stops both.
TEST(CropFrame, KeepsALockedRatio) {
  const QRect start(50, 30, 40, 20);
  EXPECT_EQ(Dragged(CropPart::BottomRight, start, {20, 0}, true), QRect(50, 30, 60, 30));
  EXPECT_EQ(Dragged(CropPart::TopLeft, start, {-20, 0}, true), QRect(30, 20, 60, 30));
  EXPECT_EQ(Dragged(CropPart::Bottom, start, {0, 10}, true), QRect(50, 30, 60, 30));
  EXPECT_EQ(Dragged(CropPart::Right, start, {500, 0}, true), QRect(50, 30, 140, 70))
      << "the lower border stops it";
  CropFrame frame = Selected(start, true);
  frame.SetWidth(80);
  EXPECT_EQ(frame.rect(), QRect(50, 30, 80, 40));
  frame.SetHeight(10);
  EXPECT_EQ(frame.rect(), QRect(50, 30, 20, 10));
  frame.LockRatio(false);
  frame.SetWidth(5000);
  EXPECT_EQ(frame.rect(), QRect(50, 30, 150, 10));
}

// A new selection is drawn in any direction, with both its ends in it, also from outside of the picture.
TEST(CropFrame, IsDrawnInAnyDirection) {
  CropFrame frame = Selected({});
  frame.DrawFrom({10, 20}, {19, 24});
  EXPECT_EQ(frame.rect(), QRect(10, 20, 10, 5));
  frame.DrawFrom({19, 24}, {10, 20});
  EXPECT_EQ(frame.rect(), QRect(10, 20, 10, 5));
  frame.DrawFrom({-50, 95}, {5, 500});
  EXPECT_EQ(frame.rect(), QRect(0, 95, 6, 5));
  frame.DrawFrom({5000, 5000}, {6000, 6000});
  EXPECT_EQ(frame.rect(), QRect(199, 99, 1, 1));
}

// Whatever is done to it in whatever order, the selection never leaves the picture.
TEST(CropFrame, NeverLeavesThePicture) {
  std::mt19937 random(7);
  const auto number = [&random](int least, int most) {
    return std::uniform_int_distribution(least, most)(random);
  };
  for (int round = 0; round < 200; ++round) {
    CropFrame frame;
    const QSize size(number(1, 300), number(1, 300));
    frame.SetPicture(size);
    for (int step = 0; step < 50; ++step) {
      const QPoint by(number(-400, 400), number(-400, 400));
      switch (number(0, 6)) {
        case 0:
          frame.Set(QRect(by, QSize(number(0, 400), number(0, 400))));
          break;
        case 1:
          frame.LockRatio(number(0, 1) == 1);
          break;
        case 2:
          frame.DrawFrom(by, by + QPoint(number(-300, 300), number(-300, 300)));
          break;
        case 3:
          frame.MoveBy(by);
          break;
        case 4:
          frame.SetWidth(by.x());
          break;
        case 5:
          frame.SetHeight(by.y());
          break;
        default:
          frame.Drag(static_cast<CropPart>(number(0, 9)), frame.rect(), by);
      }
      ASSERT_TRUE(frame.empty() || QRect(QPoint(0, 0), size).contains(frame.rect()))
          << frame.rect().right() << "," << frame.rect().bottom();
    }
  }
}

}  // namespace
}  // namespace quill::ui
