#include "ui/windows/notebooks/win_notebook.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "online/notebook_facts.h"
#include "ui/kit/filter_list.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/notebooks/notebook_delegate.h"
#include "ui/windows/notebooks/win_notebook_information.h"
#include "ui/windows/plain_text_view.h"

namespace quill::ui {

MWinNotebook::MWinNotebook(const shell::StringTable& strings, NotebookHooks hooks)
    : ToolWindow(strings, "titleNotebooks"),
      m_texts(strings),
      m_hooks(std::move(hooks)),
      m_notebookList(strings),
      m_tableViewNotebooks(new FilterList(m_notebookList, new NotebookDelegate, FilterList::Click::Double,
                                          {Text("strNotebooksFilter"), Text("titleNotebooks"),
                                           Text("strNotebooksNone"), Text("strNotebooksNotFound")})),
      m_menu(new QMenu(this)),
      m_status(new QLabel) {
  setObjectName(QStringLiteral("notebooks"));
  AddActions();
  Lay();
  connect(m_tableViewNotebooks, &FilterList::Chosen, this, &MWinNotebook::TableClick);
  connect(m_tableViewNotebooks, &FilterList::CurrentChanged, this, &MWinNotebook::UpdateActions);
  connect(m_tableViewNotebooks, &FilterList::MenuWanted, this,
          [this](const QPoint& where) { m_menu->popup(where); });
  UpdateActions();
  m_tableViewNotebooks->setFocus();
  resize(fontMetrics().averageCharWidth() * 64, fontMetrics().lineSpacing() * 24);
}

QAction* MWinNotebook::AddRowAction(const char* name, std::string_view titleKey, const QKeySequence& keys,
                                    void (MWinNotebook::*run)()) {
  auto* action = new QAction(Text(titleKey), this);
  action->setObjectName(QLatin1String(name));
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WindowShortcut);
  connect(action, &QAction::triggered, this, run);
  m_menu->addAction(action);
  addAction(action);
  return action;
}

void MWinNotebook::AddActions() {
  m_open = AddRowAction("rowOpen", "menuNotebookOpen", QKeySequence(Qt::CTRL | Qt::Key_O),
                        &MWinNotebook::TableClick);
  m_copyClientLink = AddRowAction("rowCopyClientLink", "menuNotebookCopyClientLink",
                                  QKeySequence(Qt::CTRL | Qt::Key_L), &MWinNotebook::MenuCopyClientLinkClick);
  m_copyWebLink =
      AddRowAction("rowCopyWebLink", "menuNotebookCopyWebLink",
                   QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L), &MWinNotebook::MenuCopyWebLinkClick);
  m_information =
      AddRowAction("rowInformation", "menuNotebookInformation", QKeySequence(Qt::CTRL | Qt::Key_I),
                   &MWinNotebook::MenuNotebookInformationClick);
  m_menu->setDefaultAction(m_open);
  QSet<QChar> taken;
  for (QAction* action : m_menu->actions()) action->setText(WithMnemonic(action->text(), taken));
}

void MWinNotebook::Lay() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  QPushButton* information =
      buttons->addButton(Text("menuNotebookInformation"), QDialogButtonBox::ActionRole);
  QPushButton* open = buttons->addButton(Text("menuNotebookOpen"), QDialogButtonBox::ActionRole);
  // Return in the field and in the list opens; no button may take it.
  for (QPushButton* button : {open, information, close}) button->setAutoDefault(false);
  const auto stands = [](QPushButton* button, QAction* action) {
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, button, [button, action] { button->setEnabled(action->isEnabled()); });
  };
  stands(open, m_open);
  stands(information, m_information);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  m_status->setObjectName(QStringLiteral("status"));
  auto* row = new QHBoxLayout;
  row->addWidget(m_status);
  row->addWidget(buttons, 1);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_tableViewNotebooks, 1);
  column->addLayout(row);
  AssignMnemonics(*this, {});
}

void MWinNotebook::SetLists(const online::NotebookListRequest& lists) {
  m_json = lists;
  m_tableViewNotebooks->ClearFilter();
  m_notebookList.SetRows(online::Json2NotebookListView(lists.notebooksBody, lists.recentBody));
  m_tableViewNotebooks->Refresh(0);
}

const online::NotebookRow* MWinNotebook::CurrentRow() const {
  const int row = m_tableViewNotebooks->Current();
  return row < 0 ? nullptr : &m_notebookList.Row(row);
}

void MWinNotebook::UpdateActions() {
  const online::NotebookRow* row = CurrentRow();
  const bool isDeleted = row != nullptr && row->kind == online::NotebookKind::Deleted;
  m_open->setEnabled(row != nullptr && (isDeleted || !row->clientLink.empty()));
  m_copyClientLink->setEnabled(row != nullptr && !row->clientLink.empty());
  m_copyWebLink->setEnabled(row != nullptr && !row->webLink.empty());
  m_information->setEnabled(row != nullptr);
  m_status->clear();
}

void MWinNotebook::TableClick() {
  const online::NotebookRow* row = CurrentRow();
  if (row == nullptr) return;
  if (row->kind == online::NotebookKind::Deleted) return m_hooks.tell(FromQt(Text("msgNotebookDeleted")));
  if (!row->clientLink.empty()) m_hooks.openLocation(row->clientLink);
}

void MWinNotebook::MenuCopyClientLinkClick() {
  if (const online::NotebookRow* row = CurrentRow()) Copy(row->clientLink);
}

void MWinNotebook::MenuCopyWebLinkClick() {
  if (const online::NotebookRow* row = CurrentRow()) Copy(row->webLink);
}

void MWinNotebook::Copy(const std::string& link) {
  if (link.empty()) return;
  CopyText(ToQt(link));
  m_status->setText(Text("strCopied"));
}

void MWinNotebook::MenuNotebookInformationClick() {
  const int row = m_tableViewNotebooks->Current();
  if (row < 0) return;
  const auto facts =
      online::NotebookFactsOfRow(m_json.notebooksBody, m_json.recentBody, static_cast<std::size_t>(row));
  BringToFront(*new MWinNotebookInformation(m_texts, m_notebookList.Row(row).name, facts));
}

void MWinNotebook::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && m_tableViewNotebooks->ClearFilter()) return;
  ToolWindow::keyPressEvent(event);
}

}  // namespace quill::ui
