#include "ui/kit/color_field.h"

#include <QKeyEvent>
#include <QPainter>

#include "ui/kit/color_popover.h"

namespace quill::ui {
namespace {

constexpr int kFieldSize = 24;
constexpr double kRounding = 3;

}  // namespace

void PaintColor(QPainter& painter, const QRectF& where, const QColor& color, const QPalette& palette) {
  QColor border = palette.color(QPalette::WindowText);
  border.setAlphaF(0.45f);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(border, 1));
  painter.setBrush(color);
  painter.drawRoundedRect(where, kRounding, kRounding);
}

ColorField::ColorField(const QColor& color, bool current, QWidget* parent)
    : QAbstractButton(parent), m_color(color) {
  setCheckable(current);
  setChecked(current);
  setAccessibleName(ColorHex(color));
  setToolTip(ColorHex(color));
  setFocusPolicy(Qt::ClickFocus);  // Tab stops once in the palette, arrow keys go on from there
}

QSize ColorField::sizeHint() const {
  return {kFieldSize, kFieldSize};
}

void ColorField::enterEvent(QEnterEvent*) {
  update();
}

void ColorField::leaveEvent(QEvent*) {
  update();
}

void ColorField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) return QAbstractButton::keyPressEvent(event);
  event->ignore();
}

void ColorField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintColor(painter, QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), m_color, palette());
  painter.setBrush(Qt::NoBrush);
  if (hasFocus() || isChecked()) {
    painter.setPen(
        QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText), hasFocus() ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRounding + 2, kRounding + 2);
  } else if (underMouse()) {
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRounding + 2, kRounding + 2);
  }
}

}  // namespace quill::ui
