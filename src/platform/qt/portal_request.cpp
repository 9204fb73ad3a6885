#include "platform/qt/portal_request.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUuid>
#include <utility>

namespace quill::platform::qt {
namespace {

constexpr char kRequestInterface[] = "org.freedesktop.portal.Request";
constexpr uint kSuccess = 0, kCancelledByUser = 1;

}  // namespace

QString NewPortalToken() {
  return QStringLiteral("quill_") + QUuid::createUuid().toString(QUuid::Id128);
}

QString PortalObjectPath(const QDBusConnection& bus, const char* kind, const QString& token) {
  const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
  return QStringLiteral("%1/%2/%3/%4").arg(QLatin1String(kPortalPath), QLatin1String(kind), sender, token);
}

void ClosePortalObject(const QDBusConnection& bus, const QString& path, const char* interface) {
  QDBusMessage close = QDBusMessage::createMethodCall(QLatin1String(kPortalService), path,
                                                      QLatin1String(interface), QStringLiteral("Close"));
  close.setAutoStartService(false);
  bus.send(close);
}

PortalRequest::PortalRequest(QDBusConnection bus, const QString& interface, const QString& method,
                             QVariantList arguments, QVariantMap options, Done done, QObject* parent)
    : QObject(parent), m_bus(std::move(bus)), m_done(std::move(done)) {
  const QString token = NewPortalToken();
  Listen(PortalObjectPath(m_bus, "request", token));
  options[QStringLiteral("handle_token")] = token;
  QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kPortalService),
                                                     QLatin1String(kPortalPath), interface, method);
  call.setArguments(arguments << options);
  auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    if (reply.isError()) {
      Finish({PortalAnswer::Kind::Missing, {}, reply.error().message().toStdString()});
    } else if (reply.value().path() != m_path) {
      Listen(reply.value().path());  // portals of old choose the path themselves
    }
  });
}

PortalRequest::~PortalRequest() {
  Withdraw();
}

void PortalRequest::Discard::operator()(PortalRequest* request) const {
  request->Withdraw();
  request->deleteLater();
}

void PortalRequest::Withdraw() {
  if (std::exchange(m_done, nullptr)) ClosePortalObject(m_bus, m_path, kRequestInterface);
}

void PortalRequest::Listen(const QString& path) {
  m_path = path;
  // Without the service's name: with it, Qt would first ask the bus who has that name, and wait.
  m_bus.connect(QString(), path, QLatin1String(kRequestInterface), QStringLiteral("Response"), this,
                SLOT(OnResponse(uint, QVariantMap)));
}

void PortalRequest::OnResponse(uint response, const QVariantMap& results) {
  if (response == kSuccess) return Finish({PortalAnswer::Kind::Granted, results, {}});
  if (response == kCancelledByUser) return Finish({PortalAnswer::Kind::Refused, {}, {}});
  Finish({PortalAnswer::Kind::Missing, {}, "the desktop has ended the request"});
}

void PortalRequest::Finish(const PortalAnswer& answer) {
  if (const Done done = std::exchange(m_done, nullptr)) done(answer);
}

}  // namespace quill::platform::qt
