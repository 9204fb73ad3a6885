#pragma once
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "shell/string_table.h"
#include "ui/windows/ruler_scale.h"

class QMenu;

namespace quill::ui {

/// How the next ruler looks: as the last one was set.
struct RulerMemory {
  RulerUnit unit = RulerUnit::Pixels;
  Qt::Orientation orientation = Qt::Horizontal;
  double opacity = 0.9;
  int opened = 0;  ///< rulers so far: each one opens a little beside the one before
};

/// A ruler on the screen, above all windows. It is dragged with the mouse or moved with the arrow keys (one
/// pixel, with Shift ten), resized at its edges or with Control and the arrow keys; V or a double click turns
/// it, U changes the unit, the context menu has the rest, Escape closes it. A line follows the mouse pointer,
/// also where the pointer is beside the ruler. Deletes itself when it is closed.
class MWinRuler final : public QWidget {
 public:
  static constexpr int kLeastLength = 120;
  static constexpr int kLeastBreadth = 44;
  static constexpr int kMostBreadth = 240;

  MWinRuler(const shell::StringTable& strings, std::shared_ptr<RulerMemory> memory);

  RulerUnit unit() const { return m_unit; }
  Qt::Orientation orientation() const { return m_orientation; }

  void SetUnit(RulerUnit unit);
  /// Turns the ruler around its beginning.
  void SetOrientation(Qt::Orientation orientation);
  void SetOpacity(double opacity);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  /// A drag of the whole ruler, or of the edges that the pointer took hold of.
  struct Grip {
    Qt::Edges edges;
    QPoint pressed;
    QRect start;
  };

  RulerDisplay Display() const;
  bool IsHorizontal() const { return m_orientation == Qt::Horizontal; }
  Qt::Edges EdgesAt(QPoint at) const;
  void TakeGeometry(QRect wanted, Qt::Edges moved);
  void FollowPointer();
  void PaintTicks(QPainter& painter) const;
  void PaintPointer(QPainter& painter) const;
  void Describe();
  QMenu* MakeMenu();
  QString Text(std::string_view key) const;

  const shell::StringTable& m_strings;
  std::shared_ptr<RulerMemory> m_memory;
  RulerUnit m_unit;
  Qt::Orientation m_orientation;
  double m_opacity;
  std::optional<Grip> m_grip;
  std::optional<double> m_pointer;  ///< the pointer's place along the ruler
};

}  // namespace quill::ui
