#pragma once
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <chrono>
#include <memory>
#include <optional>

#include "platform/hot_keys.h"
#include "platform/qt/portal_request.h"

namespace quill::platform::qt {

/// A key as the desktop's "shortcuts" specification (freedesktop.org) writes it: "CTRL+ALT+SHIFT+d".
std::string PortalTrigger(const KeyCombination& keys);

/// System-wide keys through the desktop portal (org.freedesktop.portal.GlobalShortcuts), for sessions in
/// which no program can take keys by itself. The keys of a set are only proposed: the desktop may ask the
/// user, who may choose others, now or later.
///
/// No call waits, and nothing touches the bus before `Bind`. When there is no portal, or it does not answer
/// in time, every key is `NotSupported`; when the user does not allow them, `Refused`; when the desktop takes
/// them away later, `SystemError`. A portal that is started anew is asked again.
class PortalHotKeys final : public QObject, public HotKeyRegistrar {
  Q_OBJECT
 public:
  struct Options {
    /// Asked at the first `Bind`. Qt's own connection by default: the tray icon has opened it.
    std::function<QDBusConnection()> bus = [] { return QDBusConnection::sessionBus(); };
    /// The name of the program's .desktop file, by which the desktop remembers the user's choice; may be
    /// empty.
    QString applicationId = {};
    /// Until the portal has made a session. The question to the user comes after that and has no limit.
    std::chrono::milliseconds patience = std::chrono::seconds(3);
  };

  explicit PortalHotKeys(Options options);
  ~PortalHotKeys() override;

  void OnPressed(std::function<void(std::uint32_t identifier)> handler) override;
  /// Closes the session of the keys before. `report` is called from the event loop, for an empty set at once.
  void Bind(std::vector<HotKey> keys, Report report) override;

 private slots:
  void OnActivated(const QDBusObjectPath& session, const QString& id);
  void OnShortcutsChanged(const QDBusMessage& message);
  void OnSessionClosed();
  void OnOwnerChanged(const QString& name, const QString& before, const QString& after);

 private:
  void Connect();
  void Start();
  void MakeSession();
  void BindShortcuts();
  void OnBound(const PortalAnswer& answer);
  void ReportShortcuts(const QVariant& shortcuts);
  void ReportAll(HotKeyProblem problem, const std::string& detail);
  void CloseSession();
  void Ask(const QString& method, QVariantList arguments, QVariantMap options, PortalRequest::Done done);

  Options m_options;
  std::optional<QDBusConnection> m_bus;
  std::function<void(std::uint32_t)> m_handler;
  Report m_report;
  std::vector<HotKey> m_keys;
  PortalRequest::Owned m_request;
  std::unique_ptr<QObject> m_start;  ///< goes when the start is not wanted any more
  QString m_session;                 ///< its object path; empty for none
  bool m_ownerGone = false;
  QTimer m_patience;
};

}  // namespace quill::platform::qt
