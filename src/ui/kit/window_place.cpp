#include "ui/kit/window_place.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QPointer>
#include <QScreen>

namespace quill::ui {

void CentreOnPointerScreen(QWidget& window) {
  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  const QRect room = screen->availableGeometry();
  constexpr QSize kFrame{16, 48};  // what the window manager adds is not known before the window is shown
  window.resize(window.size().boundedTo(room.size() - kFrame));
  QRect place(QPoint(), window.size());
  place.moveCenter(room.center());
  window.move(place.topLeft());
}

void BringToFront(QWidget& window) {
  if (window.isMinimized()) window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

void CloseAllWindows() {
  QList<QPointer<QDialog>> dialogs;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* dialog = qobject_cast<QDialog*>(window)) dialogs.append(dialog);
  }
  for (const QPointer<QDialog>& dialog : dialogs) {
    if (dialog) dialog->close();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace quill::ui
