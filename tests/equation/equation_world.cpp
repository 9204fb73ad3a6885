#include "equation_world.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <optional>
#include <stdexcept>

#include "tools/mathjax_folder.h"
#include "ui/web_plugin.h"

namespace quill::test {
namespace {

std::unique_ptr<EquationWorld>& Shared() {
  static std::unique_ptr<EquationWorld> world;
  return world;
}

template <class T>
Result<T> Await(const std::function<void(std::function<void(const Result<T>&)>)>& start) {
  auto answer = std::make_shared<std::optional<Result<T>>>();
  start([answer](const Result<T>& result) { *answer = result; });
  if (!WaitUntil([&] { return answer->has_value(); })) return Failure{std::string("no answer")};
  return **answer;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& met, std::chrono::milliseconds deadline) {
  const QDeadlineTimer timer(deadline);
  while (!met()) {
    if (timer.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
  }
  return true;
}

std::filesystem::path BuiltMathJax() {
  return tools::FindMathJax(QCoreApplication::applicationDirPath().toStdString()).ValueOr({});
}

EquationWorld::EquationWorld() : EquationWorld({.mathJax = BuiltMathJax(), .strings = m_strings}) {}

EquationWorld::EquationWorld(const ui::EquationOptions& options) {
  const Result<ui::WebViews*> views = ui::LoadWebViews();
  if (!views.ok()) throw std::runtime_error(views.error());
  m_view = (*views)->CreateEquationView(options);
}

std::string EquationWorld::Show(const std::string& formula, tools::EquationForm form) {
  auto answer = std::make_shared<std::optional<QString>>();
  m_view->Show(QString::fromStdString(formula), form,
               [answer](const QString& problem) { *answer = problem; });
  if (!WaitUntil([&] { return answer->has_value(); })) return "no answer";
  return (*answer)->toStdString();
}

Result<std::string> EquationWorld::Native(const std::string& formula) {
  return Await<std::string>(
      [&](auto done) { m_view->Native(QString::fromStdString(formula), std::move(done)); });
}

Result<ui::EquationPicture> EquationWorld::Picture(const std::string& formula) {
  return Await<ui::EquationPicture>(
      [&](auto done) { m_view->Picture(QString::fromStdString(formula), std::move(done)); });
}

EquationWorld& EquationWorld::Warm() {
  if (!Shared()) Shared() = std::make_unique<EquationWorld>();
  return *Shared();
}

void EquationWorld::EndWarm() {
  Shared().reset();
}

}  // namespace quill::test
