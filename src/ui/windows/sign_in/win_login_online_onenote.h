#pragma once
#include <memory>
#include <string>

#include "online/sign_in.h"
#include "shell/sign_in_request.h"
#include "ui/kit/modal_window.h"
#include "ui/sign_in_view.h"

class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace quill::ui {

class ElidedLabel;
class LoadProblem;
class PagePlace;

/// Shows the pages on which the user signs in with the service, and answers with what the last of them
/// brought. Where the page is from always stands above it, and in the title.
class MWinLoginOnlineOneNote final : public AnswerWindow<online::SignInResult> {
  Q_OBJECT
 public:
  MWinLoginOnlineOneNote(const shell::StringTable& strings, std::unique_ptr<SignInView> view,
                         const shell::SignInRequest& request, Done done);
  ~MWinLoginOnlineOneNote() override;

 private:
  /// Nothing to be read: the pages bring the answer.
  Result<online::SignInResult, Problem> Read() override { return Failure<Problem>{}; }

  QWidget* NewHead();
  void AddKeys();
  void ListenToView();

  void Loading(const std::string& address);
  void Begin();
  void Back();
  void Reload();
  void OnFinished(const QByteArray& url, PageLoad load);
  void OnHost(const QUrl& place);
  void OnProgress(int percent);
  void ShowPage();
  void ShowOutcome(PageLoad load, const QUrl& url);
  void TellProblem(const QString& problem, const QString& hint);
  bool IsRefusal(const QByteArray& url) const;

  const Endpoints m_endpoints;
  online::SignInPages m_pages;
  std::unique_ptr<SignInView> m_view;
  std::string m_start;  ///< where the current part of the sign-in begins
  QPushButton* m_back;
  QPushButton* m_reload;
  PagePlace* m_place;
  ElidedLabel* m_labelShowTitle;
  QProgressBar* m_progress;
  QStackedWidget* m_stack;
  LoadProblem* m_problem;
};

}  // namespace quill::ui
