#include "platform_qt/fake_portal.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QUuid>
#include <algorithm>
#include <stdexcept>

namespace quill::portal_test {

struct Shortcut {
  QString id;
  QVariantMap properties;
};

static QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

static const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

}  // namespace quill::portal_test

Q_DECLARE_METATYPE(quill::portal_test::Shortcut)

namespace quill::portal_test {
namespace {

constexpr char kService[] = "org.freedesktop.portal.Desktop";
constexpr char kRoot[] = "/org/freedesktop/portal/desktop";
constexpr char kHotKeys[] = "org.freedesktop.portal.GlobalShortcuts";
constexpr char kSession[] = "org.freedesktop.portal.Session";
constexpr char kSettings[] = "org.freedesktop.portal.Settings";

QString PathOf(const char* kind, const QString& sender, const QVariant& token) {
  return QStringLiteral("%1/%2/%3/%4").arg(kRoot, kind, sender.mid(1).replace(u'.', u'_'), token.toString());
}

}  // namespace

SessionBus::SessionBus() {
  m_daemon.start(
      QStringLiteral("dbus-daemon"),
      {QStringLiteral("--session"), QStringLiteral("--print-address"), QStringLiteral("--nofork")});
  QByteArray address;
  while (!address.endsWith('\n') && m_daemon.waitForReadyRead(10000)) address += m_daemon.readLine();
  if (!address.endsWith('\n')) throw std::runtime_error("dbus-daemon did not start");
  qputenv("DBUS_SESSION_BUS_ADDRESS", address.trimmed());
}

SessionBus::~SessionBus() {
  m_daemon.terminate();
  m_daemon.waitForFinished();
}

Connection::Connection() : m_name(QUuid::createUuid().toString()) {
  if (!QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name).isConnected())
    throw std::runtime_error("no connection to the test's bus");
}

Connection::~Connection() {
  QDBusConnection::disconnectFromBus(m_name);
}

FakePortal::FakePortal() {
  qDBusRegisterMetaType<Shortcut>();
  qDBusRegisterMetaType<QList<Shortcut>>();
  m_bus.get().registerVirtualObject(QLatin1String(kRoot), this, QDBusConnection::SubPath);
}

FakePortal::~FakePortal() {
  // Calls that still wait for us would be refused on a connection that is gone by then.
  m_bus.get().unregisterObject(QLatin1String(kRoot), QDBusConnection::UnregisterTree);
  QCoreApplication::removePostedEvents(this);
}

void FakePortal::Appear() {
  if (!m_bus.get().registerService(QLatin1String(kService))) throw std::runtime_error("a second portal");
}

void FakePortal::Disappear() {
  m_bus.get().unregisterService(QLatin1String(kService));
  session.clear();
}

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  const QString interface = message.interface();
  const QString member = message.member();
  log.push_back(member.toStdString());
  if (interface == QLatin1String(kHotKeys) && manners.knowsHotKeys) {
    member == QStringLiteral("CreateSession") ? CreateSession(message) : BindShortcuts(message);
    return true;
  }
  if (interface == QLatin1String(kSession) && message.path() == session) {
    session.clear();
    return connection.send(message.createReply());
  }
  if (interface == QLatin1String(kSettings)) {
    // An answer inside of a second variant, as the real one gives it.
    const QDBusVariant inner(manners.garbage ? QVariant(QStringLiteral("dark")) : QVariant(colorScheme));
    return connection.send(
        message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
  }
  return false;
}

void FakePortal::Respond(const QDBusMessage& call, const QVariantMap& options, uint response,
                         const QVariantMap& results) {
  const QString path = PathOf("request", call.service(), options[QStringLiteral("handle_token")]);
  m_bus.get().send(call.createReply(QVariant::fromValue(QDBusObjectPath(path))));
  Emit(path, "org.freedesktop.portal.Request", "Response", {response, results});
}

void FakePortal::CreateSession(const QDBusMessage& message) {
  if (!manners.answersSessions) return;
  const auto options = qdbus_cast<QVariantMap>(message.arguments().at(0));
  session = PathOf("session", message.service(), options[QStringLiteral("session_handle_token")]);
  Respond(message, options, 0, {{QStringLiteral("session_handle"), session}});
}

void FakePortal::BindShortcuts(const QDBusMessage& message) {
  const QVariantList arguments = message.arguments();
  shortcuts.clear();
  QList<Shortcut> assigned;
  for (const Shortcut& one : qdbus_cast<QList<Shortcut>>(arguments.at(1))) {
    const QString trigger = one.properties[QStringLiteral("preferred_trigger")].toString();
    const QString description = one.properties[QStringLiteral("description")].toString();
    shortcuts.push_back((one.id + u' ' + description + u' ' + trigger).toStdString());
    if (std::find(manners.notAssigned.begin(), manners.notAssigned.end(), one.id) ==
        manners.notAssigned.end())
      assigned.append(
          {one.id, {{QStringLiteral("trigger_description"), QStringLiteral("Press ") + trigger}}});
  }
  const bool right = arguments.at(0).value<QDBusObjectPath>().path() == session;
  const QVariant list = manners.garbage ? QVariant(QStringLiteral("?")) : QVariant::fromValue(assigned);
  Respond(message, qdbus_cast<QVariantMap>(arguments.at(3)), right ? manners.bindResponse : 2,
          {{QStringLiteral("shortcuts"), list}});
}

void FakePortal::Emit(const QString& path, const char* interface, const char* name,
                      const QVariantList& arguments) {
  QDBusMessage signal = QDBusMessage::createSignal(path, QLatin1String(interface), QLatin1String(name));
  signal.setArguments(arguments);
  m_bus.get().send(signal);
}

void FakePortal::Activate(const QString& ofSession, const QString& id) {
  Emit(QLatin1String(kRoot), kHotKeys, "Activated",
       {QVariant::fromValue(QDBusObjectPath(ofSession)), id, qulonglong{1}, QVariantMap()});
}

void FakePortal::CloseSession() {
  Emit(std::exchange(session, QString()), kSession, "Closed", {QVariantMap()});
}

void FakePortal::ChangeTrigger(const QString& id, const QString& description) {
  const QList<Shortcut> list = {{id, {{QStringLiteral("trigger_description"), description}}}};
  Emit(QLatin1String(kRoot), kHotKeys, "ShortcutsChanged",
       {QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(list)});
}

void FakePortal::ChangeColorScheme(uint scheme) {
  colorScheme = scheme;
  ChangeSetting(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"), scheme);
}

void FakePortal::ChangeSetting(const QString& group, const QString& key, const QVariant& value) {
  Emit(QLatin1String(kRoot), kSettings, "SettingChanged",
       {group, key, QVariant::fromValue(QDBusVariant(value))});
}

}  // namespace quill::portal_test
