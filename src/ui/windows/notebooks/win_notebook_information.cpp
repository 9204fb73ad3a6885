#include "ui/windows/notebooks/win_notebook_information.h"

#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/notebooks/fact_delegate.h"
#include "ui/windows/plain_text_view.h"

namespace quill::ui {

MWinNotebookInformation::MWinNotebookInformation(const shell::StringTable& strings,
                                                 const std::string& notebookName,
                                                 const std::vector<online::NotebookFact>& facts)
    : ToolWindow(strings, "titleNotebookInformation"),
      m_facts(ReadableFacts(strings, facts)),
      m_list(new QTreeWidget),
      m_status(new QLabel) {
  setObjectName(QStringLiteral("notebookInformation"));
  if (!notebookName.empty()) {
    setWindowTitle(Format("titleNotebookInformationOf", {notebookName})
                       .replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
  }
  BuildList();
  Lay();
  AssignMnemonics(*this, {});
  m_list->setFocus();
  resize(fontMetrics().averageCharWidth() * 84, fontMetrics().lineSpacing() * 26);
}

void MWinNotebookInformation::BuildList() {
  m_list->setColumnCount(2);
  m_list->setItemDelegate(new FactDelegate(m_list));
  m_list->setRootIsDecorated(false);
  m_list->setAllColumnsShowFocus(true);
  m_list->setAlternatingRowColors(true);
  m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_list->setAccessibleName(Text("strFacts"));
  m_list->installEventFilter(this);
  for (const ReadableFact& fact : m_facts) {
    auto* line = new QTreeWidgetItem(m_list, {fact.name, fact.value});
    line->setData(1, FactDelegate::LinkRole, fact.isLink);
    line->setData(0, Qt::AccessibleTextRole, QString(fact.name + QStringLiteral(": ") + fact.value));
  }
  m_list->setCurrentItem(m_list->topLevelItem(0));
  QHeaderView* header = m_list->header();
  header->hide();
  header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(1, QHeaderView::Stretch);
  // Values are broken into lines: another width means other heights.
  auto* again = new QTimer(this);
  again->setSingleShot(true);
  again->setInterval(0);
  connect(again, &QTimer::timeout, m_list, [this] { m_list->doItemsLayout(); });
  connect(header, &QHeaderView::sectionResized, again, qOverload<>(&QTimer::start));
  connect(m_list, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* line, int column) {
    if (line->data(column, FactDelegate::LinkRole).toBool()) CopyCurrent();
  });
  connect(m_list, &QTreeWidget::currentItemChanged, m_status, &QLabel::clear);
}

void MWinNotebookInformation::Lay() {
  auto* nothing = new QLabel(Text("strFactsNone"));
  nothing->setWordWrap(true);
  nothing->setVisible(m_facts.empty());
  m_list->setVisible(!m_facts.empty());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  QPushButton* copy = buttons->addButton(Text("strFactCopyValue"), QDialogButtonBox::ActionRole);
  QPushButton* copyAll = buttons->addButton(Text("strCopyAll"), QDialogButtonBox::ActionRole);
  for (QPushButton* button : {copy, copyAll, close}) button->setAutoDefault(false);
  for (QPushButton* button : {copy, copyAll}) button->setEnabled(!m_facts.empty());
  connect(copy, &QPushButton::clicked, this, &MWinNotebookInformation::CopyCurrent);
  connect(copyAll, &QPushButton::clicked, this, &MWinNotebookInformation::CopyAllFacts);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  m_status->setObjectName(QStringLiteral("status"));
  auto* row = new QHBoxLayout;
  row->addWidget(m_status);
  row->addWidget(buttons, 1);
  auto* column = new QVBoxLayout(this);
  column->addWidget(nothing, 1, Qt::AlignTop);
  column->addWidget(m_list, 1);
  column->addLayout(row);
}

bool MWinNotebookInformation::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_list && event->type() == QEvent::ContextMenu) {
    const auto& wanted = static_cast<const QContextMenuEvent&>(*event);
    const bool byKey = wanted.reason() == QContextMenuEvent::Keyboard;
    const QRect line = m_list->visualItemRect(m_list->currentItem());
    ShowMenu(byKey ? m_list->viewport()->mapToGlobal(line.center()) : wanted.globalPos());
    return true;
  }
  if (watched == m_list && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (isReturn || key->matches(QKeySequence::Copy)) return CopyCurrent(), true;
  }
  return ToolWindow::eventFilter(watched, event);
}

void MWinNotebookInformation::ShowMenu(const QPoint& where) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(Text("strFactCopyValue"), this, &MWinNotebookInformation::CopyCurrent);
  menu->addAction(Text("strCopyAll"), this, &MWinNotebookInformation::CopyAllFacts);
  menu->popup(where);
}

void MWinNotebookInformation::CopyCurrent() {
  const int line = m_list->indexOfTopLevelItem(m_list->currentItem());
  if (line < 0) return;
  CopyText(m_facts[static_cast<std::size_t>(line)].value);
  m_status->setText(Text("strCopied"));
}

void MWinNotebookInformation::CopyAllFacts() {
  QString all;
  for (const ReadableFact& fact : m_facts) all += fact.name + QStringLiteral(": ") + fact.value + u'\n';
  CopyText(all);
  m_status->setText(Text("strCopied"));
}

}  // namespace quill::ui
