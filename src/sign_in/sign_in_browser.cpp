#include "sign_in/sign_in_browser.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <utility>

#include "sign_in/loading_page.h"
#include "sign_in/sign_in_page.h"

namespace quill::sign_in {
namespace {

/// The engine's own menu would offer to save the page and to look at its source.
class View final : public QWebEngineView {
 public:
  View(const shell::StringTable& strings, SignInBrowser& browser) : m_strings(strings), m_browser(browser) {
    setAcceptDrops(false);
    setAccessibleName(QString::fromStdString(std::string(strings.Text("strSignInPage"))));
  }

 protected:
  /// The keyboard is with a widget inside the view, a new one for each server.
  void childEvent(QChildEvent* event) override {
    QWebEngineView::childEvent(event);
    auto* inner = qobject_cast<QWidget*>(event->child());
    if (!event->polished() || inner == nullptr) return;
    inner->setAccessibleName(accessibleName());
    inner->installEventFilter(this);
    m_isTabbing = false;
  }

  bool eventFilter(QObject* inner, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      m_isTabbing = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    }
    return QWebEngineView::eventFilter(inner, event);
  }

  /// A new page that has no field yet passes the keyboard on by itself, and so does the widget of a page that
  /// goes. The user would then type past the page: it goes on for the Tab key alone.
  bool focusNextPrevChild(bool next) override {
    if (m_isTabbing || !isVisible()) return QWebEngineView::focusNextPrevChild(next);
    QTimer::singleShot(0, this, [this] { setFocus(); });
    return true;
  }

  void contextMenuEvent(QContextMenuEvent* event) override {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* key, bool isEnabled, auto work) {
      menu->addAction(QString::fromStdString(std::string(m_strings.Text(key))), this, work)
          ->setEnabled(isEnabled);
    };
    const auto isEnabled = [this](QWebEnginePage::WebAction action) {
      return page()->action(action)->isEnabled();
    };
    add("strBack", m_browser.CanGoBack(), [this] { m_browser.Back(); });
    add("strReload", true, [this] { m_browser.Reload(); });
    menu->addSeparator();
    add("strCopy", isEnabled(QWebEnginePage::Copy), [this] { triggerPageAction(QWebEnginePage::Copy); });
    add("strPaste", isEnabled(QWebEnginePage::Paste), [this] { triggerPageAction(QWebEnginePage::Paste); });
    menu->popup(event->globalPos());
  }

 private:
  const shell::StringTable& m_strings;
  SignInBrowser& m_browser;
  bool m_isTabbing = false;  ///< the last key in the page was Tab
};

template <class Event, class... Arguments>
void Give(const Event& event, Arguments&&... arguments) {
  if (event) event(std::forward<Arguments>(arguments)...);
}

}  // namespace

SignInBrowser::SignInBrowser(const shell::StringTable& strings)
    : m_strings(strings), m_view(new View(strings, *this)) {
  Begin();
}

SignInBrowser::~SignInBrowser() {
  m_events = {};
  End();
  delete m_view;
}

QWidget& SignInBrowser::Widget() {
  return *m_view;
}

void SignInBrowser::Begin() {
  m_session = NewSession(m_view);
  m_page = new SignInPage(m_session, m_session);
  m_view->setPage(m_page);
  QObject::connect(m_page, &QWebEnginePage::loadingChanged, m_view,
                   [this](const QWebEngineLoadingInfo& info) { OnLoading(info); });
  QObject::connect(m_page, &QWebEnginePage::titleChanged, m_view,
                   [this](const QString& title) { OnTitle(title); });
  QObject::connect(m_page, &QWebEnginePage::urlChanged, m_view,
                   [this](const QUrl& url) { Give(m_events.onHost, IsWebAddress(url) ? url : QUrl()); });
  QObject::connect(m_page, &QWebEnginePage::loadProgress, m_view, [this](int percent) {
    if (m_isLoading) Give(m_events.onProgress, percent);
  });
  QObject::connect(m_page, &QWebEnginePage::renderProcessTerminated, m_view, [this] { OnLost(); });
}

void SignInBrowser::End() {
  QObject::disconnect(m_page, nullptr, m_view, nullptr);
  m_view->setPage(nullptr);
  delete m_page;  // before its profile
  delete m_session;
  m_awaitsOwn = m_isLoading = false;
  m_next.reset();
}

void SignInBrowser::ShowLoading(const QUrl& service) {
  m_awaitsOwn = true;
  const bool isDark = m_view->palette().color(QPalette::Base).lightness() < 128;
  m_page->setBackgroundColor(isDark ? QColor(0x1f, 0x1f, 0x1f) : QColor(Qt::white));
  m_page->ShowOwn(LoadingPage(m_strings, service.host(QUrl::FullyEncoded), isDark));
}

void SignInBrowser::Load(const QUrl& url) {
  m_requested = url;
  if (m_awaitsOwn) {
    m_next = url;
  } else {
    m_page->load(url);
  }
}

bool SignInBrowser::ShowsService() const {
  return IsWebAddress(m_page->history()->currentItem().url());
}

bool SignInBrowser::CanGoBack() const {
  return m_page->history()->canGoBack() && IsWebAddress(m_page->history()->backItem().url());
}

void SignInBrowser::Back() {
  if (CanGoBack()) m_page->triggerAction(QWebEnginePage::Back);
}

void SignInBrowser::Reload() {
  if (ShowsService()) {
    m_page->triggerAction(QWebEnginePage::Reload);
  } else if (!m_requested.isEmpty()) {
    Load(m_requested);
  }
}

void SignInBrowser::ClearCookiesAndCache(std::function<void()> done) {
  QObject::disconnect(m_page, nullptr, m_view, nullptr);
  m_page->triggerAction(QWebEnginePage::Stop);
  // Later: this may be called from a signal of the page that goes.
  QTimer::singleShot(0, m_view, [this, done = std::move(done)] {
    End();
    Begin();
    Give(m_events.onHost, QUrl());
    Give(m_events.onTitle, QString());
    done();
  });
}

void SignInBrowser::OnLoading(const QWebEngineLoadingInfo& info) {
  const bool isService = IsWebAddress(info.url());
  if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
    m_isLoading = isService;
    return;
  }
  if (!isService) return OnOwnFinished(info.url());
  m_isLoading = false;
  if (info.status() == QWebEngineLoadingInfo::LoadStoppedStatus) return OnStopped(info.url());
  const bool failed = info.status() == QWebEngineLoadingInfo::LoadFailedStatus;
  if (failed && info.errorDomain() == QWebEngineLoadingInfo::CertificateErrorDomain) {
    Tell(info.url(), ui::PageLoad::NotTrusted);
  } else if (failed && info.errorDomain() != QWebEngineLoadingInfo::HttpStatusCodeDomain) {
    Tell(info.url(), ui::PageLoad::NotReached);
  } else if (failed) {
    TellWhatIsThere(info.url());
  } else {
    Tell(info.url(), ui::PageLoad::Shown);
  }
}

/// An error of the service may come with words of its own, or with nothing.
void SignInBrowser::TellWhatIsThere(const QUrl& url) {
  m_page->toPlainText([this, page = QPointer(m_page), url](const QString& text) {
    if (!page || page != m_page || m_isLoading) return;
    Tell(url, text.trimmed().isEmpty() ? ui::PageLoad::Empty : ui::PageLoad::Shown);
  });
}

void SignInBrowser::OnOwnFinished(const QUrl& url) {
  // The engine asks nobody when a page leads to "about:blank".
  if (url.scheme() == "about") return Tell(url, ui::PageLoad::Empty);
  if (!std::exchange(m_awaitsOwn, false)) return;
  m_page->setBackgroundColor(Qt::white);  // what pages without a colour of their own count on
  if (const std::optional<QUrl> next = std::exchange(m_next, std::nullopt)) m_page->load(*next);
}

/// A load that was replaced, refused, or became a download. It matters when it leaves nothing to be seen.
void SignInBrowser::OnStopped(const QUrl& url) {
  QTimer::singleShot(0, m_view, [this, url] {
    if (m_isLoading || m_awaitsOwn) return;
    if (!ShowsService()) return Tell(url, ui::PageLoad::Empty);
    Give(m_events.onProgress, 100);
  });
}

void SignInBrowser::OnTitle(const QString& title) {
  // Without a title the engine gives the address, which may hold the code.
  const QUrl url = m_page->url();
  const bool isAddress = url.toString().contains(title) || url.toDisplayString().contains(title) ||
                         QString::fromLatin1(url.toEncoded()).contains(title);
  Give(m_events.onTitle, isAddress || !IsWebAddress(url) ? QString() : title);
}

void SignInBrowser::OnLost() {
  m_awaitsOwn = m_isLoading = false;
  m_next.reset();
  Give(m_events.onLost);
}

void SignInBrowser::Tell(const QUrl& url, ui::PageLoad load) {
  Give(m_events.onProgress, 100);
  Give(m_events.onFinished, url.toEncoded(), load);
}

}  // namespace quill::sign_in
