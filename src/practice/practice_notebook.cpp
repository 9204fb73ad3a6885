#include "practice/practice_notebook.h"

#include <QBuffer>
#include <QEvent>
#include <QPixmap>
#include <utility>

#include "platform/qt/gui_call.h"
#include "practice/page_view.h"
#include "practice/service/store_library.h"

namespace quill::practice {
namespace {

using platform::ScriptProblem;
using platform::qt::AskThread;

/// The engine's first start takes about a second on a slow machine, a call of the page up to five.
constexpr auto kShowDeadline = std::chrono::seconds(10);
constexpr auto kPressDeadline = std::chrono::seconds(6);

}  // namespace

Notebook::Notebook(std::unique_ptr<PracticeWindow> window) : m_window(std::move(window)) {
  m_window->installEventFilter(this);
}

Notebook::~Notebook() {
  m_window->removeEventFilter(this);
}

bool Notebook::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) m_isOpen = true;
  // A minimised window gets a hide event of the system's and stays open.
  if (event->type() == QEvent::Hide && !event->spontaneous()) m_isOpen = false;
  return QObject::eventFilter(watched, event);
}

void Notebook::Open() {
  m_window->Open([](ScriptProblem) {});
}

Result<Endpoints> Notebook::StartService() {
  if (m_service == nullptr) {
    auto started = PracticeService::Start(std::make_unique<StoreLibrary>(m_window->Folder()),
                                          {.documentHost = m_window->DocumentHost().toStdString()});
    if (!started.ok()) return Failure{started.error()};
    m_service = std::move(*started);
  }
  return m_service->Addresses();
}

ScriptProblem Notebook::Show() {
  return AskThread<ScriptProblem>(this, kShowDeadline, [this](auto answer) { m_window->Open(answer); })
      .value_or(ScriptProblem::NoAnswer);
}

ScriptProblem Notebook::Press(const platform::practice::Keys& keys) {
  return AskThread<ScriptProblem>(this, kPressDeadline,
                                  [this, keys](auto answer) {
                                    if (!m_isOpen) return answer(ScriptProblem::TargetClosed);
                                    m_window->Press(keys, answer);
                                  })
      .value_or(ScriptProblem::NoAnswer);
}

ScriptProblem Notebook::OpenLink(std::string_view link) {
  const LinkTarget target = TargetOfLink(link);
  if (target.pageId.empty()) return ScriptProblem::TargetMissing;
  return AskThread<ScriptProblem>(this, kShowDeadline,
                                  [this, target](auto answer) {
                                    const auto jump = [this, target, answer](ScriptProblem problem) {
                                      if (problem != ScriptProblem::None) return answer(problem);
                                      m_window->JumpTo(target.objectId, answer);
                                    };
                                    m_window->OpenTarget(target, [this, jump, answer](ScriptProblem problem) {
                                      if (problem != ScriptProblem::None) return answer(problem);
                                      m_window->Open(jump);
                                    });
                                  })
      .value_or(ScriptProblem::NoAnswer);
}

void Notebook::OpenPage(const QString& title, Done done) {
  m_window->OpenPage(
      [&](const PageEntry& page) { return page.title == title.toStdString(); },
      [done = std::move(done)](ScriptProblem problem) { done(problem == ScriptProblem::None); });
}

void Notebook::Select(const char* function, const QVariantList& arguments, Done done) {
  m_window->View().Call(function, arguments,
                        [done = std::move(done)](const QVariant& answer) { done(answer.toBool()); });
}

void Notebook::SelectText(const QString& text, Done done) {
  Select("selectText", {text}, std::move(done));
}
void Notebook::SelectBlock(const QString& selector, Done done) {
  Select("selectBlock", {selector}, std::move(done));
}
void Notebook::SelectPage(Done done) {
  Select("selectPage", {}, std::move(done));
}
void Notebook::CaretToEnd(Done done) {
  Select("caretAtEnd", {}, std::move(done));
}

void Notebook::Get(const char* function, GotText done) {
  m_window->View().Call(function, {},
                        [done = std::move(done)](const QVariant& answer) { done(answer.toString()); });
}

void Notebook::SelectionFragment(GotText done) {
  Get("selectionFragment", std::move(done));
}
void Notebook::PageHtml(GotText done) {
  Get("content", std::move(done));
}
void Notebook::VisibleText(GotText done) {
  Get("visibleText", std::move(done));
}
void Notebook::PageTitle(GotText done) {
  Get("titleText", std::move(done));
}

QByteArray Notebook::Picture() {
  if (!m_window->isVisible()) return {};
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QBuffer::WriteOnly);
  m_window->grab().save(&buffer, "PNG");
  return png;
}

}  // namespace quill::practice
