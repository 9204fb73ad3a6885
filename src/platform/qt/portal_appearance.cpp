#include "platform/qt/portal_appearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

#include "platform/qt/portal_request.h"

namespace quill::platform::qt {
namespace {

constexpr char kInterface[] = "org.freedesktop.portal.Settings";
constexpr QLatin1String kGroup("org.freedesktop.appearance");
constexpr QLatin1String kKey("color-scheme");

/// The scheme as the portal numbers it; numbers of later days are no preference.
ColorScheme SchemeOf(uint number) {
  constexpr ColorScheme kSchemes[] = {ColorScheme::NoPreference, ColorScheme::Dark, ColorScheme::Light};
  return number < std::size(kSchemes) ? kSchemes[number] : ColorScheme::NoPreference;
}

}  // namespace

PortalAppearance::PortalAppearance(std::function<void(ColorScheme)> handler)
    : m_handler(std::move(handler)) {}

void PortalAppearance::Start(const QDBusConnection& bus) {
  m_bus.emplace(bus);
  qRegisterMetaType<QDBusVariant>();  // a slot's types are looked up by name
  // By path and interface: with the service's name Qt would ask the bus for its owner and wait.
  m_bus->connect(QString(), QLatin1String(kPortalPath), QLatin1String(kInterface),
                 QStringLiteral("SettingChanged"), this,
                 SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
  m_bus->connect(QString(), QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
                 QStringLiteral("NameOwnerChanged"), {QLatin1String(kPortalService)}, QString(), this,
                 SLOT(OnOwnerChanged(QString, QString, QString)));
  Read();
}

void PortalAppearance::Read() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(QLatin1String(kPortalService), QLatin1String(kPortalPath),
                                     QLatin1String(kInterface), QStringLiteral("Read"));
  call << QString(kGroup) << QString(kKey);
  auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (!reply.isError()) Take(reply.value().variant());
  });
}

void PortalAppearance::Take(const QVariant& value) {
  QVariant plain = value;
  // `Read` wraps its answer in a second variant.
  while (plain.metaType() == QMetaType::fromType<QDBusVariant>())
    plain = plain.value<QDBusVariant>().variant();
  bool isNumber = false;
  const ColorScheme scheme = SchemeOf(plain.toUInt(&isNumber));
  if (!isNumber || m_told == scheme) return;
  m_told = scheme;
  m_handler(scheme);
}

void PortalAppearance::OnSettingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
  if (group == kGroup && key == kKey) Take(value.variant());
}

void PortalAppearance::OnOwnerChanged(const QString&, const QString&, const QString& after) {
  if (!after.isEmpty()) Read();  // what changed while nobody was there to tell
}

}  // namespace quill::platform::qt
