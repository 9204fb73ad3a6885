#include "practice/practice_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QSplitter>
#include <QStatusBar>
#include <QVariantMap>
#include <utility>

#include "practice/page_tree.h"
#include "practice/page_view.h"
#include "ui/kit/qt_text.h"

namespace quill::practice {
namespace {

using platform::ScriptProblem;

constexpr auto kSavePause = std::chrono::milliseconds(300);

}  // namespace

PracticeWindow::PracticeWindow(PageStore store, LinkBase links, const shell::StringTable& strings)
    : m_store(std::move(store)),
      m_links(std::move(links)),
      m_strings(strings),
      m_view(new PageView),
      m_tree(new PageTree(strings)),
      m_status(new QLabel),
      m_clipboard(*m_view, m_store.Folder() / ".clipboard"),
      m_watch(m_store.Folder()) {
  setWindowTitle(ui::ToQt(strings.Text("menuPracticeNotebook")));
  resize(1080, 720);
  auto* splitter = new QSplitter(this);
  splitter->addWidget(m_tree);
  splitter->addWidget(m_view);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({220, 860});
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(1);
  setCentralWidget(splitter);
  statusBar()->addWidget(m_status, 1);
  m_status->setTextFormat(Qt::PlainText);
  MakeActions();
  MakeToolBar();

  const auto choose = [this](const QString& section, const QString& name) {
    Load({section.toStdString(), name.toStdString()}, Quietly());
  };
  connect(m_tree, &PageTree::Chosen, this, choose, Qt::QueuedConnection);  // the list may be made anew
  m_saveTimer.setSingleShot(true);
  m_saveTimer.setInterval(kSavePause);
  connect(&m_saveTimer, &QTimer::timeout, this, &PracticeWindow::SaveNow);
  connect(&m_view->Host(), &PageHost::HasChanged, this, &PracticeWindow::TakeChanges);
  connect(&m_view->Host(), &PageHost::WantsClipboard, this, [this](const QString& kind) {
    if (kind == "copy") Copy(Quietly());
    if (kind == "cut") Cut(Quietly());
    if (kind == "paste") Paste(Quietly());
  });
  connect(&m_view->Host(), &PageHost::WantsLink, this, &PracticeWindow::FollowLink);
  connect(&m_view->Host(), &PageHost::IsOverLink, this, &PracticeWindow::HintAt);
  connect(&m_watch, &FolderWatch::Changed, this, &PracticeWindow::LookAtDisk);
  connect(m_view, &PageView::Lost, this, [this] {
    if (!m_open) return;
    const PageAddress address = std::exchange(m_open, std::nullopt)->address;
    Load(address, Quietly());
  });
  OpenFirstPage();
}

PracticeWindow::~PracticeWindow() {
  SaveNow();
  delete m_view;  // answers the calls that are still open, which need the rest of the window
}

PracticeWindow::Outcome PracticeWindow::Quietly() const {
  return [](ScriptProblem) {};
}

void PracticeWindow::Say(std::string_view key, const std::vector<std::string>& arguments) {
  m_status->setText(ui::ToQt(m_strings.Format(key, arguments)));
}

void PracticeWindow::Open(Outcome done) {
  isMinimized() ? showNormal() : show();
  raise();
  activateWindow();
  m_view->setFocus();
  CallPage("takeFocus", {}, std::move(done));
}

void PracticeWindow::CallPage(const char* function, const QVariantList& arguments, Outcome done) {
  m_view->Call(function, arguments, [done = std::move(done)](const QVariant& answer) {
    done(answer.isValid() ? ScriptProblem::None : ScriptProblem::NoAnswer);
  });
}

void PracticeWindow::OpenFirstPage() {
  const std::vector<PageEntry> pages = m_store.Pages();
  if (pages.empty()) return NewPage(Quietly());
  Load(pages.front().address, Quietly());
}

void PracticeWindow::OpenPage(const std::function<bool(const PageEntry&)>& wanted, Outcome done) {
  for (const PageEntry& entry : m_store.Pages()) {
    if (wanted(entry)) return Load(entry.address, std::move(done));
  }
  done(ScriptProblem::TargetMissing);
}

/// Shows a page; the changes of the one that was open until now come back and are saved.
void PracticeWindow::Load(const PageAddress& address, Outcome done) {
  if (m_open && m_open->address == address) return CallPage("takeFocus", {}, std::move(done));
  SaveNow();
  const Result<Page> page = m_store.Load(address);
  if (!page.ok()) {
    Say("errPracticeOpen", {page.error()});
    return done(ScriptProblem::TargetMissing);
  }
  const std::optional<OpenedPage> before = m_open;
  m_open = OpenedPage{++m_lastKey, address, *page};
  Refresh();
  m_view->Call("show", {m_lastKey, ui::ToQt(page->title), ui::ToQt(page->body)},
               [this, before, done = std::move(done)](const QVariant& answer) {
                 if (!answer.isValid()) return done(ScriptProblem::NoAnswer);
                 if (before) Note(*before, answer.toMap());
                 done(ScriptProblem::None);
               });
}

void PracticeWindow::Refresh() {
  m_listed = m_store.Pages();
  m_tree->ShowPages(m_listed, m_open ? m_open->address : PageAddress{});
  if (m_open) m_watch.WatchFile(m_store.FileOf(m_open->address));
}

/// Fetches what has changed on the page, so that it can be saved even when the page is gone.
void PracticeWindow::TakeChanges() {
  if (!m_open) return;
  m_view->Call("takeChanges", {},
               [this, opened = *m_open](const QVariant& answer) { Note(opened, answer.toMap()); });
}

/// Keeps changes until they are saved, after a short pause; those of another page are saved first.
void PracticeWindow::Note(const OpenedPage& opened, const QVariantMap& changes) {
  if (changes["key"].toInt() != opened.key || opened.key <= m_forgottenKey) return;
  if (m_unsaved && m_unsaved->opened.key != opened.key) SaveNow();
  if (m_open && m_open->key == opened.key) m_open->edits = changes["edits"].toInt();
  m_unsaved = UnsavedPage{opened, opened.page};
  m_unsaved->page.title = changes["title"].toString().toStdString();
  m_unsaved->page.body = changes["body"].toString().toStdString();
  if (isVisible() && m_open && m_open->key == opened.key) {
    m_saveTimer.start();
  } else {
    SaveNow();
  }
}

/// The open page has been deleted or replaced on disk: what it still has to tell must not bring it back.
void PracticeWindow::Forget() {
  m_forgottenKey = m_lastKey;
  m_open.reset();
  m_unsaved.reset();
}

/// Writes what is unsaved. The page may have been renamed or changed by others meanwhile.
void PracticeWindow::SaveNow() {
  m_saveTimer.stop();
  if (!m_unsaved) return;
  const UnsavedPage unsaved = *std::exchange(m_unsaved, std::nullopt);
  const bool isOpen = m_open && m_open->key == unsaved.opened.key;
  const OpenedPage before = isOpen ? *m_open : unsaved.opened;
  const PageAddress address = m_store.Find(unsaved.page.id, before.address).ValueOr(before.address);
  const Result<Page> onDisk = m_store.Load(address);
  const bool othersChanged = onDisk.ok() && !(*onDisk == before.page) && m_lastSaved != *onDisk;
  const Result<PageAddress> saved = m_store.Save(address, unsaved.page);
  if (!saved.ok()) return Say("errPracticeSave", {saved.error()});
  m_lastSaved = unsaved.page;
  if (isOpen) m_open = OpenedPage{unsaved.opened.key, *saved, unsaved.page, before.edits};
  if (unsaved.page.title != before.page.title || !(*saved == before.address) || !isOpen) Refresh();
  if (othersChanged) Say("strPracticeOverwrote");
}

/// Fetches and saves what has changed on the page; `then` is told whether the page has answered.
void PracticeWindow::Settle(std::function<void(bool)> then) {
  if (!m_open) return then(false);
  m_view->Call("takeChanges", {}, [this, opened = *m_open, then = std::move(then)](const QVariant& answer) {
    Note(opened, answer.toMap());
    SaveNow();
    then(answer.isValid());
  });
}

void PracticeWindow::closeEvent(QCloseEvent* event) {
  SaveNow();
  event->accept();
}

}  // namespace quill::practice
