#pragma once
#include <QPoint>

namespace quill::ui {

/// The way that an arrow key points, one step; (0, 0) for other keys.
inline QPoint ArrowDirection(int key) {
  switch (key) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    case Qt::Key_Down:
      return {0, 1};
    default:
      return {0, 0};
  }
}

}  // namespace quill::ui
