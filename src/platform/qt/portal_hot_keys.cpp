#include "platform/qt/portal_hot_keys.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <utility>

namespace quill::platform::qt {

/// One entry of the portal's list of shortcuts, (sa{sv}).
struct PortalShortcut {
  QString id;
  QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

}  // namespace quill::platform::qt

Q_DECLARE_METATYPE(quill::platform::qt::PortalShortcut)

namespace quill::platform::qt {
namespace {

using Shortcuts = QList<PortalShortcut>;

constexpr char kInterface[] = "org.freedesktop.portal.GlobalShortcuts";
constexpr char kSessionInterface[] = "org.freedesktop.portal.Session";

constexpr std::pair<std::string_view, bool KeyCombination::*> kModifiers[] = {
    {"CTRL", &KeyCombination::control},
    {"ALT", &KeyCombination::option},
    {"SHIFT", &KeyCombination::shift},
    {"LOGO", &KeyCombination::command}};

/// The key's name in the bus' list: the same in every run, as the desktop remembers the user's choice by it.
QString IdOf(const HotKey& key) {
  return QString::fromStdString(key.id.empty() ? std::to_string(key.identifier) : key.id);
}

/// The list in a message; nothing when there is something else.
std::optional<Shortcuts> ShortcutsIn(const QVariant& value) {
  if (value.metaType() != QMetaType::fromType<QDBusArgument>()) return std::nullopt;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QStringLiteral("a(sa{sv})")) return std::nullopt;
  return qdbus_cast<Shortcuts>(argument);
}

}  // namespace

std::string PortalTrigger(const KeyCombination& keys) {
  std::string trigger;
  for (const auto& [name, field] : kModifiers) {
    if (keys.*field) trigger.append(name).append("+");
  }
  // Keys are named as in xkbcommon: "d", "5", "F5", "space".
  std::string key = keys.key;
  if (key.size() == 1 || key == "Space") key.front() = QChar(key.front()).toLower().toLatin1();
  return trigger + key;
}

PortalHotKeys::PortalHotKeys(Options options) : m_options(std::move(options)) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<Shortcuts>();
  m_patience.setSingleShot(true);
  connect(&m_patience, &QTimer::timeout, this, [this] {
    m_request.reset();
    m_start.reset();
    CloseSession();  // it may have been made, and the answer be on its way
    ReportAll(HotKeyProblem::NotSupported, "the desktop portal does not answer");
  });
}

PortalHotKeys::~PortalHotKeys() {
  CloseSession();
}

void PortalHotKeys::OnPressed(std::function<void(std::uint32_t identifier)> handler) {
  m_handler = std::move(handler);
}

void PortalHotKeys::Bind(std::vector<HotKey> keys, Report report) {
  m_request.reset();
  m_start.reset();
  m_patience.stop();
  m_ownerGone = false;
  CloseSession();
  m_keys = std::move(keys);
  m_report = std::move(report);
  if (m_keys.empty()) return ReportAll(HotKeyProblem::None, {});
  if (!m_bus) Connect();
  Start();
}

void PortalHotKeys::Connect() {
  m_bus.emplace(m_options.bus());
  qRegisterMetaType<QDBusObjectPath>();  // a slot's types are looked up by name
  // Signals are taken by path and interface; with the service's name Qt would ask the bus for its owner and
  // wait.
  const QString path = QLatin1String(kPortalPath);
  m_bus->connect(QString(), path, QLatin1String(kInterface), QStringLiteral("Activated"), this,
                 SLOT(OnActivated(QDBusObjectPath, QString)));
  m_bus->connect(QString(), path, QLatin1String(kInterface), QStringLiteral("ShortcutsChanged"), this,
                 SLOT(OnShortcutsChanged(QDBusMessage)));
  m_bus->connect(QString(), QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
                 QStringLiteral("NameOwnerChanged"), {QLatin1String(kPortalService)}, QString(), this,
                 SLOT(OnOwnerChanged(QString, QString, QString)));
}

void PortalHotKeys::Start() {
  m_patience.start(m_options.patience);
  if (m_options.applicationId.isEmpty()) return MakeSession();
  // Programs outside a sandbox tell who they are; older portals do not know the call and find out themselves.
  QDBusMessage call = QDBusMessage::createMethodCall(
      QLatin1String(kPortalService), QLatin1String(kPortalPath),
      QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"));
  call << m_options.applicationId << QVariantMap();
  auto watcher = std::make_unique<QDBusPendingCallWatcher>(m_bus->asyncCall(call));
  connect(watcher.get(), &QDBusPendingCallWatcher::finished, this, [this] { MakeSession(); });
  m_start = std::move(watcher);
}

void PortalHotKeys::Ask(const QString& method, QVariantList arguments, QVariantMap options,
                        PortalRequest::Done done) {
  m_request.reset(new PortalRequest(*m_bus, QLatin1String(kInterface), method, std::move(arguments),
                                    std::move(options), std::move(done), this));
}

void PortalHotKeys::MakeSession() {
  const QString token = NewPortalToken();
  m_session = PortalObjectPath(*m_bus, "session", token);
  m_bus->connect(QString(), m_session, QLatin1String(kSessionInterface), QStringLiteral("Closed"), this,
                 SLOT(OnSessionClosed()));
  Ask(QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), token}},
      [this](const PortalAnswer& answer) {
        m_patience.stop();
        if (answer.kind == PortalAnswer::Kind::Granted) return BindShortcuts();
        OnBound(answer);
      });
}

void PortalHotKeys::BindShortcuts() {
  Shortcuts shortcuts;
  for (const HotKey& key : m_keys) {
    shortcuts.append(
        {IdOf(key),
         {{QStringLiteral("description"), QString::fromStdString(key.name)},
          {QStringLiteral("preferred_trigger"), QString::fromStdString(PortalTrigger(key.keys))}}});
  }
  const QString noParentWindow;
  Ask(QStringLiteral("BindShortcuts"),
      {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), noParentWindow}, {},
      [this](const PortalAnswer& answer) { OnBound(answer); });
}

void PortalHotKeys::OnBound(const PortalAnswer& answer) {
  if (answer.kind == PortalAnswer::Kind::Granted) {
    return ReportShortcuts(answer.results.value(QStringLiteral("shortcuts")));
  }
  CloseSession();
  const bool refused = answer.kind == PortalAnswer::Kind::Refused;
  ReportAll(refused ? HotKeyProblem::Refused : HotKeyProblem::NotSupported, answer.detail);
}

void PortalHotKeys::ReportShortcuts(const QVariant& value) {
  QMap<QString, std::string> bound;
  for (const PortalShortcut& one : ShortcutsIn(value).value_or(Shortcuts()))
    bound[one.id] = one.properties.value(QStringLiteral("trigger_description")).toString().toStdString();
  std::vector<HotKeyResult> results;
  for (const HotKey& key : m_keys) {
    const auto found = bound.constFind(IdOf(key));
    const bool has = found != bound.constEnd();
    results.push_back({key.identifier, has ? HotKeyProblem::None : HotKeyProblem::Taken,
                       has ? *found : "the desktop has not assigned the key"});
  }
  if (const Report report = m_report) report(std::move(results));
}

void PortalHotKeys::ReportAll(HotKeyProblem problem, const std::string& detail) {
  std::vector<HotKeyResult> results;
  for (const HotKey& key : m_keys) results.push_back({key.identifier, problem, detail});
  if (const Report report = m_report) report(std::move(results));
}

void PortalHotKeys::CloseSession() {
  const QString session = std::exchange(m_session, QString());
  if (session.isEmpty()) return;
  m_bus->disconnect(QString(), session, QLatin1String(kSessionInterface), QStringLiteral("Closed"), this,
                    SLOT(OnSessionClosed()));
  ClosePortalObject(*m_bus, session, kSessionInterface);
}

void PortalHotKeys::OnActivated(const QDBusObjectPath& session, const QString& id) {
  if (session.path() != m_session) return;
  for (const HotKey& key : m_keys) {
    if (IdOf(key) != id) continue;
    const auto handler = m_handler;  // it may bind other keys
    if (handler) handler(std::uint32_t{key.identifier});
    return;
  }
}

void PortalHotKeys::OnShortcutsChanged(const QDBusMessage& message) {
  const QVariantList arguments = message.arguments();
  if (arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session) return;
  ReportShortcuts(arguments[1]);
}

void PortalHotKeys::OnSessionClosed() {
  m_request.reset();
  m_patience.stop();
  CloseSession();
  ReportAll(HotKeyProblem::SystemError, "the desktop has ended the session of the keys");
}

void PortalHotKeys::OnOwnerChanged(const QString&, const QString& before, const QString& after) {
  if (!before.isEmpty() && !m_session.isEmpty()) {
    m_ownerGone = true;
    OnSessionClosed();
  }
  if (!after.isEmpty() && std::exchange(m_ownerGone, false) && !m_keys.empty()) Start();
}

}  // namespace quill::platform::qt
