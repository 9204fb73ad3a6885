#include "status_item.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace quill::ui_test {
namespace {

const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kItemInterface = QStringLiteral("org.kde.StatusNotifierItem");

QList<QVariant> Call(const QString& service, const QString& path, const QString& interface,
                     const QString& method, const QList<QVariant>& arguments) {
  QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
  call.setArguments(arguments);
  constexpr int kLongestMs = 3000;
  return QDBusConnection::sessionBus().call(call, QDBus::Block, kLongestMs).arguments();
}

/// The label as the user reads it: an underscore marks the letter of the keyboard, two stand for one.
QString Shown(QString label) {
  const QChar one(0xE000);
  return label.replace(QStringLiteral("__"), one).remove('_').replace(one, '_');
}

}  // namespace

QVariant StatusItem::Property(const char* name) const {
  const QList<QVariant> answer = Call(m_service, kItemPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                      QStringLiteral("Get"), {kItemInterface, QString::fromLatin1(name)});
  return answer.isEmpty() ? QVariant() : answer.first().value<QDBusVariant>().variant();
}

QString StatusItem::Title() const {
  return Property("Title").toString();
}

QString StatusItem::ToolTip() const {
  const QVariant toolTip = Property("ToolTip");
  if (!toolTip.canConvert<QDBusArgument>()) return {};
  const auto structure = toolTip.value<QDBusArgument>();
  QString icon;
  QString title;
  structure.beginStructure();
  structure >> icon;
  structure.beginArray();
  while (!structure.atEnd()) structure.asVariant();  // the pictures
  structure.endArray();
  structure >> title;
  structure.endStructure();
  return title;
}

void StatusItem::Activate() const {
  Call(m_service, kItemPath, kItemInterface, QStringLiteral("Activate"), {0, 0});
}

QList<QVariant> StatusItem::CallMenu(const char* method, const QList<QVariant>& arguments) const {
  const QString path = Property("Menu").value<QDBusObjectPath>().path();
  return Call(m_service, path, QStringLiteral("com.canonical.dbusmenu"), QString::fromLatin1(method),
              arguments);
}

void StatusItem::AnnounceMenu() const {
  CallMenu("AboutToShow", {0});
}

QStringList StatusItem::Layout() {
  m_entries.clear();
  QStringList lines;
  const QList<QVariant> answer = CallMenu("GetLayout", {0, -1, QStringList()});
  if (answer.size() == 2) Read(answer[1].value<QDBusArgument>(), {}, lines);
  return lines;
}

void StatusItem::Read(const QDBusArgument& node, const QString& above, QStringList& lines) {
  int number = 0;
  QVariantMap properties;
  QList<QDBusArgument> children;
  node.beginStructure();
  node >> number >> properties;
  node.beginArray();
  while (!node.atEnd()) {
    QDBusVariant child;
    node >> child;
    children.append(child.variant().value<QDBusArgument>());
  }
  node.endArray();
  node.endStructure();
  QString path = above;
  if (properties.value(QStringLiteral("type")) != QStringLiteral("separator") && number != 0) {
    path += (above.isEmpty() ? QString() : QStringLiteral("/")) +
            Shown(properties.value(QStringLiteral("label")).toString());
    m_entries[path] = number;
    const bool enabled = properties.value(QStringLiteral("enabled"), true).toBool();
    lines.append(enabled ? path : path + QStringLiteral(" (disabled)"));
  }
  for (const QDBusArgument& child : children) Read(child, path, lines);
}

bool StatusItem::Choose(const QString& path) {
  Layout();
  const auto entry = m_entries.constFind(path);
  if (entry == m_entries.constEnd()) return false;
  CallMenu("Event", {*entry, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(QString())),
                     QVariant::fromValue(uint(0))});
  return true;
}

}  // namespace quill::ui_test
