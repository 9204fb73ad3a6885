#include "status_watcher.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace quill::ui_test {

bool StatusWatcher::Register() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties |
                                QDBusConnection::ExportAllSignals) &&
         bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

void StatusWatcher::RegisterStatusNotifierItem(const QString& service) {
  // A program may give only its object's path; its own name is the service then.
  const QString name = service.startsWith('/') ? message().service() : service;
  m_items.append(name);
  m_onItem(name);
  Q_EMIT StatusNotifierItemRegistered(name);
}

}  // namespace quill::ui_test
