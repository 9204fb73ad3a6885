#pragma once
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <functional>

namespace quill::ui_test {

/// The service where status items register, with a host that shows them. The interface and its names are
/// those of the desktops' StatusNotifierItem protocol.
class StatusWatcher final : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HasHost CONSTANT)
  Q_PROPERTY(int ProtocolVersion READ ProtocolVersion CONSTANT)
  Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ Items CONSTANT)

 public:
  explicit StatusWatcher(std::function<void(const QString& service)> onItem) : m_onItem(std::move(onItem)) {}

  /// Takes the service's name on the session bus; false when there is no bus or another has it.
  bool Register();

  bool HasHost() const { return true; }
  int ProtocolVersion() const { return 0; }
  QStringList Items() const { return m_items; }

 public Q_SLOTS:
  void RegisterStatusNotifierItem(const QString& service);
  void RegisterStatusNotifierHost(const QString&) {}

 Q_SIGNALS:
  void StatusNotifierItemRegistered(const QString& service);
  void StatusNotifierItemUnregistered(const QString& service);
  void StatusNotifierHostRegistered();

 private:
  std::function<void(const QString&)> m_onItem;
  QStringList m_items;
};

}  // namespace quill::ui_test
