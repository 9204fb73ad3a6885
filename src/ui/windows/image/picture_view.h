#pragma once
#include <QAbstractScrollArea>
#include <functional>
#include <optional>

#include "ui/windows/image/crop_frame.h"
#include "ui/windows/image/picture_loader.h"

class QGestureEvent;
class QNativeGestureEvent;

namespace quill::ui {

/// A picture that is looked at and cut: zoomed, moved, with a selection on it. At a zoom of 1 one pixel of
/// the picture is one pixel of the screen, whatever the display's scale.
class PictureView final : public QAbstractScrollArea {
 public:
  static constexpr double kLeastZoom = 0.02;
  static constexpr double kMostZoom = 32;

  explicit PictureView(QWidget* parent = nullptr);

  /// Shows a picture: whole in the window when it is larger, else pixel by pixel.
  void Show(LoadedPicture picture);
  const QImage& image() const { return m_picture.image; }

  double zoom() const { return m_zoom; }
  /// Zooms around the middle of what is visible.
  void SetZoom(double zoom);
  /// The next of the usual steps.
  void ZoomIn();
  void ZoomOut();
  /// As large as the window takes, also while the window changes its size, until another zoom is chosen.
  void Fit();

  const CropFrame& frame() const { return m_frame; }
  /// Changes the selection through a function and shows the result.
  void Change(const std::function<void(CropFrame&)>& change);
  /// Drops the selection, also one that is being drawn.
  void Unselect();
  /// What the user has selected; the whole picture when that is nothing.
  QImage Selected() const;

  /// Called after the zoom or the selection has changed.
  void WhenChanged(std::function<void()> changed) { m_changed = std::move(changed); }

  /// Where a picture pixel's corner lies in the viewport, and the other way round.
  QPointF ToViewport(QPointF picture) const;
  QPointF ToPicture(QPointF viewport) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  /// What the pressed button does.
  struct Grip {
    CropPart part = CropPart::None;  ///< `None`: a new selection is drawn
    QRect start;
    QPointF pressed;  ///< in picture pixels
    bool moved = false;
  };

  double Scale() const { return m_zoom / devicePixelRatioF(); }
  QPointF Origin() const;
  QRectF FrameOnScreen() const;
  double FittingZoom() const;
  void ZoomAt(double zoom, QPointF viewport);
  void ApplyZoom(double zoom);
  void UpdateScrollBars();
  void UpdateCursor(QPointF at);
  CropPart PartAt(QPointF at) const;
  bool ArrowPressed(QKeyEvent* event);
  bool Pinched(QGestureEvent* event);
  bool TrackpadZoomed(QNativeGestureEvent* event);
  void DragGrip(QPointF at);
  void FollowGrip(QPointF at);
  void Changed();
  void PaintPicture(QPainter& painter, const QRectF& exposed) const;
  void PaintFrame(QPainter& painter) const;

  LoadedPicture m_picture;
  CropFrame m_frame;
  double m_zoom = 1;
  bool m_fits = false;
  bool m_spaceHeld = false;
  bool m_trackpadZooms = false;  ///< its zoom comes as events of its own, and once more as a pinch
  std::optional<Grip> m_grip;
  std::optional<QPointF> m_panFrom;
  std::function<void()> m_changed;
};

}  // namespace quill::ui
