// What the user and scripts can do in the practice notebook's window.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QToolBar>
#include <utility>

#include "practice/page_tree.h"
#include "practice/page_view.h"
#include "practice/practice_window.h"
#include "ui/kit/qt_text.h"

namespace quill::practice {
namespace {

using platform::ScriptProblem;
using platform::practice::Keys;
using platform::script::Modifiers;

constexpr Modifiers kCommand{.command = true};
constexpr Modifiers kCommandShift{.command = true, .shift = true};
constexpr Modifiers kCommandControl{.command = true, .control = true};

ScriptProblem ProblemOf(ClipboardOutcome outcome, ScriptProblem whenNothing) {
  switch (outcome) {
    case ClipboardOutcome::Done:
      return ScriptProblem::None;
    case ClipboardOutcome::Nothing:
      return whenNothing;
    case ClipboardOutcome::NoAnswer:
      return ScriptProblem::NoAnswer;
  }
  return ScriptProblem::NoAnswer;
}

}  // namespace

void PracticeWindow::MakeActions() {
  const auto on = [this](void (PracticeWindow::*action)(Outcome)) {
    return [this, action] { (this->*action)(Quietly()); };
  };
  AddAction("strPracticeNewPage", {QKeySequence::New}, on(&PracticeWindow::NewPage));
  AddAction("strPracticeCopy", {QKeySequence::Copy}, on(&PracticeWindow::Copy));
  AddAction("strPracticeCut", {QKeySequence::Cut}, on(&PracticeWindow::Cut));
  AddAction("strPracticePaste", {QKeySequence::Paste}, on(&PracticeWindow::Paste));
  AddAction("strPracticeUndo", {QKeySequence::Undo}, [this] { CallPage("undo", {}, Quietly()); });
  AddAction("strPracticeRedo", {QKeySequence::Redo}, [this] { CallPage("redo", {}, Quietly()); });
  AddAction("strPracticeCopyLink", {Qt::CTRL | Qt::ALT | Qt::Key_P, Qt::META | Qt::CTRL | Qt::Key_P},
            on(&PracticeWindow::CopyLink));
  AddAction("strPracticeOpenLink", {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter},
            [this] { FollowLinkAtCaret(); });
  AddAction("strPracticeToTitle", {Qt::CTRL | Qt::SHIFT | Qt::Key_T},
            [this] { CallPage("focusTitle", {}, Quietly()); });
  AddAction("strPracticeToPages", {Qt::Key_F6},
            [this] { m_tree->hasFocus() ? m_view->setFocus() : m_tree->setFocus(); });
  AddAction("strPracticeDeletePage", {}, [this] { DeletePage(); });
  AddAction("strPracticeReset", {}, [this] { ResetPages(); });
}

QAction* PracticeWindow::AddAction(const char* textKey, const QList<QKeySequence>& keys,
                                   std::function<void()> action) {
  auto* added = new QAction(ui::ToQt(m_strings.Text(textKey)), this);
  added->setObjectName(textKey);
  added->setShortcuts(keys);
  connect(added, &QAction::triggered, this, std::move(action));
  addAction(added);
  return added;
}

void PracticeWindow::MakeToolBar() {
  QToolBar* bar = addToolBar(windowTitle());
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  for (const char* name : {"strPracticeNewPage", "strPracticeDeletePage", "strPracticeReset"}) {
    QAction* action = findChild<QAction*>(name);
    bar->addAction(action);
    bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  }
}

void PracticeWindow::Press(const Keys& keys, Outcome done) {
  using platform::script::kKeyCodeDelete;
  const QString key = ui::ToQt(keys.text).toLower();
  if (keys.text.empty() && keys.keyCode == kKeyCodeDelete && keys.modifiers == Modifiers{}) {
    CallPage("pressDelete", {}, std::move(done));
  } else if (!keys.text.empty() && keys.modifiers == Modifiers{}) {
    CallPage("type", {ui::ToQt(keys.text)}, std::move(done));
  } else if (keys.modifiers == kCommand && key == "c") {
    Copy(std::move(done));
  } else if (keys.modifiers == kCommand && key == "x") {
    Cut(std::move(done));
  } else if (keys.modifiers == kCommand && key == "v") {
    Paste(std::move(done));
  } else if (keys.modifiers == kCommand && key == "z") {
    CallPage("undo", {}, std::move(done));
  } else if (keys.modifiers == kCommand && key == "n") {
    NewPage(std::move(done));
  } else if (keys.modifiers == kCommandShift && key == "t") {
    CallPage("focusTitle", {}, std::move(done));
  } else if (keys.modifiers == kCommandControl && key == "p") {
    CopyLink(std::move(done));
  } else {
    done(ScriptProblem::Unsupported);
  }
}

void PracticeWindow::SayClipboard(ClipboardOutcome outcome, std::string_view doneKey) {
  if (outcome == ClipboardOutcome::Done) return Say(doneKey);
  const bool silent = outcome == ClipboardOutcome::NoAnswer;
  Say(silent                           ? "errPracticeNoAnswer"
      : doneKey == "strPracticePasted" ? "strPracticeNothingToPaste"
                                       : "strPracticeNothingCopied");
}

void PracticeWindow::Copy(Outcome done) {
  m_clipboard.Copy([this, done = std::move(done)](ClipboardOutcome outcome) {
    SayClipboard(outcome, "strPracticeCopied");
    done(ProblemOf(outcome, ScriptProblem::NothingCopied));
  });
}

void PracticeWindow::Cut(Outcome done) {
  m_clipboard.Cut([this, done = std::move(done)](ClipboardOutcome outcome) {
    SayClipboard(outcome, "strPracticeCutDone");
    done(ProblemOf(outcome, ScriptProblem::NothingCopied));
  });
}

void PracticeWindow::Paste(Outcome done) {
  m_clipboard.Paste([this, done = std::move(done)](ClipboardOutcome outcome) {
    SayClipboard(outcome, "strPracticePasted");
    done(ProblemOf(outcome, ScriptProblem::None));
  });
}

/// The page is saved first: whoever follows the link finds what is shown.
void PracticeWindow::CopyLink(Outcome done) {
  if (!m_open) return done(ScriptProblem::NothingCopied);
  Settle([this, done = std::move(done)](bool answered) {
    if (!answered || !m_open) return done(ScriptProblem::NoAnswer);
    const OpenedPage& open = *m_open;
    QGuiApplication::clipboard()->setText(PageLinkText(m_links, ui::ToQt(open.address.section),
                                                       ui::ToQt(open.page.title), ui::ToQt(open.page.id)));
    Say("strPracticeCopiedLink");
    done(ScriptProblem::None);
  });
}

void PracticeWindow::NewPage(Outcome done) {
  const std::string section = m_open ? m_open->address.section : m_tree->CurrentSection().value_or("Notes");
  const Result<PageAddress> made = m_store.Create(section, "");
  if (!made.ok()) {
    Say("errPracticeSave", {made.error()});
    return done(ScriptProblem::NoAnswer);
  }
  Load(*made, [this, done = std::move(done)](ScriptProblem problem) {
    if (problem != ScriptProblem::None) return done(problem);
    m_view->setFocus();
    CallPage("focusTitle", {}, done);
  });
}

void PracticeWindow::Ask(std::string_view key, const std::vector<std::string>& arguments,
                         std::function<void()> yes) {
  auto* box =
      new QMessageBox(QMessageBox::Question, windowTitle(), ui::ToQt(m_strings.Format(key, arguments)),
                      QMessageBox::Yes | QMessageBox::No, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  box->setDefaultButton(QMessageBox::No);
  connect(box, &QMessageBox::finished, this, [yes = std::move(yes)](int button) {
    if (button == QMessageBox::Yes) yes();
  });
  box->open();
}

void PracticeWindow::DeletePage() {
  if (!m_open) return;
  const std::string title(m_open->page.title.empty() ? m_strings.Text("strPracticeUntitled")
                                                     : std::string_view(m_open->page.title));
  Ask("askPracticeDeletePage", {title}, [this, id = m_open->page.id] {
    if (!m_open || m_open->page.id != id) return;
    if (const Status<> deleted = m_store.Delete(m_open->address); !deleted.ok()) {
      return Say("errPracticeSave", {deleted.error()});
    }
    Forget();
    Say("strPracticeDeleted");
    OpenFirstPage();
  });
}

void PracticeWindow::ResetPages() {
  Ask("askPracticeReset", {}, [this] {
    if (const Status<> reset = m_store.Reset(); !reset.ok()) return Say("errPracticeSave", {reset.error()});
    const std::string id = m_open ? m_open->page.id : std::string();
    Forget();
    OpenPage([&](const PageEntry& entry) { return id.empty() || entry.id == id; }, Quietly());
    Say("strPracticeResetDone");
  });
}

}  // namespace quill::practice
