#include "equation/mathjax_source.h"

#include <QBuffer>
#include <QFile>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include "tools/latex_page.h"
#include "tools/mathjax_folder.h"

namespace quill::equation {
namespace {

constexpr const char* kScheme = "quill-equation";
constexpr const char* kHost = "pages";
constexpr const char* kNativePath = "/native.html";
constexpr const char* kPicturePath = "/picture.html";
constexpr int kMostNoted = 100;  // a page that asks in a loop must not fill the memory

QUrl Address(const QString& path) {
  QUrl url;
  url.setScheme(kScheme);
  url.setHost(kHost);
  url.setPath(path);
  return url;
}

QByteArray MediaType(const QString& path) {
  if (path.endsWith(".js")) return "text/javascript";
  if (path.endsWith(".woff")) return "font/woff";
  return "application/octet-stream";
}

void Note(QStringList& list, const QString& text) {
  if (list.size() < kMostNoted) list += text;
}

}  // namespace

void RegisterEquationScheme() {
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
  scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
  QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl PageAddress(tools::EquationForm form) {
  return Address(form == tools::EquationForm::Native ? kNativePath : kPicturePath);
}

MathJaxSource::MathJaxSource(std::filesystem::path folder, const QString& network, QObject* parent)
    : QWebEngineUrlSchemeHandler(parent),
      m_folder(std::move(folder)),
      m_base((network.isEmpty() ? Address("").toString() : network).toStdString()) {}

void MathJaxSource::requestStarted(QWebEngineUrlRequestJob* job) {
  const QString path = job->requestUrl().path(QUrl::FullyDecoded);
  for (const auto form : {tools::EquationForm::Native, tools::EquationForm::Picture}) {
    if (job->requestUrl() != PageAddress(form)) continue;
    auto* page = new QBuffer(job);
    page->setData(QByteArray::fromStdString(tools::LatexHtmlFromStr("", form, m_base)));
    job->reply("text/html", page);
    return;
  }
  AnswerFile(*job, path);
}

void MathJaxSource::AnswerFile(QWebEngineUrlRequestJob& job, const QString& path) {
  const auto name = tools::MathJaxFile(m_folder, path.toStdString());
  auto* file = name ? new QFile(QString::fromStdString(name->string()), &job) : nullptr;
  if (file && file->open(QFile::ReadOnly)) {
    job.reply(MediaType(path), file);
    return;
  }
  Note(m_missing, path);
  job.fail(QWebEngineUrlRequestJob::UrlNotFound);
}

RequestGuard::RequestGuard(const QString& network, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent), m_network(network) {}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& info) {
  const QUrl url = info.requestUrl();
  const bool isOwn = url.scheme() == kScheme && url.host() == kHost;
  const bool isNetwork = m_network.scheme() == "https" && url.scheme() == "https" && !url.host().isEmpty() &&
                         url.host() == m_network.host() && url.port(443) == m_network.port(443);
  if (isOwn || isNetwork || url.scheme() == "data") return;
  info.block(true);
  Note(m_refused, url.toString());
}

}  // namespace quill::equation
