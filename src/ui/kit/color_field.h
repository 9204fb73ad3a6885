#pragma once
#include <QAbstractButton>
#include <QColor>

class QPainter;

namespace quill::ui {

/// Paints a colour with a border that is seen on light and on dark windows.
void PaintColor(QPainter& painter, const QRectF& where, const QColor& color, const QPalette& palette);

/// One colour of a palette. Its accessible name is the colour in hex.
class ColorField final : public QAbstractButton {
 public:
  ColorField(const QColor& color, bool current, QWidget* parent);

  const QColor& color() const { return m_color; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  /// Arrow keys are the palette's: a button of its own accord would go to the next one in the tab order.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor m_color;
};

}  // namespace quill::ui
