#pragma once
#include <QTimer>
#include <QVariantList>
#include <functional>
#include <memory>
#include <vector>

#include "shell/string_table.h"
#include "ui/find_replace_view.h"

class QWebEngineProfile;
class QWebEngineView;

namespace quill::find_replace {

class FindReplacePage;

/// The view on the web engine. Its script (Find.js) reads the page's source itself, so that what is sent is
/// the source as it came; typed texts reach it as quoted literals and never as a part of its code.
class FindReplaceBrowser final : public ui::FindReplaceView {
 public:
  explicit FindReplaceBrowser(const shell::StringTable& strings);
  ~FindReplaceBrowser() override;

  QWidget& Widget() override;
  void OnLost(std::function<void()> lost) override { m_lost = std::move(lost); }
  void Show(const QString& pageHtml, Answered done) override;
  void Mark(const ui::PageSearch& search, Answered done) override;
  void Find(const ui::PageSearch& search, ui::SearchDirection direction, Answered done) override;
  void Replace(const ui::PageSearch& search, const QString& replacement, Answered done) override;
  void ReplaceAll(const ui::PageSearch& search, const QString& replacement, Answered done) override;
  void GoToHighlightPosition() override;
  void Changes(GotChanges got) override;
  void ShowChange(int number) override;
  void GetJson(GotJson got) override;

 private:
  using Got = std::function<void(const QVariant& value)>;

  /// Calls a function of Find.js, in its turn.
  void Call(const char* function, const QVariantList& arguments, Got got);
  /// As above; then tells how the page stands. What is found is what the function returns.
  void CallAndTell(const char* function, const QVariantList& arguments, Answered done);
  void Run(const QString& code, Got got);
  void OnLoaded(bool isLoaded);
  void OnEnd();

  const shell::StringTable& m_strings;
  QWebEngineView* m_view;
  QWebEngineProfile* m_profile;
  FindReplacePage* m_page;
  std::function<void()> m_lost;
  enum class State { Empty, Loading, Ready } m_state = State::Empty;
  std::vector<std::function<void()>> m_waiting;  ///< calls for when the document is there
  int m_round = 0;                               ///< of the shown page; answers of an older one are dropped
  int m_openCalls = 0;
  QTimer m_deadline;
  QTimer m_redraw;  ///< the marks, after the page has moved
  /// Gone before the page calls what scripts still owe.
  std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

}  // namespace quill::find_replace
