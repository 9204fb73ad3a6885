#include "ui/windows/image/frame_painter.h"

#include <QPainterPath>
#include <array>
#include <cmath>

namespace quill::ui {
namespace {

constexpr double kHandleSize = 8;
constexpr double kRoomForEdgeHandles = 32;  // a shorter side shows its corners only

constexpr std::array kHandles = {CropPart::TopLeft,    CropPart::TopRight, CropPart::BottomRight,
                                 CropPart::BottomLeft, CropPart::Top,      CropPart::Right,
                                 CropPart::Bottom,     CropPart::Left};

QPointF HandlePlace(const QRectF& frame, CropPart part) {
  const QPoint edges = EdgesOf(part);
  return {frame.center().x() + edges.x() * frame.width() / 2,
          frame.center().y() + edges.y() * frame.height() / 2};
}

bool IsShown(const QRectF& frame, CropPart part) {
  const QPoint edges = EdgesOf(part);
  if (edges.x() == 0) return frame.width() >= kRoomForEdgeHandles;
  if (edges.y() == 0) return frame.height() >= kRoomForEdgeHandles;
  return true;
}

void PaintSize(QPainter& painter, const QRectF& frame, const QRectF& bounds, QSize pixels) {
  // Width comes before height in every language.
  painter.setLayoutDirection(Qt::LeftToRight);
  const QString text = QStringLiteral("%1 × %2").arg(pixels.width()).arg(pixels.height());
  QRectF box = painter.fontMetrics().boundingRect(text).marginsAdded({6, 3, 6, 3});
  box.moveTopLeft(frame.bottomLeft() + QPointF(0, 8));
  if (box.bottom() > bounds.bottom()) box.moveBottom(std::min(frame.bottom(), bounds.bottom()) - 8);
  if (box.right() > bounds.right()) box.moveRight(bounds.right());
  if (box.left() < bounds.left()) box.moveLeft(bounds.left());
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 190));
  painter.drawRoundedRect(box, 4, 4);
  painter.setPen(Qt::white);
  painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace

void PaintCropFrame(QPainter& painter, const QRectF& frame, const QRectF& bounds, QSize pixels) {
  QPainterPath outside;
  outside.addRect(bounds);
  outside.addRect(frame);
  painter.fillPath(outside, QColor(0, 0, 0, 110));

  // White on black is seen on any picture.
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::black, 1));
  painter.drawRect(frame);
  QPen dashes(Qt::white, 1);
  dashes.setDashPattern({4, 4});
  painter.setPen(dashes);
  painter.drawRect(frame);

  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 1));
  painter.setBrush(Qt::white);
  for (const CropPart part : kHandles) {
    if (!IsShown(frame, part)) continue;
    QRectF handle(0, 0, kHandleSize, kHandleSize);
    handle.moveCenter(HandlePlace(frame, part));
    painter.drawRect(handle);
  }
  PaintSize(painter, frame, bounds, pixels);
}

CropPart CropPartAt(const QRectF& frame, QPointF at) {
  for (const CropPart part : kHandles) {
    const QPointF away = at - HandlePlace(frame, part);
    if (IsShown(frame, part) && std::abs(away.x()) <= kHandleReach && std::abs(away.y()) <= kHandleReach) {
      // Handles reach over a small frame from outside only: its inside must stay there to be moved.
      const bool small = frame.width() < 4 * kHandleReach || frame.height() < 4 * kHandleReach;
      if (!small || !frame.contains(at)) return part;
    }
  }
  return frame.contains(at) ? CropPart::Inside : CropPart::None;
}

Qt::CursorShape CropCursor(CropPart part) {
  switch (part) {
    case CropPart::Inside:
      return Qt::SizeAllCursor;
    case CropPart::Left:
    case CropPart::Right:
      return Qt::SizeHorCursor;
    case CropPart::Top:
    case CropPart::Bottom:
      return Qt::SizeVerCursor;
    case CropPart::TopLeft:
    case CropPart::BottomRight:
      return Qt::SizeFDiagCursor;
    case CropPart::TopRight:
    case CropPart::BottomLeft:
      return Qt::SizeBDiagCursor;
    case CropPart::None:
      break;
  }
  return Qt::CrossCursor;
}

}  // namespace quill::ui
