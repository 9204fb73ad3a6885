#include "practice/page_view.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QTimer>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <memory>
#include <utility>

namespace quill::practice {
namespace {

constexpr auto kDeadline = std::chrono::seconds(5);
constexpr auto kWorld = QWebEngineScript::ApplicationWorld;
const char* const kPage = "qrc:/practice/page.html";

/// Lets through what is compiled into the program and what stands in the page itself.
class OnlyOwnResources final : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
  void interceptRequest(QWebEngineUrlRequestInfo& info) override {
    const QString scheme = info.requestUrl().scheme();
    info.block(scheme != "qrc" && scheme != "data");
  }
};

/// A page that stays where it is: links, forms and drops lead nowhere.
class FixedPage final : public QWebEnginePage {
 public:
  using QWebEnginePage::QWebEnginePage;

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override { return url == QUrl(kPage); }
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                const QString& source) override {
    if (source.startsWith("userscript:")) {  // ours; what the content causes is of no interest
      QWebEnginePage::javaScriptConsoleMessage(level, message, line, source);
    }
  }
};

QString Resource(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void AddScript(QWebEnginePage& page, const QString& resource) {
  QWebEngineScript script;
  script.setName(resource);
  script.setSourceCode(Resource(resource));
  script.setWorldId(kWorld);
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  page.scripts().insert(script);
}

/// The family that stands in for Calibri where it is not installed.
QString StandInFamily() {
  for (const char* family : {"Calibri", "Carlito", "Noto Sans", "DejaVu Sans"}) {
    if (QFontDatabase::hasFamily(family)) return family;
  }
  return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

void Configure(QWebEngineSettings& settings) {
  // Concerns the content's world only. Ours runs, but gets no timers.
  settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
  settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
  settings.setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
  settings.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
  settings.setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
  settings.setAttribute(QWebEngineSettings::WebGLEnabled, false);
  settings.setFontFamily(QWebEngineSettings::StandardFont, StandInFamily());
}

}  // namespace

PageView::PageView(QWidget* parent)
    : QWebEngineView(parent), m_profile(new QWebEngineProfile(this)), m_host(new PageHost(this)) {
  m_profile->setUrlRequestInterceptor(new OnlyOwnResources(m_profile));
  auto* page = new FixedPage(m_profile, this);
  Configure(*page->settings());
  auto* channel = new QWebChannel(page);
  channel->registerObject("host", m_host);
  page->setWebChannel(channel, kWorld);
  for (const char* name : {":/qtwebchannel/qwebchannel.js", ":/practice/js/ranges.js",
                           ":/practice/js/clipboard.js", ":/practice/js/editing.js", ":/practice/js/paste.js",
                           ":/practice/js/arrive.js", ":/practice/js/links.js", ":/practice/js/page.js"}) {
    AddScript(*page, name);
  }
  setPage(page);
  page->setBackgroundColor(palette().color(QPalette::Base));
  connect(m_host, &PageHost::IsReady, this, &PageView::OnReady);
  connect(page, &QWebEnginePage::renderProcessTerminated, this, [this] {
    m_ready = false;
    load(QUrl(kPage));
    emit Lost();
  });
  load(QUrl(kPage));
}

PageView::~PageView() {
  delete page();  // before its profile
}

void PageView::OnReady() {
  m_ready = true;
  ApplyTheme();
  for (const auto& call : std::exchange(m_waiting, {})) call();
}

void PageView::Call(const QString& function, const QVariantList& arguments, Answer answer) {
  const QByteArray json =
      QJsonDocument(QJsonArray::fromVariantList(arguments)).toJson(QJsonDocument::Compact);
  const QString code =
      QString("[quill.%1.apply(null, ").arg(function) + QString::fromUtf8(json) + ") ?? true]";
  auto open = std::make_shared<Answer>(std::move(answer));
  const Answer once = [open](const QVariant& value) {
    if (Answer waiting = std::exchange(*open, {})) waiting(value);
  };
  QTimer::singleShot(kDeadline, this, [once] { once({}); });
  if (m_ready) {
    Run(code, once);
  } else {
    m_waiting.push_back([this, code, once] { Run(code, once); });
  }
}

void PageView::Run(const QString& code, const Answer& answer) {
  page()->runJavaScript(code, kWorld, [answer](const QVariant& result) {
    const QVariantList values = result.toList();
    answer(values.isEmpty() ? QVariant() : values.front());
  });
}

void PageView::ApplyTheme() {
  const bool dark = palette().color(QPalette::Base).lightness() < 128;
  page()->setBackgroundColor(dark ? QColor(0x1f, 0x1f, 0x1f) : QColor(Qt::white));
  if (m_ready) Call("setTheme", {dark});
}

void PageView::changeEvent(QEvent* event) {
  QWebEngineView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
    ApplyTheme();
}

void PageView::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(window()->actions());
  menu->popup(event->globalPos());
}

}  // namespace quill::practice
