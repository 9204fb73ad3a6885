#pragma once
#include <QWebEnginePage>

class QWebEngineProfile;

namespace quill::sign_in {

/// A profile whose cookies, cache and storage are in memory and end with it. Its pages ask servers only, and
/// what they want to download is dropped.
QWebEngineProfile* NewSession(QObject* parent);

/// Whether an address is one that the page may show: http or https.
bool IsWebAddress(const QUrl& url);

/// A page of a sign-in. It may do what a login needs and nothing beyond its own view; what it would open in a
/// window of its own comes into the view instead, when the user has asked for it. GUI thread.
class SignInPage final : public QWebEnginePage {
  Q_OBJECT
 public:
  SignInPage(QWebEngineProfile* session, QObject* parent);

  /// Shows HTML of the program's own.
  void ShowOwn(const QString& html);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
  // What a page of the service says to its makers may hold secrets of the user.
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }

 private:
  bool m_expectsOwn = false;
};

}  // namespace quill::sign_in
