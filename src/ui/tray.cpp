#include "ui/tray.h"

#include <QApplication>
#include <QCursor>

#include "ui/kit/dark.h"
#include "ui/kit/qt_text.h"
#include "ui/quill_icon.h"

namespace quill::ui {
namespace {

// Desktops start their tray and their programs at the same time; a tray that comes later is still found.
constexpr int kLongestWaitForTrayMs = 3000;
constexpr int kLookAgainMs = 2000;

}  // namespace

Tray::Tray(const shell::StringTable& strings, Handlers handlers)
    : m_strings(strings), m_handlers(std::move(handlers)), m_actions(strings, m_handlers.onAction) {
  m_icon.setIcon(QuillIcon(IsDark(QApplication::palette())));
  m_icon.setContextMenu(&menu());
  QObject::connect(&menu(), &QMenu::aboutToShow, &menu(), [this] { m_handlers.onAboutToShow(); });
  // A left click opens the menu too (macOS does that by itself): a tray with one meaning per icon needs no
  // second button. Who closes the menu by a key and clicks again at once has double-clicked, as far as the
  // system sees it.
  QObject::connect(
      &m_icon, &QSystemTrayIcon::activated, &menu(), [this](QSystemTrayIcon::ActivationReason reason) {
        const bool clicked = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
        if (clicked && QGuiApplication::platformName() != QStringLiteral("cocoa")) {
          menu().popup(QCursor::pos());
        }
      });
  QObject::connect(&m_lookForTray, &QTimer::timeout, &menu(), [this] { LookForTray(); });
  m_icon.setToolTip(ToQt(m_strings.Text("appTitle")));
}

void Tray::Show() {
  m_icon.show();
  m_lookForTray.start(kLongestWaitForTrayMs);
}

void Tray::LookForTray() {
  if (QSystemTrayIcon::isSystemTrayAvailable()) {
    m_lookForTray.stop();
    m_window.reset();
    return;
  }
  m_lookForTray.start(kLookAgainMs);
  if (m_window != nullptr) return;
  m_window = std::make_unique<MenuWindow>(m_strings, menu(), m_handlers.onFind);
  m_window->show();
}

bool Tray::PopsUpAnywhere() const {
  // A Wayland desktop places a menu only beside a window of the program's own.
  return QGuiApplication::platformName() != QStringLiteral("wayland");
}

void Tray::ShowMenu() {
  if (m_window == nullptr && PopsUpAnywhere()) {
    return menu().popup(InPlace() ? m_icon.geometry().center() : QCursor::pos());
  }
  if (m_window == nullptr) {
    m_window = std::make_unique<MenuWindow>(m_strings, menu(), m_handlers.onFind);
  }
  m_window->ShowMenu();
}

void Tray::Notify(const std::string& title, const std::string& text) {
  if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages()) return;
  m_icon.showMessage(ToQt(title), ToQt(text), QSystemTrayIcon::Warning);
}

void Tray::Retranslate() {
  m_actions.Retranslate();
  m_icon.setToolTip(ToQt(m_strings.Text("appTitle")));
  if (m_window != nullptr) m_window->Retranslate();
}

void Tray::UseDarkIcon(bool dark) {
  m_icon.setIcon(QuillIcon(dark));
}

}  // namespace quill::ui
