#include "gui_world.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLineEdit>
#include <QPalette>
#include <QStyleFactory>
#include <QTabBar>
#include <QTimer>
#include <QtTest/QTest>
#include <cstdio>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

/// The colours of a usual dark desktop.
QPalette DarkPalette() {
  QPalette palette(QColor(45, 45, 48));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::Text, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(42, 110, 190));
  palette.setColor(QPalette::Link, QColor(110, 170, 255));
  return palette;
}

/// Leaves out what the "offscreen" platform says about every window.
void PrintMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
    std::fprintf(stderr, "%s\n", FromQt(text).c_str());
  }
}

/// The application of this test program.
class GuiEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    qInstallMessageHandler(PrintMessage);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    m_application.emplace(m_argc, m_argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (qEnvironmentVariableIsSet("QUILL_DARK")) QApplication::setPalette(DarkPalette());
    if (qEnvironmentVariableIsSet("QUILL_RTL")) QApplication::setLayoutDirection(Qt::RightToLeft);
  }
  void TearDown() override { m_application.reset(); }

 private:
  int m_argc = 1;
  char m_name[13] = "quill-window";
  char* m_argv[2] = {m_name, nullptr};
  std::optional<QApplication> m_application;
};

[[maybe_unused]] testing::Environment* const kEnvironment =
    testing::AddGlobalTestEnvironment(new GuiEnvironment);

/// Null, and a failure of the test, when no window of ours has the keyboard.
QWidget* KeyboardTarget() {
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr) target = QApplication::activeWindow();
  EXPECT_NE(target, nullptr) << "no window has the keyboard";
  return target;
}

/// What a screen reader says for a widget.
QString SpokenName(QWidget* widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
  return spoken != nullptr ? spoken->text(QAccessible::Name) : QString();
}

bool TakesFocus(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr && widget.isEnabled();
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  QTimer heartbeat;  // conditions may change on other threads, which wake nobody here
  heartbeat.start(5ms);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

void ProcessEventsFor(std::chrono::milliseconds time) {
  WaitUntil([] { return false; }, time);
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  if (QWidget* target = KeyboardTarget()) QTest::keyClick(target, key, modifiers);
}

void Type(std::string_view text) {
  if (QWidget* target = KeyboardTarget()) QTest::keyClicks(target, ToQt(text));
}

std::string Focused() {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) return "nothing";
  if (auto* button = qobject_cast<QAbstractButton*>(focus)) return FromQt(button->text());
  if (auto* edit = qobject_cast<QLineEdit*>(focus)) return FromQt(edit->text());
  return FromQt(SpokenName(focus));
}

std::vector<std::string> UnnamedControls(const QWidget& window) {
  std::vector<std::string> unnamed;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window || !TakesFocus(*widget)) continue;
    if (qobject_cast<QTabBar*>(widget) != nullptr) continue;  // its tabs are what is spoken
    if (!SpokenName(widget).isEmpty()) continue;
    unnamed.push_back(widget->metaObject()->className() + (" " + FromQt(widget->objectName())));
  }
  return unnamed;
}

std::vector<std::string> TabOrder(QWidget& window) {
  std::vector<std::string> names;
  QWidget* const first = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  QWidget* widget = first;
  do {
    if (widget != &window && widget->isVisible() && TakesFocus(*widget)) {
      names.push_back(FromQt(SpokenName(widget)));
    }
    widget = widget->nextInFocusChain();
  } while (widget != first);
  return names;
}

void Picture(QWidget& window, const std::string& name) {
  const QString folder = qEnvironmentVariable("QUILL_PICTURES");
  if (folder.isEmpty()) return;
  ProcessEventsFor(50ms);
  EXPECT_TRUE(window.grab().save(folder + QLatin1Char('/') + ToQt(name) + QStringLiteral(".png")));
}

GuiWorld::~GuiWorld() {
  ui.Close();
  for (QWidget* widget : QApplication::topLevelWidgets()) widget->close();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace quill::ui
