#include "sign_in/sign_in_page.h"

#include <QWebEngineCertificateError>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <utility>

namespace quill::sign_in {
namespace {

/// Blocks every request that does not go to a server or stay in the page.
class ServersOnly final : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
  void interceptRequest(QWebEngineUrlRequestInfo& info) override {
    const QString scheme = info.requestUrl().scheme();
    const bool stays = scheme == "data" || scheme == "blob";
    info.block(!stays && scheme != "wss" && scheme != "ws" && !IsWebAddress(info.requestUrl()));
  }
};

void Configure(QWebEngineSettings& settings) {
  for (const auto off :
       {QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
        QWebEngineSettings::JavascriptCanPaste, QWebEngineSettings::LocalContentCanAccessFileUrls,
        QWebEngineSettings::LocalContentCanAccessRemoteUrls, QWebEngineSettings::HyperlinkAuditingEnabled,
        QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::PluginsEnabled,
        QWebEngineSettings::PdfViewerEnabled, QWebEngineSettings::FullScreenSupportEnabled,
        QWebEngineSettings::ScreenCaptureEnabled, QWebEngineSettings::WebGLEnabled,
        QWebEngineSettings::AutoLoadIconsForPage, QWebEngineSettings::FocusOnNavigationEnabled,
        QWebEngineSettings::AllowRunningInsecureContent,
        QWebEngineSettings::AllowWindowActivationFromJavaScript, QWebEngineSettings::NavigateOnDropEnabled,
        QWebEngineSettings::DnsPrefetchEnabled}) {
    settings.setAttribute(off, false);
  }
  settings.setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
  settings.setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
  // Else an address such as "mailto:" would be handed to the desktop.
  settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

}  // namespace

QWebEngineProfile* NewSession(QObject* parent) {
  auto* session = new QWebEngineProfile(parent);  // without a name: off the record
  session->setUrlRequestInterceptor(new ServersOnly(session));
  QObject::connect(session, &QWebEngineProfile::downloadRequested, session,
                   [](QWebEngineDownloadRequest* download) { download->cancel(); });
  return session;
}

bool IsWebAddress(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == "https" || url.scheme() == "http");
}

SignInPage::SignInPage(QWebEngineProfile* session, QObject* parent) : QWebEnginePage(session, parent) {
  Configure(*settings());
  connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature what) {
    setFeaturePermission(origin, what, PermissionDeniedByUser);
  });
  connect(this, &QWebEnginePage::certificateError, this,
          [](QWebEngineCertificateError error) { error.rejectCertificate(); });
  connect(this, &QWebEnginePage::newWindowRequested, this, [this](const QWebEngineNewWindowRequest& request) {
    if (request.isUserInitiated() && IsWebAddress(request.requestedUrl())) load(request.requestedUrl());
  });
}

void SignInPage::ShowOwn(const QString& html) {
  m_expectsOwn = true;
  setHtml(html);
}

bool SignInPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  if (IsWebAddress(url)) return true;
  const QString scheme = url.scheme();
  if (!isMainFrame) return scheme == "about" || scheme == "data" || scheme == "blob";
  return scheme == "data" && std::exchange(m_expectsOwn, false);
}

}  // namespace quill::sign_in
