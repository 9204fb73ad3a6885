#pragma once
#include <QRect>
#include <QSize>

namespace quill::ui {

/// The parts of the frame that a pointer can take hold of.
enum class CropPart { None, Inside, Left, TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft };

/// The selected rectangle of a picture, in picture pixels: always inside the picture, at least one pixel wide
/// and high, or empty. Values in, values out; knows nothing of the screen.
class CropFrame {
 public:
  /// Takes another picture; the selection goes.
  void SetPicture(QSize size);
  QSize picture() const { return m_picture; }

  const QRect& rect() const { return m_rect; }
  bool empty() const { return m_rect.isEmpty(); }

  /// Selects what the rectangle has in common with the picture; nothing when that is empty. The ratio plays
  /// no part, but a locked one becomes that of the new rectangle.
  void Set(const QRect& rect);
  void SelectAll() { Set(QRect(QPoint(0, 0), m_picture)); }
  void Clear() { m_rect = QRect(); }

  /// Keeps the ratio of width to height from here on: the selection's, or without one the picture's.
  void LockRatio(bool locked);
  bool ratioLocked() const { return m_ratio > 0; }

  /// Moves the selection, as far as the picture reaches.
  void MoveBy(QPoint by);

  /// Moves the edges that belong to a part, seen from the rectangle `start` that the selection had when the
  /// pointer took hold of it. The opposite edges stay. `Inside` moves all of it.
  void Drag(CropPart part, const QRect& start, QPoint by);

  /// Selects from one pixel to another, both included, as a pointer draws it; they may lie outside.
  void DrawFrom(QPoint first, QPoint last);

  /// Gives the selection a width or height and keeps its top left corner; with a locked ratio the other
  /// follows. No more than the picture has there.
  void SetWidth(int width);
  void SetHeight(int height);

 private:
  /// The largest size not above `wanted` that has the locked ratio and fits into `room`.
  QSize Fitted(QSize wanted, QSize room, bool widthLeads) const;

  QSize m_picture;
  QRect m_rect;
  double m_ratio = 0;  ///< width by height; 0: free
};

/// The edges that a part moves: -1 left or top, 1 right or bottom, 0 none.
QPoint EdgesOf(CropPart part);

}  // namespace quill::ui
