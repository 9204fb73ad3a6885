#pragma once
#include <QByteArray>
#include <functional>
#include <memory>
#include <string>

#include "online/online_requests.h"
#include "ui/kit/tool_window.h"
#include "ui/windows/navigation/heading_model.h"

class QCheckBox;

namespace quill::ui {

class FilterList;

/// What the next pane of this run of the program takes over from the last one.
struct NavigationMemory {
  bool keepOnTop = false;
  QByteArray place;  ///< empty before there was one
};

/// What the pane has others do.
struct NavigationHooks {
  std::function<void(const std::string& link)> openLocation;
  std::function<void()> refresh;  ///< looks at the page that is open now and asks for the pane again
};

/// The headings of a page, to stay open beside OneNote. A click or Return opens the heading's paragraph; the
/// one that was opened last is marked and stays in view. F5 looks at the page anew.
class MWinNavigatePane final : public ToolWindow {
  Q_OBJECT

 public:
  MWinNavigatePane(const shell::StringTable& strings, NavigationHooks hooks,
                   std::shared_ptr<NavigationMemory> memory);

  /// Shows the headings of a page in place of the present ones. When it is the same page, filter, mark and
  /// current row stay.
  void SetPage(const online::NavigatePaneRequest& page);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void Lay();
  void TableClick(int row);
  void KeepOnTop(bool keep);
  void Place();

  NavigationHooks m_hooks;
  std::shared_ptr<NavigationMemory> m_memory;
  HeadingModel m_list;
  FilterList* m_tableViewHeadings;
  QCheckBox* m_keepOnTop;
  std::string m_pageClientLink;
  bool m_placed = false;
};

}  // namespace quill::ui
