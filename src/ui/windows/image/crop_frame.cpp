#include "ui/windows/image/crop_frame.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quill::ui {
namespace {

int AtLeastOne(double value) {
  return std::max(1, static_cast<int>(std::lround(value)));
}

/// One direction of a moved edge: where the range begins and how long it is wanted.
struct Range {
  int begin;
  int length;
  int room;  ///< from the edge that stays to the picture's border
};

Range MoveEdge(int edge, int begin, int length, int by, int whole) {
  if (edge < 0) {
    const int end = begin + length;
    return {begin, std::clamp(length - by, 1, end), end};
  }
  const int room = whole - begin;
  return {begin, edge > 0 ? std::clamp(length + by, 1, room) : length, room};
}

}  // namespace

QPoint EdgesOf(CropPart part) {
  switch (part) {
    case CropPart::Left:
      return {-1, 0};
    case CropPart::TopLeft:
      return {-1, -1};
    case CropPart::Top:
      return {0, -1};
    case CropPart::TopRight:
      return {1, -1};
    case CropPart::Right:
      return {1, 0};
    case CropPart::BottomRight:
      return {1, 1};
    case CropPart::Bottom:
      return {0, 1};
    case CropPart::BottomLeft:
      return {-1, 1};
    case CropPart::None:
    case CropPart::Inside:
      break;
  }
  return {0, 0};
}

void CropFrame::SetPicture(QSize size) {
  m_picture = size;
  m_rect = QRect();
  if (ratioLocked()) LockRatio(true);
}

void CropFrame::Set(const QRect& rect) {
  m_rect = rect.intersected(QRect(QPoint(0, 0), m_picture));
  if (m_rect.isEmpty()) m_rect = QRect();
  if (ratioLocked()) LockRatio(true);
}

void CropFrame::LockRatio(bool locked) {
  const QSize size = empty() ? m_picture : m_rect.size();
  m_ratio = locked && !size.isEmpty() ? double(size.width()) / size.height() : 0;
}

void CropFrame::MoveBy(QPoint by) {
  if (empty()) return;
  const int x = std::clamp(m_rect.x() + by.x(), 0, m_picture.width() - m_rect.width());
  const int y = std::clamp(m_rect.y() + by.y(), 0, m_picture.height() - m_rect.height());
  m_rect.moveTo(x, y);
}

QSize CropFrame::Fitted(QSize wanted, QSize room, bool widthLeads) const {
  if (!ratioLocked()) return wanted.boundedTo(room);
  double width = widthLeads ? wanted.width() : wanted.height() * m_ratio;
  width = std::min({width, double(room.width()), room.height() * m_ratio});
  return QSize(AtLeastOne(width), AtLeastOne(width / m_ratio)).boundedTo(room);
}

void CropFrame::Drag(CropPart part, const QRect& start, QPoint by) {
  if (start.isEmpty() || part == CropPart::None) return;
  if (part == CropPart::Inside) {
    m_rect = start;
    return MoveBy(by);
  }
  const QPoint edges = EdgesOf(part);
  const Range across = MoveEdge(edges.x(), start.x(), start.width(), by.x(), m_picture.width());
  const Range down = MoveEdge(edges.y(), start.y(), start.height(), by.y(), m_picture.height());
  const bool widthLeads = edges.y() == 0 || (edges.x() != 0 && across.length >= down.length * m_ratio);
  const QSize size = Fitted({across.length, down.length}, {across.room, down.room}, widthLeads);
  const int x = edges.x() < 0 ? start.x() + start.width() - size.width() : start.x();
  const int y = edges.y() < 0 ? start.y() + start.height() - size.height() : start.y();
  m_rect = QRect(QPoint(x, y), size);
}

void CropFrame::DrawFrom(QPoint first, QPoint last) {
  if (m_picture.isEmpty()) return;
  const auto inside = [this](QPoint point) {
    return QPoint(std::clamp(point.x(), 0, m_picture.width() - 1),
                  std::clamp(point.y(), 0, m_picture.height() - 1));
  };
  first = inside(first);
  last = inside(last);
  const bool toLeft = last.x() < first.x();
  const bool up = last.y() < first.y();
  const QSize room(toLeft ? first.x() + 1 : m_picture.width() - first.x(),
                   up ? first.y() + 1 : m_picture.height() - first.y());
  const QSize wanted(std::abs(last.x() - first.x()) + 1, std::abs(last.y() - first.y()) + 1);
  const QSize size = Fitted(wanted, room, wanted.width() >= wanted.height() * m_ratio);
  m_rect = QRect(QPoint(toLeft ? first.x() + 1 - size.width() : first.x(),
                        up ? first.y() + 1 - size.height() : first.y()),
                 size);
}

void CropFrame::SetWidth(int width) {
  if (empty()) return;
  const QSize room(m_picture.width() - m_rect.x(), m_picture.height() - m_rect.y());
  m_rect.setSize(Fitted({std::max(1, width), m_rect.height()}, room, true));
}

void CropFrame::SetHeight(int height) {
  if (empty()) return;
  const QSize room(m_picture.width() - m_rect.x(), m_picture.height() - m_rect.y());
  m_rect.setSize(Fitted({m_rect.width(), std::max(1, height)}, room, false));
}

}  // namespace quill::ui
