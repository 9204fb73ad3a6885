#include "find_replace/find_replace_browser.h"

#include <QChildEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <chrono>
#include <utility>

#include "find_replace/find_replace_page.h"
#include "platform/posix/end_process.h"

namespace quill::find_replace {
namespace {

/// For one call. A page of ten megabytes with a match in every line takes about three seconds.
constexpr std::chrono::seconds kDeadline(30);

QString TextOf(const shell::StringTable& strings, const char* key) {
  return QString::fromStdString(std::string(strings.Text(key)));
}

class View final : public QWebEngineView {
 public:
  explicit View(const shell::StringTable& strings) {
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAcceptDrops(false);
    setAccessibleName(TextOf(strings, "strFindReplacePage"));
  }

 protected:
  /// The keyboard is with a widget inside the view, a new one for each of the engine's processes.
  void childEvent(QChildEvent* event) override {
    QWebEngineView::childEvent(event);
    auto* inner = qobject_cast<QWidget*>(event->child());
    if (event->polished() && inner != nullptr) inner->setAccessibleName(accessibleName());
  }
};

/// A call as code: `Find("it's", false)`. JSON is a part of JavaScript.
QString CodeOf(const char* function, const QVariantList& arguments) {
  const QByteArray list =
      QJsonDocument(QJsonArray::fromVariantList(arguments)).toJson(QJsonDocument::Compact);
  return QLatin1String(function) + u'(' + QString::fromUtf8(list.mid(1, list.size() - 2)) + u')';
}

ui::PageState StateOf(const QVariant& answer) {
  const QVariantList parts = answer.toList();
  if (parts.size() != 2) return {};
  const QVariantMap state = parts[1].toMap();
  return {!parts[0].toString().isEmpty(), state[QStringLiteral("matches")].toInt(),
          state[QStringLiteral("current")].toInt(), state[QStringLiteral("changes")].toInt()};
}

QVariantList ArgumentsOf(const ui::PageSearch& search) {
  return {search.text, search.matchesCase};
}

QVariantList ArgumentsOf(const ui::PageSearch& search, const QString& replacement) {
  return {search.text, replacement, search.matchesCase};
}

}  // namespace

FindReplaceBrowser::FindReplaceBrowser(const shell::StringTable& strings)
    : m_strings(strings),
      m_view(new View(strings)),
      m_profile(NewProfile(m_view)),
      m_page(new FindReplacePage(m_profile, m_view)) {
  m_view->setPage(m_page);
  m_page->setBackgroundColor(Qt::white);
  m_deadline.setSingleShot(true);
  QObject::connect(&m_deadline, &QTimer::timeout, m_view, [this] {
    if (!platform::EndProcess(m_page->renderProcessPid())) OnEnd();
  });
  m_redraw.setSingleShot(true);
  QObject::connect(&m_redraw, &QTimer::timeout, m_view, [this] { Call("DrawMarks", {}, {}); });
  const auto redraw = [this] {
    if (m_state == State::Ready) m_redraw.start(0);
  };
  QObject::connect(m_page, &QWebEnginePage::scrollPositionChanged, m_view, redraw);
  QObject::connect(m_page, &QWebEnginePage::contentsSizeChanged, m_view, redraw);
  QObject::connect(m_page, &QWebEnginePage::loadFinished, m_view, [this](bool ok) { OnLoaded(ok); });
  QObject::connect(m_page, &QWebEnginePage::renderProcessTerminated, m_view, [this] { OnEnd(); });
}

FindReplaceBrowser::~FindReplaceBrowser() {
  m_isAlive.reset();
  QObject::disconnect(m_page, nullptr, m_view, nullptr);
  m_view->setPage(nullptr);
  delete m_page;  // before its profile
  delete m_view;
}

QWidget& FindReplaceBrowser::Widget() {
  return *m_view;
}

void FindReplaceBrowser::Show(const QString& pageHtml, Answered done) {
  ++m_round;
  m_openCalls = 0;
  m_waiting.clear();
  const QVariantMap texts = {{QStringLiteral("picture"), TextOf(m_strings, "strFindReplacePicture")},
                             {QStringLiteral("object"), TextOf(m_strings, "strFindReplaceObject")}};
  CallAndTell("LoadPage", {pageHtml, texts}, std::move(done));
  if (m_state != State::Empty) return;
  m_state = State::Loading;
  m_deadline.start(kDeadline);
  m_page->LoadOwn();
}

void FindReplaceBrowser::Mark(const ui::PageSearch& search, Answered done) {
  CallAndTell("MarkAll", ArgumentsOf(search), std::move(done));
}

void FindReplaceBrowser::Find(const ui::PageSearch& search, ui::SearchDirection direction, Answered done) {
  QVariantList arguments = ArgumentsOf(search);
  if (direction == ui::SearchDirection::Backwards) arguments += true;
  CallAndTell("Find", arguments, std::move(done));
}

void FindReplaceBrowser::Replace(const ui::PageSearch& search, const QString& replacement, Answered done) {
  CallAndTell("Replace", ArgumentsOf(search, replacement), std::move(done));
}

void FindReplaceBrowser::ReplaceAll(const ui::PageSearch& search, const QString& replacement, Answered done) {
  CallAndTell("ReplaceAll", ArgumentsOf(search, replacement), std::move(done));
}

void FindReplaceBrowser::GoToHighlightPosition() {
  Call("GoToHighlightPosition", {}, {});
}

void FindReplaceBrowser::Changes(GotChanges got) {
  Call("GetChanges", {}, [got = std::move(got)](const QVariant& value) {
    std::vector<ui::PageChange> changes;
    for (const QVariant& each : value.toList()) {
      const QVariantMap change = each.toMap();
      changes.push_back({change[QStringLiteral("kind")].toString(),
                         change[QStringLiteral("before")].toString(),
                         change[QStringLiteral("after")].toString()});
    }
    got(changes);
  });
}

void FindReplaceBrowser::ShowChange(int number) {
  Call("ShowChange", {number}, {});
}

void FindReplaceBrowser::GetJson(GotJson got) {
  Call("GetJson", {}, [got = std::move(got)](const QVariant& value) { got(value.toString()); });
}

void FindReplaceBrowser::Call(const char* function, const QVariantList& arguments, Got got) {
  Run(CodeOf(function, arguments), std::move(got));
}

void FindReplaceBrowser::CallAndTell(const char* function, const QVariantList& arguments, Answered done) {
  Run(u'[' + CodeOf(function, arguments) + QLatin1String(", GetState()]"),
      [done = std::move(done)](const QVariant& answer) { done(StateOf(answer)); });
}

void FindReplaceBrowser::Run(const QString& code, Got got) {
  if (m_state != State::Ready) {
    m_waiting.push_back([this, code, got = std::move(got)]() mutable { Run(code, std::move(got)); });
    return;
  }
  ++m_openCalls;
  m_deadline.start(kDeadline);
  const std::weak_ptr<bool> alive = m_isAlive;
  m_page->runJavaScript(code, QWebEngineScript::ApplicationWorld,
                        [this, alive, round = m_round, got = std::move(got)](const QVariant& value) {
                          if (alive.expired() || round != m_round) return;
                          if (--m_openCalls == 0) m_deadline.stop();
                          if (got) got(value);
                        });
}

void FindReplaceBrowser::OnLoaded(bool isLoaded) {
  if (m_state != State::Loading) return;
  if (!isLoaded) return OnEnd();
  m_state = State::Ready;
  for (const auto& call : std::exchange(m_waiting, {})) call();
}

void FindReplaceBrowser::OnEnd() {
  m_state = State::Empty;
  ++m_round;
  m_openCalls = 0;
  m_waiting.clear();
  m_deadline.stop();
  m_redraw.stop();
  if (m_lost) m_lost();
}

}  // namespace quill::find_replace
