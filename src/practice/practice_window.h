#pragma once
#include <QMainWindow>
#include <QTimer>
#include <QVariant>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "platform/practice/practice_target.h"
#include "practice/folder_watch.h"
#include "practice/link_parts.h"
#include "practice/page_clipboard.h"
#include "practice/page_link.h"
#include "practice/page_store.h"
#include "shell/string_table.h"

class QLabel;

namespace quill::practice {

class PageTree;
class PageView;

/// The practice notebook's window: pages on the left, one editable page, a tool bar, and a line that says
/// what happened. GUI thread. Changes are saved as they are made; what others change in the notebook's folder
/// is shown as it comes, and where both have changed a page the last to write it wins.
class PracticeWindow final : public QMainWindow {
  Q_OBJECT
 public:
  using Outcome = std::function<void(platform::ScriptProblem)>;

  PracticeWindow(PageStore store, LinkBase links, const shell::StringTable& strings);
  ~PracticeWindow() override;

  PageView& View() { return *m_view; }

  /// Shows the window in front, keyboard on the page; `done` when the page is loaded.
  void Open(Outcome done);

  /// Presses keys as `PracticeTarget::Press` describes; `done` when the page has handled them.
  void Press(const platform::practice::Keys& keys, Outcome done);

  /// Opens the page that a test on its entry picks; `TargetMissing` without such a page.
  void OpenPage(const std::function<bool(const PageEntry&)>& wanted, Outcome done);

  /// Opens the page that a link leads to, or the first one of its section when it names no page.
  void OpenTarget(const LinkTarget& target, Outcome done);

  /// Caret to the paragraph of the open page that the object id of a client link means. Without such a
  /// paragraph nothing happens, and that is no problem.
  void JumpTo(const std::string& objectId, Outcome done);

  const std::filesystem::path& Folder() const { return m_store.Folder(); }
  const QString& DocumentHost() const { return m_links.documentHost; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct OpenedPage {
    int key = 0;
    PageAddress address;
    Page page;      ///< as it is on disk, as far as is known
    int edits = 0;  ///< so many changes of the user's are in it, or on their way to the disk
  };
  struct UnsavedPage {
    OpenedPage opened;
    Page page;
  };

  void MakeToolBar();
  void MakeActions();
  QAction* AddAction(const char* textKey, const QList<QKeySequence>& keys, std::function<void()> action);
  void Say(std::string_view key, const std::vector<std::string>& arguments = {});
  void Ask(std::string_view key, const std::vector<std::string>& arguments, std::function<void()> yes);
  void SayClipboard(ClipboardOutcome outcome, std::string_view doneKey);
  Outcome Quietly() const;

  void Load(const PageAddress& address, Outcome done);
  void OpenFirstPage();
  void Refresh();
  void TakeChanges();
  void Note(const OpenedPage& opened, const QVariantMap& changes);
  void SaveNow();
  void Settle(std::function<void(bool)> then);
  void Forget();

  void LookAtDisk();
  void ShowFromDisk(const PageAddress& address, const Page& page);
  void LeaveLostPage();

  void FollowLink(const QString& address);
  void FollowLinkAtCaret();
  void HintAt(const QString& address);

  void Copy(Outcome done);
  void Cut(Outcome done);
  void Paste(Outcome done);
  void CopyLink(Outcome done);
  void NewPage(Outcome done);
  void DeletePage();
  void ResetPages();
  void CallPage(const char* function, const QVariantList& arguments, Outcome done);

  PageStore m_store;
  LinkBase m_links;
  const shell::StringTable& m_strings;
  PageView* m_view;
  PageTree* m_tree;
  QLabel* m_status;
  PageClipboard m_clipboard;
  int m_lastKey = 0;
  std::optional<OpenedPage> m_open;
  std::optional<UnsavedPage> m_unsaved;
  std::optional<Page> m_lastSaved;
  std::vector<PageEntry> m_listed;
  int m_forgottenKey = 0;  ///< late changes told under keys up to this one are of no interest
  QTimer m_saveTimer;
  FolderWatch m_watch;
};

}  // namespace quill::practice
