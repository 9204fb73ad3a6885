// A desktop's status area without pictures: prints each item that registers and does what standard input
// says: "title", "tooltip", "activate", "about-to-show", "layout", "choose GROUP/ENTRY". Each is answered by
// lines that end with "done". Ends with its standard input.
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <memory>

#include "status_item.h"
#include "status_watcher.h"

namespace {

using quill::ui_test::StatusItem;

void Print(const QString& line) {
  std::puts(line.toUtf8().constData());
  std::fflush(stdout);
}

void Obey(StatusItem& item, const QString& order) {
  const QString choose = QStringLiteral("choose ");
  if (order == QStringLiteral("title")) {
    Print(item.Title());
  } else if (order == QStringLiteral("tooltip")) {
    Print(item.ToolTip());
  } else if (order == QStringLiteral("activate")) {
    item.Activate();
  } else if (order == QStringLiteral("about-to-show")) {
    item.AnnounceMenu();
  } else if (order == QStringLiteral("layout")) {
    for (const QString& line : item.Layout()) Print(line);
  } else if (order.startsWith(choose) && !item.Choose(order.mid(choose.size()))) {
    Print(QStringLiteral("no such entry"));
  }
  Print(QStringLiteral("done"));
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  std::unique_ptr<StatusItem> item;
  quill::ui_test::StatusWatcher watcher([&item](const QString& service) {
    item = std::make_unique<StatusItem>(service);
    Print(QStringLiteral("item ") + service);
  });
  if (!watcher.Register()) return 1;
  Print(QStringLiteral("ready"));
  QByteArray partial;
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, [&] {
    char buffer[4096];
    const ssize_t got = read(STDIN_FILENO, buffer, sizeof buffer);
    if (got <= 0) return QCoreApplication::quit();
    partial.append(buffer, got);
    for (qsizetype end = 0; (end = partial.indexOf('\n')) >= 0; partial.remove(0, end + 1)) {
      if (item != nullptr) Obey(*item, QString::fromUtf8(partial.left(end)));
    }
  });
  return QCoreApplication::exec();
}
