#include "find_replace/find_replace_page.h"

#include <QFile>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <utility>

namespace quill::find_replace {
namespace {

class NothingOutside final : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
  void interceptRequest(QWebEngineUrlRequestInfo& info) override {
    info.block(info.requestUrl().scheme() != QLatin1String("data"));
  }
};

void Configure(QWebEngineSettings& settings) {
  for (const auto off :
       {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::JavascriptCanOpenWindows,
        QWebEngineSettings::JavascriptCanAccessClipboard, QWebEngineSettings::JavascriptCanPaste,
        QWebEngineSettings::LocalStorageEnabled, QWebEngineSettings::LocalContentCanAccessFileUrls,
        QWebEngineSettings::LocalContentCanAccessRemoteUrls, QWebEngineSettings::HyperlinkAuditingEnabled,
        QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
        QWebEngineSettings::FullScreenSupportEnabled, QWebEngineSettings::ScreenCaptureEnabled,
        QWebEngineSettings::WebGLEnabled, QWebEngineSettings::AutoLoadIconsForPage,
        QWebEngineSettings::FocusOnNavigationEnabled, QWebEngineSettings::NavigateOnDropEnabled,
        QWebEngineSettings::DnsPrefetchEnabled}) {
    settings.setAttribute(off, false);
  }
  settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

QString Resource(const char* name) {
  QFile file(QLatin1String(":/find_replace/") + QLatin1String(name));
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

QWebEngineProfile* NewProfile(QObject* parent) {
  auto* profile = new QWebEngineProfile(parent);  // without a name: off the record
  profile->setUrlRequestInterceptor(new NothingOutside(profile));
  QObject::connect(profile, &QWebEngineProfile::downloadRequested, profile,
                   [](QWebEngineDownloadRequest* download) { download->cancel(); });
  return profile;
}

FindReplacePage::FindReplacePage(QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent) {
  Configure(*settings());
  QString code;
  for (const char* name : {"references.js", "page_reader.js", "page_targets.js", "text_pattern.js",
                           "block_text.js", "page_block.js", "shown_page.js", "Find.js"}) {
    code += Resource(name) + u'\n';
  }
  QWebEngineScript script;
  script.setName(QStringLiteral("Find.js"));
  script.setSourceCode(code);
  script.setWorldId(QWebEngineScript::ApplicationWorld);
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  scripts().insert(script);
}

void FindReplacePage::LoadOwn() {
  m_expectsOwn = true;
  setHtml(Resource("page.html"));
}

bool FindReplacePage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  return isMainFrame && url.scheme() == QLatin1String("data") && std::exchange(m_expectsOwn, false);
}

}  // namespace quill::find_replace
