#pragma once
#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <functional>
#include <optional>

namespace quill::platform::qt {

/// What the user has chosen for the whole desktop.
enum class ColorScheme { NoPreference, Dark, Light };

/// Follows the desktop's choice between dark and light through the desktop portal
/// (org.freedesktop.portal.Settings, "org.freedesktop.appearance" "color-scheme"). No call waits.
class PortalAppearance final : public QObject {
  Q_OBJECT
 public:
  /// `handler` is told the choice when it is known and whenever it changes, from the event loop; never where
  /// there is no portal.
  explicit PortalAppearance(std::function<void(ColorScheme)> handler);

  /// Begins to follow. By default on Qt's own connection, which the tray icon has opened.
  void Start(const QDBusConnection& bus = QDBusConnection::sessionBus());

 private slots:
  void OnSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
  void OnOwnerChanged(const QString& name, const QString& before, const QString& after);

 private:
  void Read();
  void Take(const QVariant& value);

  std::function<void(ColorScheme)> m_handler;
  std::optional<QDBusConnection> m_bus;
  std::optional<ColorScheme> m_told;
};

}  // namespace quill::platform::qt
