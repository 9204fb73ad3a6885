#include "page_world.h"

#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <optional>

#include "ui/kit/qt_text.h"
#include "ui/web_plugin.h"

namespace quill::ui {
namespace {

std::unique_ptr<PageWorld>& Shared() {
  static std::unique_ptr<PageWorld> world;
  return world;
}

class EndOfWorld final : public testing::Environment {
 public:
  void TearDown() override { PageWorld::End(); }
};

// Environments are taken down in the opposite order, so the application outlives this one.
[[maybe_unused]] testing::Environment* const kEnd = testing::AddGlobalTestEnvironment(new EndOfWorld);

/// The value that a call hands over later; nothing, and a failure, when none comes.
template <class T>
T Awaited(const std::function<void(std::function<void(const T&)>)>& start) {
  auto value = std::make_shared<std::optional<T>>();
  start([value](const T& given) { *value = given; });
  const bool hasCome = WaitUntil([&] { return value->has_value(); }, 40s);
  EXPECT_TRUE(hasCome) << "the page does not answer";
  return hasCome ? **value : T();
}

}  // namespace

PageWorld::PageWorld() {
  const Result<WebViews*> views = LoadWebViews();
  if (!views.ok()) throw std::runtime_error(views.error());
  m_view = (*views)->CreateFindReplaceView(m_strings);
  m_view->Widget().resize(800, 600);
  m_view->Widget().show();
}

PageWorld::~PageWorld() = default;

PageWorld& PageWorld::Warm() {
  if (!Shared()) Shared() = std::make_unique<PageWorld>();
  return *Shared();
}

void PageWorld::End() {
  Shared().reset();
}

PageState PageWorld::Await(const std::function<void(FindReplaceView::Answered)>& start) {
  return Awaited<PageState>(start);
}

PageState PageWorld::Show(const std::string& html) {
  return Await([&](auto done) { m_view->Show(ToQt(html), done); });
}

PageState PageWorld::Mark(std::string_view text, bool matchesCase) {
  return Await([&](auto done) { m_view->Mark({ToQt(text), matchesCase}, done); });
}

PageState PageWorld::Find(std::string_view text, bool matchesCase, SearchDirection direction) {
  return Await([&](auto done) { m_view->Find({ToQt(text), matchesCase}, direction, done); });
}

PageState PageWorld::Replace(std::string_view text, std::string_view replacement, bool matchesCase) {
  return Await([&](auto done) { m_view->Replace({ToQt(text), matchesCase}, ToQt(replacement), done); });
}

PageState PageWorld::ReplaceAll(std::string_view text, std::string_view replacement, bool matchesCase) {
  return Await([&](auto done) { m_view->ReplaceAll({ToQt(text), matchesCase}, ToQt(replacement), done); });
}

std::string PageWorld::Json() {
  return FromQt(Awaited<QString>([&](auto got) { m_view->GetJson(got); }));
}

std::vector<std::string> PageWorld::Changes() {
  const auto changes = Awaited<std::vector<PageChange>>([&](auto got) { m_view->Changes(got); });
  std::vector<std::string> lines;
  for (const PageChange& change : changes)
    lines.push_back(FromQt(change.kind + ": " + change.before + " -> " + change.after));
  return lines;
}

QVariant PageWorld::Run(const std::string& code, unsigned world) {
  const auto* view = qobject_cast<QWebEngineView*>(&m_view->Widget());
  return Awaited<QVariant>([&](auto got) { view->page()->runJavaScript(ToQt(code), world, got); });
}

QVariant PageWorld::Script(const std::string& code) {
  return Run(code, QWebEngineScript::ApplicationWorld);
}

QVariant PageWorld::PageScript(const std::string& code) {
  return Run(code, QWebEngineScript::MainWorld);
}

std::string PageWorld::Marks() {
  return Text(
      "Array.from(document.querySelectorAll('quill-match'), (mark) => "
      "mark.className === 'current' ? `[${mark.textContent}]` : mark.textContent).join('|')");
}

}  // namespace quill::ui
