#include "ui/appearance.h"

#include <QApplication>
#include <QColor>
#include <utility>

#include "ui/kit/dark.h"

namespace quill::ui {
QPalette DarkPalette() {
  const QColor window(0x2b, 0x2b, 0x2e), base(0x1f, 0x1f, 0x22), text(0xec, 0xec, 0xee),
      grey(0x88, 0x88, 0x8c);
  QPalette palette(text, window, window.lighter(170), window.darker(150), window.lighter(130), text,
                   Qt::white, base, window);
  // Fusion draws buttons and the pages of tabs a fifth lighter than this.
  palette.setColor(QPalette::Button, QColor(0x32, 0x32, 0x36));
  palette.setColor(QPalette::AlternateBase, QColor(0x28, 0x28, 0x2b));
  palette.setColor(QPalette::Highlight, QColor(0x8a, 0x5a, 0xb5));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0xc0, 0x9c, 0xf0));
  palette.setColor(QPalette::LinkVisited, QColor(0xa8, 0x90, 0xc8));
  palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x3e));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, grey);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, grey);
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x4a, 0x4a, 0x4e));
  return palette;
}

Appearance::Appearance(std::function<void(bool dark)> atStart)
    : m_atStart(std::move(atStart)),
      m_own(QApplication::palette()),
      m_portal([this](platform::qt::ColorScheme scheme) { Use(scheme); }) {}

void Appearance::Use(platform::qt::ColorScheme scheme) {
  const bool dark = scheme == platform::qt::ColorScheme::Dark || IsDark(m_own);
  QApplication::setPalette(dark && !IsDark(m_own) ? DarkPalette() : m_own);
  if (m_atStart) std::exchange(m_atStart, nullptr)(dark);
}

}  // namespace quill::ui
