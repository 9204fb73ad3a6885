#include "ui/tray.h"

#include <QApplication>
#include <QCursor>
#include <QPalette>

#include "ui/quill_icon.h"

namespace quill::ui {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsDark() {
  return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

}  // namespace

Tray::Tray(const shell::StringTable& strings, Handlers handlers)
    : m_menu(BuildActionMenu(strings, std::move(handlers.onAction))), m_icon(QuillIcon(IsDark())) {
  m_menu->addSeparator();
  QAction* practice = m_menu->addAction(ToQt(strings.Text("strPractice")));
  QObject::connect(practice, &QAction::triggered, practice,
                   [open = std::move(handlers.onPractice)] { open(); });
  QAction* quit = m_menu->addAction(ToQt(strings.Text("strQuit")));
  QObject::connect(quit, &QAction::triggered, quit, [leave = std::move(handlers.onQuit)] { leave(); });
  m_icon.setToolTip(ToQt(strings.Text("appTitle")));
  m_icon.setContextMenu(m_menu.get());
  // A left click opens the menu too: a tray with one meaning per icon needs no second button.
  QObject::connect(&m_icon, &QSystemTrayIcon::activated, m_menu.get(),
                   [this](QSystemTrayIcon::ActivationReason reason) {
                     if (reason == QSystemTrayIcon::Trigger) m_menu->popup(QCursor::pos());
                   });
}

}  // namespace quill::ui
