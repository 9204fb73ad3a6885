#include "ui/appearance.h"

#include <QApplication>
#include <QColor>

namespace quill::ui {
namespace {

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

}  // namespace

QPalette DarkPalette() {
  const QColor window(0x2b, 0x2b, 0x2e), base(0x1f, 0x1f, 0x22), text(0xec, 0xec, 0xee),
      grey(0x88, 0x88, 0x8c);
  QPalette palette(text, window, window.lighter(170), window.darker(150), window.lighter(130), text,
                   Qt::white, base, window);
  palette.setColor(QPalette::Button, QColor(0x3a, 0x3a, 0x3e));
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

Appearance::Appearance()
    : m_own(QApplication::palette()), m_portal([this](platform::qt::ColorScheme scheme) { Use(scheme); }) {}

void Appearance::Use(platform::qt::ColorScheme scheme) {
  const bool wantsDark = scheme == platform::qt::ColorScheme::Dark && !IsDark(m_own);
  QApplication::setPalette(wantsDark ? DarkPalette() : m_own);
}

}  // namespace quill::ui
