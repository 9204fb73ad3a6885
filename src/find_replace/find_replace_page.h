#pragma once
#include <QWebEnginePage>

class QWebEngineProfile;

namespace quill::find_replace {

/// A profile in memory whose pages can ask for nothing: every request but for what stands in the page itself
/// (`data:`) is blocked.
QWebEngineProfile* NewProfile(QObject* parent);

/// The engine's page in which a page of the service is drawn. It holds the program's own document, runs
/// scripts of the program only, in a world of their own, and leads nowhere. GUI thread.
class FindReplacePage final : public QWebEnginePage {
  Q_OBJECT
 public:
  FindReplacePage(QWebEngineProfile* profile, QObject* parent);

  /// Loads the empty document with its scripts.
  void LoadOwn();

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
  // May hold the user's texts.
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }

 private:
  bool m_expectsOwn = false;
};

}  // namespace quill::find_replace
