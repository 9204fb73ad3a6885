#pragma once
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>
#include <filesystem>

#include "tools/equation.h"

namespace quill::equation {

/// Makes the equations' address scheme known to the engine. Must be called before the first view of any kind.
void RegisterEquationScheme();

/// The address of the page for one form.
QUrl PageAddress(tools::EquationForm form);

/// Answers the equations' own addresses: the two pages, and MathJax's files from a folder.
class MathJaxSource final : public QWebEngineUrlSchemeHandler {
  Q_OBJECT
 public:
  /// `network` is the address MathJax is loaded from ("https://host"), or empty for the folder's files.
  MathJaxSource(std::filesystem::path folder, const QString& network, QObject* parent);

  void requestStarted(QWebEngineUrlRequestJob* job) override;

  /// What the pages asked for and is not there.
  const QStringList& Missing() const { return m_missing; }

 private:
  void AnswerFile(QWebEngineUrlRequestJob& job, const QString& path);

  std::filesystem::path m_folder;
  std::string m_base;
  QStringList m_missing;
};

/// Blocks every request but those to the own addresses, to data inside the page, and to one network host.
class RequestGuard final : public QWebEngineUrlRequestInterceptor {
  Q_OBJECT
 public:
  RequestGuard(const QString& network, QObject* parent);

  void interceptRequest(QWebEngineUrlRequestInfo& info) override;

  const QStringList& Refused() const { return m_refused; }

 private:
  QUrl m_network;
  QStringList m_refused;
};

}  // namespace quill::equation
