#pragma once
#include <functional>
#include <string>

#include "online/online_requests.h"
#include "ui/kit/tool_window.h"
#include "ui/windows/notebooks/notebook_model.h"

class QAction;
class QLabel;
class QMenu;

namespace quill::ui {

class FilterList;

/// What the notebook list has others do.
struct NotebookHooks {
  std::function<void(const std::string& link)> openLocation;
  std::function<void(const std::string& text)> tell;  ///< an alert
};

/// The user's notebooks and the recent ones that are gone: opens them, copies their links, tells what is
/// known about them. The actions are in the menu of a row, and have keys.
class MWinNotebook final : public ToolWindow {
  Q_OBJECT

 public:
  MWinNotebook(const shell::StringTable& strings, NotebookHooks hooks);

  /// Shows these lists in place of the present ones.
  void SetLists(const online::NotebookListRequest& lists);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddActions();
  void Lay();
  /// An action of the row menu, with a name for tests and keys that work in the list.
  QAction* AddRowAction(const char* name, std::string_view titleKey, const QKeySequence& keys,
                        void (MWinNotebook::*run)());
  void UpdateActions();
  const online::NotebookRow* CurrentRow() const;
  void TableClick();
  void MenuCopyClientLinkClick();
  void MenuCopyWebLinkClick();
  void MenuNotebookInformationClick();
  void Copy(const std::string& link);

  const shell::StringTable& m_texts;
  NotebookHooks m_hooks;
  online::NotebookListRequest m_json;
  NotebookModel m_notebookList;
  FilterList* m_tableViewNotebooks;
  QMenu* m_menu;
  QAction* m_open = nullptr;
  QAction* m_copyClientLink = nullptr;
  QAction* m_copyWebLink = nullptr;
  QAction* m_information = nullptr;
  QLabel* m_status;
};

}  // namespace quill::ui
