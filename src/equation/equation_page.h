#pragma once
#include <QTimer>
#include <QVariant>
#include <QWebEnginePage>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "base/result.h"
#include "tools/equation.h"
#include "ui/equation_view.h"

namespace quill::equation {

/// How a formula went.
struct Typeset {
  QString problem;  ///< MathJax's words, or ours when it did not come to an end
  bool failed = false;
  QVariant result;  ///< of a job that wants one: the MathML, or the list of PNG, width, height
};

/// What a page is asked for.
struct EquationJob {
  QString formula;           ///< plain
  bool wantsResult = false;  ///< else it is a preview, and a later preview takes its place
  std::function<void(const Typeset&)> done;
};

/// One page that stays loaded and typesets one formula after the other. It never navigates, opens no windows,
/// and starts anew by itself when it was lost, when it was too slow, and after a formula that changed how
/// MathJax reads those that follow. Its process is ended when it was too slow: a script that never returns
/// would keep the next load waiting.
class EquationPage final : public QWebEnginePage {
  Q_OBJECT
 public:
  EquationPage(tools::EquationForm form, const ui::EquationOptions& options, QWebEngineProfile* profile,
               QObject* parent);

  /// Does a job after those that wait.
  void Enqueue(EquationJob job);

  /// Loads the page when it is not loaded.
  void Warm();

  void SetColors(const QColor& text, const QColor& background);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }

 private:
  /// Ending: too slow, and its process is about to be gone.
  enum class State { Empty, Loading, Ready, Typesetting, Fetching, Ending };

  void Work();
  void Load();
  void Start(EquationJob job);
  void OnSave();
  void OnAnswer(const QVariantMap& answer);
  void FetchResult();
  void ReadPicture();
  void OnDeadline();
  void OnLost();
  void StartAnew(const char* reason);
  void Finish(const Typeset& typeset);
  void FailAll(const QString& words);
  void RunHere(const QString& code, std::function<void(const QVariant&)> got);
  QString Words(const char* key) const;

  tools::EquationForm m_form;
  const shell::StringTable& m_strings;
  QString m_origin;  ///< where MathJax comes from, for the reader
  std::chrono::milliseconds m_startDeadline;
  std::chrono::milliseconds m_answerDeadline;
  State m_state = State::Empty;
  bool m_isSpent = false;  ///< the formula on it may have changed the page's MathJax
  int m_number = 0;        ///< of the current job
  int m_round = 0;         ///< of the loaded page; late answers of an older one are passed over
  std::optional<EquationJob> m_job;
  std::deque<EquationJob> m_waiting;
  std::optional<QString> m_preview;  ///< the formula to show again should an idle page be lost
  QTimer m_deadline;
  QString m_colors;
  /// Gone before the base class calls what scripts still owe.
  std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

}  // namespace quill::equation
