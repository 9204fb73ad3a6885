// The floor that quillmenu is measured against: the shortest honest Qt program with a tray icon and a menu of
// seventy items, built with the same flags.
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QSystemTrayIcon>
#include <QTimer>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QPixmap picture(22, 22);
  picture.fill(Qt::transparent);
  QPainter(&picture).drawEllipse(3, 3, 16, 16);
  QSystemTrayIcon tray{QIcon(picture)};
  QMenu menu;
  for (int i = 0; i < 70; ++i) menu.addAction(QStringLiteral("Item %1").arg(i));
  tray.setContextMenu(&menu);
  tray.show();
  if (app.arguments().contains(QStringLiteral("--exit-when-ready"))) {
    auto* ready = new QTimer(&app);
    QObject::connect(ready, &QTimer::timeout, &app, [&] {
      if (tray.geometry().isValid()) QApplication::quit();
    });
    ready->start(1);
  }
  return QApplication::exec();
}
