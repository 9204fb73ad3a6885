#pragma once
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <string>

namespace quill::platform::qt {

/// Where the desktop portal is found on the session bus.
inline constexpr char kPortalService[] = "org.freedesktop.portal.Desktop";
inline constexpr char kPortalPath[] = "/org/freedesktop/portal/desktop";

/// What the portal says to a request.
struct PortalAnswer {
  enum class Kind {
    Granted,
    Refused,  ///< by the user
    Missing   ///< there is no portal, or it does not know the request, or it failed
  };
  Kind kind;
  QVariantMap results;  ///< of a granted request
  std::string detail;   ///< the bus' words for a missing one
};

/// A text that fits into an object path and that nobody else has.
QString NewPortalToken();

/// Sends `Close` to a request or a session; the answer does not matter, nor whether there is still a portal.
void ClosePortalObject(const QDBusConnection& bus, const QString& path, const char* interface);

/// The object path that belongs to a token of this connection; `kind` is "request" or "session".
QString PortalObjectPath(const QDBusConnection& bus, const char* kind, const QString& token);

/// One request to the desktop portal (org.freedesktop.portal.Request). Nothing waits: `done` is called from
/// the event loop, once, and not when the object goes first; it may delete the object.
class PortalRequest final : public QObject {
  Q_OBJECT
 public:
  using Done = std::function<void(const PortalAnswer&)>;

  /// Listens for the answer, then sends `method` with `arguments` and, as the last of them, `options`.
  PortalRequest(QDBusConnection bus, const QString& interface, const QString& method, QVariantList arguments,
                QVariantMap options, Done done, QObject* parent);
  ~PortalRequest() override;

  /// Gives a request up, also from within its own `done`.
  struct Discard {
    void operator()(PortalRequest* request) const;
  };
  using Owned = std::unique_ptr<PortalRequest, Discard>;

 private slots:
  void OnResponse(uint response, const QVariantMap& results);

 private:
  void Listen(const QString& path);
  void Withdraw();
  void Finish(const PortalAnswer& answer);

  QDBusConnection m_bus;
  QString m_path;
  Done m_done;  ///< empty once it was called
};

}  // namespace quill::platform::qt
