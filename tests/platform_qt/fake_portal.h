#pragma once
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <QVariantMap>
#include <map>
#include <string>
#include <vector>

namespace quill::portal_test {

/// A session bus for the tests alone; the environment names it.
class SessionBus {
 public:
  SessionBus();
  ~SessionBus();

 private:
  QProcess m_daemon;
};

/// A connection of its own to the test's bus, for one side of the talk.
class Connection {
 public:
  Connection();
  ~Connection();
  QDBusConnection get() const { return QDBusConnection(m_name); }

 private:
  QString m_name;
};

/// Runs the event loop until `condition` holds; false after five seconds.
template <class Condition>
bool Happens(Condition condition) {
  return QTest::qWaitFor(condition, 5000);
}

/// The desktop's portal as far as the program knows it: hot keys and the choice of dark or light. It is on
/// the bus from `Appear` on and writes down what it is asked.
class FakePortal : public QDBusVirtualObject {
 public:
  FakePortal();
  ~FakePortal() override;

  void Appear();
  void Disappear();

  /// How it answers.
  struct Manners {
    bool knowsHotKeys = true;
    bool answersSessions = true;
    uint bindResponse = 0;                  ///< 0 granted, 1 the user said no, 2 anything else
    std::vector<QString> notAssigned = {};  ///< ids that it leaves out of its answer
    bool garbage = false;                   ///< answers with values of other types
  } manners;

  /// One shortcut that it was asked for, as "id description trigger".
  std::vector<std::string> shortcuts;
  std::vector<std::string> log;  ///< the methods called, in order
  QString session;               ///< the object path of the open session; empty when there is none

  void Activate(const QString& id) { Activate(session, id); }
  void Activate(const QString& ofSession, const QString& id);
  void CloseSession();
  /// The user has chosen other keys in the desktop's settings.
  void ChangeTrigger(const QString& id, const QString& description);

  uint colorScheme = 0;
  void ChangeColorScheme(uint scheme);
  void ChangeSetting(const QString& group, const QString& key, const QVariant& value);

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  void CreateSession(const QDBusMessage& message);
  void BindShortcuts(const QDBusMessage& message);
  void Respond(const QDBusMessage& call, const QVariantMap& options, uint response,
               const QVariantMap& results);
  void Emit(const QString& path, const char* interface, const char* name, const QVariantList& arguments);

  Connection m_bus;
};

}  // namespace quill::portal_test
