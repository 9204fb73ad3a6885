#pragma once
#include <QPainter>
#include <QRectF>

#include "ui/windows/image/crop_frame.h"

namespace quill::ui {

/// How far from a handle's middle, in pixels of the window, the pointer still takes hold of it.
inline constexpr double kHandleReach = 7;

/// Darkens what is not selected, draws the frame with its eight handles, and writes its size in picture
/// pixels beside it. `frame` and `bounds` are in window pixels.
void PaintCropFrame(QPainter& painter, const QRectF& frame, const QRectF& bounds, QSize pixels);

/// The part of the frame under the pointer. Corners come before edges, edges before the inside.
CropPart CropPartAt(const QRectF& frame, QPointF at);

/// The pointer's shape over a part.
Qt::CursorShape CropCursor(CropPart part);

}  // namespace quill::ui
