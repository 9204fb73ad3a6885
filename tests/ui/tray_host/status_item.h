#pragma once
#include <QDBusArgument>
#include <QMap>
#include <QString>
#include <QStringList>

namespace quill::ui_test {

/// A registered status item as its desktop meets it: facts, menu, clicks. Each call waits for the answer.
class StatusItem {
 public:
  explicit StatusItem(QString service) : m_service(std::move(service)) {}

  QString Title() const;
  QString ToolTip() const;
  /// A plain click.
  void Activate() const;

  /// Says that the menu is about to be shown.
  void AnnounceMenu() const;
  /// Every entry of the menu and its submenus as "Group/Entry", greyed ones with " (disabled)", in order.
  QStringList Layout();
  /// Clicks an entry, named as in `Layout`; false when there is none.
  bool Choose(const QString& path);

 private:
  QVariant Property(const char* name) const;
  QList<QVariant> CallMenu(const char* method, const QList<QVariant>& arguments) const;
  void Read(const QDBusArgument& node, const QString& above, QStringList& lines);

  QString m_service;
  QMap<QString, int> m_entries;  ///< numbers by path
};

}  // namespace quill::ui_test
