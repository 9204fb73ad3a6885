// The keyboard, the mouse and gestures on `PictureView`.
#include <QApplication>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

#include "ui/kit/arrow_keys.h"
#include "ui/windows/image/frame_painter.h"
#include "ui/windows/image/picture_view.h"

namespace quill::ui {
namespace {

constexpr double kWheelFactor = 1.25;  // for one notch
constexpr int kWheelNotch = 120;
constexpr int kLargeStep = 10;

QPoint PixelAt(QPointF picture) {
  return {static_cast<int>(std::floor(picture.x())), static_cast<int>(std::floor(picture.y()))};
}

}  // namespace

bool PictureView::ArrowPressed(QKeyEvent* event) {
  const QPoint direction = ArrowDirection(event->key());
  const Qt::KeyboardModifiers used =
      event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier);
  if (direction.isNull() || m_frame.empty() || (used & ~Qt::AltModifier) != 0) return false;
  const QPoint by = direction * ((event->modifiers() & Qt::ShiftModifier) != 0 ? kLargeStep : 1);
  Change([&](CropFrame& frame) {
    if (used == Qt::NoModifier) return frame.MoveBy(by);
    frame.Drag(by.x() != 0 ? CropPart::Right : CropPart::Bottom, frame.rect(), by);
  });
  return true;
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  if (ArrowPressed(event)) return event->accept();
  if (event->key() == Qt::Key_Space && !m_grip) {
    m_spaceHeld = true;
    if (!m_panFrom) viewport()->setCursor(Qt::OpenHandCursor);
    return event->accept();
  }
  QAbstractScrollArea::keyPressEvent(event);
}

void PictureView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
    return QAbstractScrollArea::keyReleaseEvent(event);
  }
  m_spaceHeld = false;
  UpdateCursor(viewport()->mapFromGlobal(QCursor::pos()));
}

void PictureView::focusOutEvent(QFocusEvent* event) {
  m_spaceHeld = false;  // its release goes elsewhere
  QAbstractScrollArea::focusOutEvent(event);
}

void PictureView::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0 || image().isNull()) {
    return QAbstractScrollArea::wheelEvent(event);
  }
  m_fits = false;
  const double notches = double(event->angleDelta().y()) / kWheelNotch;
  ZoomAt(m_zoom * std::pow(kWheelFactor, notches), event->position());
  event->accept();
}

bool PictureView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::NativeGesture) {
    if (TrackpadZoomed(static_cast<QNativeGestureEvent*>(event))) return true;
  }
  if (event->type() == QEvent::Gesture && Pinched(static_cast<QGestureEvent*>(event))) return true;
  return QAbstractScrollArea::viewportEvent(event);
}

bool PictureView::TrackpadZoomed(QNativeGestureEvent* event) {
  if (event->gestureType() != Qt::ZoomNativeGesture || image().isNull()) return false;
  m_trackpadZooms = true;
  m_fits = false;
  ZoomAt(m_zoom * (1 + event->value()), event->position());
  return true;
}

bool PictureView::Pinched(QGestureEvent* event) {
  const auto* pinch = static_cast<QPinchGesture*>(event->gesture(Qt::PinchGesture));
  if (pinch == nullptr || image().isNull()) return false;
  event->accept();
  if (m_trackpadZooms || (pinch->changeFlags() & QPinchGesture::ScaleFactorChanged) == 0) return true;
  m_fits = false;
  m_grip.reset();
  ZoomAt(m_zoom * pinch->scaleFactor(), viewport()->mapFromGlobal(pinch->centerPoint()));
  return true;
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  if (image().isNull() || m_grip || m_panFrom) return;
  const bool pans = event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_spaceHeld);
  if (pans) {
    m_panFrom = event->position();
    viewport()->setCursor(Qt::ClosedHandCursor);
  } else if (event->button() == Qt::LeftButton) {
    m_grip = Grip{PartAt(event->position()), m_frame.rect(), ToPicture(event->position())};
  }
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  if (m_panFrom) {
    const QPointF by = event->position() - *m_panFrom;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - qRound(by.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() - qRound(by.y()));
    m_panFrom = event->position();
  } else if (m_grip) {
    DragGrip(event->position());
  } else {
    UpdateCursor(event->position());
  }
}

void PictureView::DragGrip(QPointF at) {
  const QPointF away = at - ToViewport(m_grip->pressed);
  if (!m_grip->moved && away.manhattanLength() < QApplication::startDragDistance()) return;
  m_grip->moved = true;
  // What is drawn beyond the visible part brings the next part into view.
  const QRect seen = viewport()->rect();
  const auto beyond = [](double value, int last) { return value < 0 ? value : std::max(0.0, value - last); };
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(beyond(at.x(), seen.right())));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(beyond(at.y(), seen.bottom())));
  FollowGrip(at);
}

void PictureView::FollowGrip(QPointF at) {
  const QPointF here = ToPicture(at);
  const Grip grip = *m_grip;
  Change([&](CropFrame& frame) {
    if (grip.part == CropPart::None) return frame.DrawFrom(PixelAt(grip.pressed), PixelAt(here));
    const QPointF by = here - grip.pressed;
    frame.Drag(grip.part, grip.start, {qRound(by.x()), qRound(by.y())});
  });
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  if (m_panFrom) {
    m_panFrom.reset();
  } else if (m_grip && event->button() == Qt::LeftButton) {
    const bool clickedBeside = !m_grip->moved && m_grip->part == CropPart::None;
    m_grip.reset();
    if (clickedBeside) Change([](CropFrame& frame) { frame.Clear(); });
  }
  UpdateCursor(event->position());
}

void PictureView::UpdateCursor(QPointF at) {
  if (m_spaceHeld) return viewport()->setCursor(Qt::OpenHandCursor);
  const bool empty = image().isNull();
  viewport()->setCursor(empty ? Qt::ArrowCursor : CropCursor(PartAt(at)));
}

}  // namespace quill::ui
