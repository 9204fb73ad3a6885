#include <QColorDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

#include "ui/kit/color_field.h"
#include "ui/kit/color_popover.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {

ColorButton::ColorButton(const shell::StringTable& strings, const QString& name, QWidget* parent)
    : QToolButton(parent), m_strings(strings), m_name(name) {
  setFocusPolicy(Qt::StrongFocus);
  SetColor(m_color);
  connect(this, &QToolButton::clicked, this, &ColorButton::OpenPopover);
}

void ColorButton::SetColor(const QColor& color) {
  if (!color.isValid()) return;
  m_color = color;
  const QString words = ToQt(m_strings.Format("strColorOf", {FromQt(m_name), FromQt(ColorHex(color))}));
  setAccessibleName(words);
  setToolTip(words);
  update();
}

void ColorButton::SetRecent(std::vector<QColor> colors) {
  m_recent = std::move(colors);
  if (m_recent.size() > kPaletteColumns) m_recent.resize(kPaletteColumns);
}

QSize ColorButton::sizeHint() const {
  const int height = QToolButton::sizeHint().height();
  return {height * 2, height};
}

void ColorButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionToolButton option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ToolButton, option);
  QColor shown = m_color;
  if (!isEnabled()) shown.setAlphaF(0.4f);
  PaintColor(painter, QRectF(rect()).adjusted(5.5, 5.5, -5.5, -5.5), shown, palette());
}

void ColorButton::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) return click();
  QToolButton::keyPressEvent(event);
}

void ColorButton::OpenPopover() {
  if (m_popover && m_popover->isVisible()) return;
  m_popover = new ColorPopover(m_strings, m_color, m_recent, this);
  connect(m_popover, &ColorPopover::Chosen, this, &ColorButton::Choose);
  connect(m_popover, &ColorPopover::MoreWanted, this, &ColorButton::OpenDialog);
  m_popover->ShowAt(*this);
}

void ColorButton::OpenDialog() {
  auto* dialog = new QColorDialog(m_color, window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(m_name);
  connect(dialog, &QColorDialog::colorSelected, this, &ColorButton::Choose);
  dialog->open();
}

void ColorButton::Choose(const QColor& color) {
  if (!color.isValid()) return;
  std::erase_if(m_recent, [&](const QColor& other) { return other.rgb() == color.rgb(); });
  m_recent.insert(m_recent.begin(), color);
  SetRecent(std::move(m_recent));
  if (color.rgb() == m_color.rgb()) return;
  SetColor(color);
  emit ColorChanged(m_color);
}

}  // namespace quill::ui
