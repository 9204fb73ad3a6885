#pragma once
#include <string>
#include <vector>

#include "online/notebook_facts.h"
#include "ui/kit/tool_window.h"
#include "ui/windows/notebooks/readable_facts.h"

class QLabel;
class QTreeWidget;

namespace quill::ui {

/// All that the service said about a notebook, in two columns. A click on a link, and Return on any line,
/// copies the value; nothing is opened.
class MWinNotebookInformation final : public ToolWindow {
  Q_OBJECT

 public:
  MWinNotebookInformation(const shell::StringTable& strings, const std::string& notebookName,
                          const std::vector<online::NotebookFact>& facts);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildList();
  void Lay();
  void CopyCurrent();
  void CopyAllFacts();
  void ShowMenu(const QPoint& where);

  std::vector<ReadableFact> m_facts;
  QTreeWidget* m_list;
  QLabel* m_status;
};

}  // namespace quill::ui
