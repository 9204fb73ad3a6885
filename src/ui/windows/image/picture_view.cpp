#include "ui/windows/image/picture_view.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/windows/image/frame_painter.h"

namespace quill::ui {
namespace {

constexpr std::array kZoomSteps = {0.02, 0.05, 0.1, 0.15, 0.2, 0.25, 0.33, 0.5,  0.67, 0.75, 1.0,
                                   1.25, 1.5,  2.0, 3.0,  4.0, 6.0,  8.0,  12.0, 16.0, 24.0, 32.0};
constexpr double kPixelsVisible = 2;  // from this zoom on pixels are drawn as squares
constexpr int kCheckerSquare = 8;

/// A tile of the pattern that stands behind transparent pixels.
QPixmap Checkers(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  const auto mix = [](int a, int b) { return (a * 85 + b * 15) / 100; };
  QPixmap tile(2 * kCheckerSquare, 2 * kCheckerSquare);
  tile.fill(base);
  QPainter painter(&tile);
  const QColor dark(mix(base.red(), text.red()), mix(base.green(), text.green()),
                    mix(base.blue(), text.blue()));
  painter.fillRect(0, 0, kCheckerSquare, kCheckerSquare, dark);
  painter.fillRect(kCheckerSquare, kCheckerSquare, kCheckerSquare, kCheckerSquare, dark);
  return tile;
}

}  // namespace

PictureView::PictureView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->grabGesture(Qt::PinchGesture);
  // A picture is not mirrored, and neither is the way in which it is moved.
  setLayoutDirection(Qt::LeftToRight);
}

void PictureView::Show(LoadedPicture picture) {
  m_picture = std::move(picture);
  m_frame.SetPicture(image().size());
  m_grip.reset();
  m_zoom = 1;
  m_fits = FittingZoom() < 1;
  ApplyZoom(m_fits ? FittingZoom() : 1);
}

void PictureView::SetZoom(double zoom) {
  m_fits = false;
  ZoomAt(zoom, QRectF(viewport()->rect()).center());
}

void PictureView::ZoomIn() {
  const auto* next = std::upper_bound(kZoomSteps.begin(), kZoomSteps.end(), m_zoom * 1.01);
  SetZoom(next == kZoomSteps.end() ? kMostZoom : *next);
}

void PictureView::ZoomOut() {
  const auto* next = std::lower_bound(kZoomSteps.begin(), kZoomSteps.end(), m_zoom * 0.99);
  SetZoom(next == kZoomSteps.begin() ? kLeastZoom : *std::prev(next));
}

void PictureView::Fit() {
  m_fits = true;
  ApplyZoom(FittingZoom());
}

double PictureView::FittingZoom() const {
  if (image().isNull()) return 1;
  const QSizeF room = QSizeF(maximumViewportSize()) * devicePixelRatioF();
  const double zoom = std::min(room.width() / image().width(), room.height() / image().height());
  return std::clamp(zoom, kLeastZoom, kMostZoom);
}

void PictureView::ZoomAt(double zoom, QPointF at) {
  const QPointF kept = ToPicture(at);
  ApplyZoom(std::clamp(zoom, kLeastZoom, kMostZoom));
  const QPointF away = ToViewport(kept) - at;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(away.x()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(away.y()));
}

void PictureView::ApplyZoom(double zoom) {
  m_zoom = zoom;
  UpdateScrollBars();
  Changed();
}

void PictureView::UpdateScrollBars() {
  const QSizeF content = QSizeF(image().size()) * Scale();
  const QSize room = viewport()->size();
  horizontalScrollBar()->setRange(0, std::max(0, int(std::ceil(content.width() - 0.01)) - room.width()));
  verticalScrollBar()->setRange(0, std::max(0, int(std::ceil(content.height() - 0.01)) - room.height()));
  for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    bar->setPageStep(bar == horizontalScrollBar() ? room.width() : room.height());
    bar->setSingleStep(20);
  }
}

QPointF PictureView::Origin() const {
  const QSizeF content = QSizeF(image().size()) * Scale();
  const auto begin = [this](double room, double length, const QScrollBar* bar) {
    const double at = length < room ? (room - length) / 2 : -bar->value();
    return std::round(at * devicePixelRatioF()) / devicePixelRatioF();  // on a pixel of the screen
  };
  return {begin(viewport()->width(), content.width(), horizontalScrollBar()),
          begin(viewport()->height(), content.height(), verticalScrollBar())};
}

QPointF PictureView::ToViewport(QPointF picture) const {
  return Origin() + picture * Scale();
}

QPointF PictureView::ToPicture(QPointF viewport) const {
  return (viewport - Origin()) / Scale();
}

QRectF PictureView::FrameOnScreen() const {
  const QRect& rect = m_frame.rect();
  return {ToViewport(rect.topLeft()), ToViewport(rect.bottomRight() + QPoint(1, 1))};
}

void PictureView::Change(const std::function<void(CropFrame&)>& change) {
  change(m_frame);
  Changed();
}

void PictureView::Unselect() {
  m_grip.reset();
  Change([](CropFrame& frame) { frame.Clear(); });
}

QImage PictureView::Selected() const {
  return m_frame.empty() ? image() : image().copy(m_frame.rect());
}

void PictureView::Changed() {
  viewport()->update();
  if (m_changed) m_changed();
}

void PictureView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (m_fits) return ApplyZoom(FittingZoom());
  UpdateScrollBars();
}

void PictureView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().color(QPalette::Window));
  if (image().isNull()) return;
  PaintPicture(painter, event->rect());
  if (!m_frame.empty()) PaintFrame(painter);
}

void PictureView::PaintPicture(QPainter& painter, const QRectF& exposed) const {
  const QRectF whole(ToViewport({0, 0}), QSizeF(image().size()) * Scale());
  const QRectF target = whole.intersected(exposed.adjusted(-2, -2, 2, 2));
  if (target.isEmpty()) return;
  if (image().hasAlphaChannel()) {
    painter.setBrushOrigin(whole.topLeft());
    painter.fillRect(target, QBrush(Checkers(palette())));
  }
  // The smallest level that still has a pixel for each of the screen's.
  std::size_t level = 0;
  for (double zoom = m_zoom * 2; level + 1 < m_picture.levels.size() && zoom <= 1; zoom *= 2) ++level;
  const QImage& drawn = m_picture.levels[level];
  const double across = drawn.width() / whole.width();
  const double down = drawn.height() / whole.height();
  const QRectF source((target.x() - whole.x()) * across, (target.y() - whole.y()) * down,
                      target.width() * across, target.height() * down);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, m_zoom < kPixelsVisible);
  painter.drawImage(target, drawn, source);
}

void PictureView::PaintFrame(QPainter& painter) const {
  const QRectF bounds =
      QRectF(ToViewport({0, 0}), QSizeF(image().size()) * Scale()).intersected(QRectF(viewport()->rect()));
  PaintCropFrame(painter, FrameOnScreen(), bounds, m_frame.rect().size());
}

CropPart PictureView::PartAt(QPointF at) const {
  return m_frame.empty() ? CropPart::None : CropPartAt(FrameOnScreen(), at);
}

}  // namespace quill::ui
