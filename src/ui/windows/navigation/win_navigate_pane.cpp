#include "ui/windows/navigation/win_navigate_pane.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/kit/filter_list.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/navigation/heading_delegate.h"

namespace quill::ui {

MWinNavigatePane::MWinNavigatePane(const shell::StringTable& strings, NavigationHooks hooks,
                                   std::shared_ptr<NavigationMemory> memory)
    : ToolWindow(strings, "titleNavigationPane"),
      m_hooks(std::move(hooks)),
      m_memory(std::move(memory)),
      m_list(strings),
      m_tableViewHeadings(new FilterList(m_list, new HeadingDelegate, FilterList::Click::Single,
                                         {Text("strNavigationFilter"), Text("strNavigationHeadings"),
                                          Text("strNavigationNoHeadings"), Text("strNavigationNotFound")})),
      m_keepOnTop(new QCheckBox(Text("strNavigationKeepOnTop"))) {
  setObjectName(QStringLiteral("navigatePane"));
  setWindowFlag(Qt::WindowStaysOnTopHint, m_memory->keepOnTop);
  m_keepOnTop->setChecked(m_memory->keepOnTop);
  connect(m_keepOnTop, &QCheckBox::toggled, this, &MWinNavigatePane::KeepOnTop);
  connect(m_tableViewHeadings, &FilterList::Chosen, this, &MWinNavigatePane::TableClick);
  Lay();
  AssignMnemonics(*this, {});
  m_tableViewHeadings->setFocus();
  resize(fontMetrics().averageCharWidth() * 44, fontMetrics().lineSpacing() * 30);
}

void MWinNavigatePane::Lay() {
  auto* refresh = new QPushButton(Text("strRefresh"));
  refresh->setAutoDefault(false);
  refresh->setToolTip(Text("strNavigationRefreshHelp"));
  connect(refresh, &QPushButton::clicked, this, [this] { m_hooks.refresh(); });
  auto* key = new QShortcut(this);
  key->setKeys({QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_R)});
  connect(key, &QShortcut::activated, this, [this] { m_hooks.refresh(); });
  auto* row = new QHBoxLayout;
  row->addWidget(m_keepOnTop);
  row->addStretch(1);
  row->addWidget(refresh);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_tableViewHeadings, 1);
  column->addLayout(row);
}

void MWinNavigatePane::SetPage(const online::NavigatePaneRequest& page) {
  const bool isSame = page.pageClientLink == m_pageClientLink;
  m_pageClientLink = page.pageClientLink;
  setWindowTitle(page.pageTitle.empty() ? Text("titleNavigationPane")
                                        : Format("titleNavigationPaneOf", {page.pageTitle})
                                              .replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
  const int current = m_tableViewHeadings->Current();
  if (!isSame) m_list.MarkOpened(-1);
  m_list.SetHeadings(page.headings);
  m_tableViewHeadings->SetHome(m_list.Opened());
  if (!isSame) m_tableViewHeadings->ClearFilter();
  m_tableViewHeadings->Refresh(isSame ? current : 0);
}

void MWinNavigatePane::TableClick(int row) {
  const std::string link = m_list.Link(row);
  if (link.empty()) return;
  m_list.MarkOpened(row);
  m_tableViewHeadings->SetHome(row);
  m_tableViewHeadings->TellCurrent();
  m_hooks.openLocation(link);
}

/// The window's own flag is changed where the system allows that on a visible one: Qt's way hides it first.
void MWinNavigatePane::KeepOnTop(bool keep) {
  m_memory->keepOnTop = keep;
  overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, keep));
  if (windowHandle() != nullptr) windowHandle()->setFlag(Qt::WindowStaysOnTopHint, keep);
}

void MWinNavigatePane::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && m_tableViewHeadings->ClearFilter()) return;
  ToolWindow::keyPressEvent(event);
}

void MWinNavigatePane::showEvent(QShowEvent* event) {
  ToolWindow::showEvent(event);
  if (event->spontaneous() || m_placed) return;
  m_placed = true;
  Place();
}

/// Where the last one was; the first one stands at the edge of the screen, beside what one reads.
void MWinNavigatePane::Place() {
  if (!m_memory->place.isEmpty() && restoreGeometry(m_memory->place)) return;
  const QRect room = screen()->availableGeometry();
  const int gap = fontMetrics().lineSpacing();
  const int x = layoutDirection() == Qt::RightToLeft ? room.left() + gap : room.right() - width() - gap;
  move(std::max(room.left(), x), y());
}

void MWinNavigatePane::hideEvent(QHideEvent* event) {
  m_memory->place = saveGeometry();
  ToolWindow::hideEvent(event);
}

}  // namespace quill::ui
