#include "ui/windows/options/win_options.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/account_page.h"
#include "ui/windows/options/general_page.h"
#include "ui/windows/options/hot_keys_field.h"
#include "ui/windows/options/hot_keys_page.h"
#include "ui/windows/options/pages_page.h"
#include "ui/windows/options/tools_page.h"

namespace quill::ui {
namespace {

constexpr int kWidthInCharacters = 100;
constexpr int kHeightInLines = 35;

/// A page that scrolls where the screen is too small for it.
QScrollArea* NewScrollArea(OptionPage* page) {
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(page);
  area->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  return area;
}

}  // namespace

MWinOptions::MWinOptions(const shell::StringTable& strings, OptionsFacts facts, OptionsHandlers handlers,
                         Page page)
    : ToolWindow(strings, "titleOptions"),
      m_desk(OptionsDesk::Make(strings, std::move(facts), std::move(handlers))) {
  m_desk->Listen([this](std::string_view key, const std::string& problem) { OnFinished(key, problem); });
  new QVBoxLayout(this);
  AddPageKeys();
  Build(page);
  resize(fontMetrics().averageCharWidth() * kWidthInCharacters, fontMetrics().lineSpacing() * kHeightInLines);
}

MWinOptions::~MWinOptions() {
  m_desk->Listen(nullptr);
  delete m_body;  // its pages use the desk, which only lives on when a change is under way
}

void MWinOptions::Build(Page page) {
  setWindowTitle(Text("titleOptions"));
  m_body = new QWidget;
  m_tabs = new QTabWidget;
  AddPage(Page::General, new GeneralPage(*m_desk), "strOptionsPageGeneral");
  AddPage(Page::Pages, new PagesPage(*m_desk), "strOptionsPagePages");
  AddPage(Page::Tools, new ToolsPage(*m_desk), "strOptionsPageTools");
  AddPage(Page::HotKeys, m_hotKeys = new HotKeysPage(*m_desk), "strOptionsPageHotKeys");
  AddPage(Page::Account, new AccountPage(*m_desk), "strOptionsPageAccount");
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  close->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  QSet<QChar> taken;
  for (int i = 0; i < m_tabs->count(); ++i) m_tabs->setTabText(i, WithMnemonic(m_tabs->tabText(i), taken));
  close->setText(WithMnemonic(close->text(), taken));
  for (OptionPage* one : m_pages) AssignMnemonics(*one, taken);

  auto* column = new QVBoxLayout(m_body);
  column->setContentsMargins({});
  column->addWidget(m_tabs, 1);
  column->addWidget(buttons);
  layout()->addWidget(m_body);
  ShowPage(page);
}

void MWinOptions::AddPage(Page page, OptionPage* content, std::string_view titleKey) {
  m_pages[static_cast<std::size_t>(page)] = content;
  m_tabs->addTab(NewScrollArea(content), Text(titleKey));
}

void MWinOptions::AddPageKeys() {
  const auto add = [this](const QList<QKeySequence>& keys, int steps) {
    for (const QKeySequence& key : keys) {
      connect(new QShortcut(key, this), &QShortcut::activated, this, [this, steps] { Turn(steps); });
    }
  };
  // Control+Tab is the tabs' own key.
  add({QKeySequence(Qt::CTRL | Qt::Key_PageDown)}, 1);
  add({QKeySequence(Qt::CTRL | Qt::Key_PageUp)}, -1);
}

void MWinOptions::Turn(int steps) {
  m_tabs->setCurrentIndex((m_tabs->currentIndex() + steps + m_tabs->count()) % m_tabs->count());
}

MWinOptions::Page MWinOptions::CurrentPage() const {
  return static_cast<Page>(m_tabs->currentIndex());
}

void MWinOptions::ShowPage(Page page) {
  m_tabs->setCurrentIndex(static_cast<int>(page));
}

void MWinOptions::Update(const OptionsFacts& facts) {
  m_desk->Take(facts);
  for (OptionPage* page : m_pages) page->Refresh();
}

void MWinOptions::Retranslate() {
  Commit();
  const Page page = CurrentPage();
  const QWidget* focus = focusWidget();
  const QString focused = focus != nullptr ? focus->objectName() : QString();
  // Not destroyed here: it may be a signal of one of its controls that has led to this.
  layout()->removeWidget(m_body);
  m_body->hide();
  m_body->deleteLater();
  Build(page);
  QWidget* again = focused.isEmpty() ? nullptr : m_body->findChild<QWidget*>(focused);
  (again != nullptr ? again : m_tabs->tabBar())->setFocus();
}

bool MWinOptions::TakePressedHotKey(const shell::CommandRow& row) {
  return m_hotKeys->field().TakePressed(row);
}

void MWinOptions::Commit() {
  for (OptionPage* page : m_pages) {
    for (SettingField* field : page->fields()) field->Commit();
  }
}

void MWinOptions::done(int result) {
  m_desk->Listen(nullptr);  // what goes wrong from here on is told elsewhere
  Commit();
  ToolWindow::done(result);
}

void MWinOptions::changeEvent(QEvent* event) {
  ToolWindow::changeEvent(event);
  // The preview's day may have passed while the window was in the background.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    for (OptionPage* page : m_pages) page->Refresh();
  }
}

void MWinOptions::OnFinished(std::string_view key, const std::string& problem) {
  for (OptionPage* page : m_pages) {
    for (SettingField* field : page->fields()) {
      if (field->key() != key) continue;
      problem.empty() ? field->Refresh() : field->Refuse(problem);
    }
  }
}

}  // namespace quill::ui
