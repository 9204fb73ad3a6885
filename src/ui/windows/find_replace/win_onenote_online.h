#pragma once
#include <QPointer>
#include <memory>
#include <string>
#include <string_view>

#include "online/editor_talk.h"
#include "ui/find_replace_view.h"
#include "ui/kit/tool_window.h"

class QDialogButtonBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace quill::ui {

class ChangeList;
class FindFields;

/// Find and replace in a page of the service: what is replaced is seen at once and saved when the user says
/// so; the last save can be taken back. Its command waits for it until it is closed. Whoever closes it with
/// changes that are not saved is asked.
class MWinOneNoteOnline final : public ToolWindow {
  Q_OBJECT

 public:
  MWinOneNoteOnline(const shell::StringTable& strings, std::unique_ptr<FindReplaceView> view,
                    const online::FindReplaceRequest& request);
  ~MWinOneNoteOnline() override;

  /// However the window is closed.
  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  /// What the window waits for; nothing can be changed meanwhile.
  enum class Work { None, Collecting, Saving, Undoing };

  void Lay();
  QDialogButtonBox* NewButtons();
  void ListenToFields();
  void AddKeys();

  void ShowPage(const std::string& pageHtml);
  void OnState(const PageState& state);
  void OnLost();
  void Mark();
  void Find(SearchDirection direction);
  void Replace();
  void ReplaceAll();
  void RefreshChanges();
  void RefreshJson();

  void Save();
  void Undo();
  void Wish(online::EditorWish wish);
  void OnAnswer(const online::EditorAnswer& answer);

  void UpdateControls();
  void Begin(Work work, std::string_view statusKey);
  void End(std::string_view statusKey);
  void Tell(const QString& text);
  void TellEnd(const PageState& state);

  const shell::StringTable& m_texts;
  std::unique_ptr<FindReplaceView> m_webViewWin;
  std::shared_ptr<online::EditorSeat> m_seat;
  std::string m_pageHtmlContent;  ///< the page that is shown; "" when there is none
  FindFields* m_fields;
  ChangeList* m_changes;
  QLabel* m_status;
  QProgressBar* m_progress;
  QPushButton* m_save = nullptr;
  QPushButton* m_undo = nullptr;
  PageState m_state;
  QPointer<QWidget> m_focusBefore;  ///< what had the keyboard when the work began
  Work m_work = Work::None;
  bool m_canUndo = false;
  bool m_isAsking = false;   ///< whether to close without saving
  bool m_mayClose = false;   ///< the user has said so
  bool m_isListing = false;  ///< the list of changes is on its way
  bool m_listsAgain = false;
};

}  // namespace quill::ui
