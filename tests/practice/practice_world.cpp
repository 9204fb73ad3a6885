#include "practice/practice_world.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QWidget>
#include <optional>
#include <stdexcept>

#include "ui/web_plugin.h"

namespace quill::test {

bool WaitUntil(const std::function<bool()>& met, std::chrono::milliseconds deadline) {
  const QDeadlineTimer timer(deadline);
  while (!met()) {
    if (timer.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
  }
  return true;
}

PracticeWorld::PracticeWorld() {
  Reopen();
  OnCommandThread([this] { m_notebook->Target().Show(); });
}

PracticeWorld::~PracticeWorld() = default;

void PracticeWorld::Reopen() {
  m_notebook.reset();
  const Result<ui::WebViews*> views = ui::LoadWebViews();
  if (!views.ok()) throw std::runtime_error(views.error());
  auto made = (*views)->CreatePracticeNotebook({.folder = folder(), .strings = m_strings});
  if (!made.ok()) throw std::runtime_error(made.error());
  m_notebook = std::move(*made);
}

void PracticeWorld::OnCommandThread(const std::function<void()>& work) {
  const std::future<void> done = std::async(std::launch::async, [&] {
    work();
    QMetaObject::invokeMethod(
        qApp, [] {}, Qt::QueuedConnection);  // wakes the waiting loop
  });
  WaitUntil([&] { return done.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
            std::chrono::seconds(60));
}

platform::ScriptResult PracticeWorld::RunScript(const std::string& script) {
  platform::ScriptResult result;
  platform::practice::PracticeDesktop desktop(m_notebook->Target());
  OnCommandThread([&] { result = desktop.RunScript(script); });
  return result;
}

bool PracticeWorld::Await(const std::function<void(Done)>& start) {
  auto answer = std::make_shared<std::optional<bool>>();
  start([answer](bool done) { *answer = done; });
  return WaitUntil([&] { return answer->has_value(); }) && **answer;
}

std::string PracticeWorld::AwaitText(const std::function<void(GotText)>& start) {
  auto answer = std::make_shared<std::optional<QString>>();
  start([answer](const QString& text) { *answer = text; });
  if (!WaitUntil([&] { return answer->has_value(); })) return "no answer";
  return (*answer)->toStdString();
}

bool PracticeWorld::OpenPage(const QString& title) {
  return Await([&](Done done) { m_notebook->Controller().OpenPage(title, done); });
}
bool PracticeWorld::SelectText(const QString& text) {
  return Await([&](Done done) { m_notebook->Controller().SelectText(text, done); });
}
bool PracticeWorld::SelectBlock(const QString& selector) {
  return Await([&](Done done) { m_notebook->Controller().SelectBlock(selector, done); });
}
bool PracticeWorld::SelectPage() {
  return Await([&](Done done) { m_notebook->Controller().SelectPage(done); });
}
bool PracticeWorld::CaretToEnd() {
  return Await([&](Done done) { m_notebook->Controller().CaretToEnd(done); });
}
std::string PracticeWorld::SelectionFragment() {
  return AwaitText([&](GotText got) { m_notebook->Controller().SelectionFragment(got); });
}
std::string PracticeWorld::PageHtml() {
  return AwaitText([&](GotText got) { m_notebook->Controller().PageHtml(got); });
}
std::string PracticeWorld::VisibleText() {
  return AwaitText([&](GotText got) { m_notebook->Controller().VisibleText(got); });
}
std::string PracticeWorld::PageTitle() {
  return AwaitText([&](GotText got) { m_notebook->Controller().PageTitle(got); });
}

}  // namespace quill::test
