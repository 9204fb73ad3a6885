#include "ui/tour.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <cstdio>

#include "shell/command_table.h"
#include "ui/practice_host.h"
#include "ui/program.h"
#include "ui/web_views.h"

namespace quill::ui {
namespace {

// A menu or a page that was just shown needs a moment until the screen has it; there is no signal for that.
constexpr int kUntilPaintedMs = 400;
constexpr int kLookMs = 50;
constexpr int kLooks = 400;

QDialog* OpenDialog() {
  return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

/// The OK of the open dialog; null when there is none.
QPushButton* OkButton() {
  const QDialog* dialog = OpenDialog();
  const auto* buttons = dialog != nullptr ? dialog->findChild<QDialogButtonBox*>() : nullptr;
  return buttons != nullptr ? buttons->button(QDialogButtonBox::Ok) : nullptr;
}

}  // namespace

Tour::Tour(Program& program, std::filesystem::path folder) : m_program(program), m_folder(std::move(folder)) {
  Plan();
  QTimer::singleShot(0, this, [this] { Next(); });
}

void Tour::Next() {
  if (m_steps.empty()) return QApplication::exit(0);
  const Step step = std::move(m_steps.front());
  m_steps.pop_front();
  step();
}

void Tour::Say(const QString& line) {
  std::printf("%s\n", qUtf8Printable(line));
  std::fflush(stdout);
}

void Tour::Fail(const QString& why) {
  std::fprintf(stderr, "tour: %s\n", qUtf8Printable(why));
  m_steps.clear();
  Picture("failed");
  QApplication::exit(1);
}

void Tour::Picture(const QString& name) {
  const QString file = QString::fromStdString((m_folder / (name.toStdString() + ".png")).string());
  const bool saved = QApplication::primaryScreen()->grabWindow(0).save(file);
  Say(saved ? QStringLiteral("   picture: %1").arg(file) : QStringLiteral("   no picture: %1").arg(file));
}

void Tour::Tell(const QString& line) {
  m_steps.push_back([this, line] {
    Say(line);
    Next();
  });
}

void Tour::OpenNotebook() {
  m_steps.push_back([this] {
    m_program.OpenPractice();
    if (m_program.practice().notebook() == nullptr) return Fail("the practice notebook did not open");
    Next();
  });
}

void Tour::OpenPage(const QString& title) {
  m_steps.push_back([this, title] {
    m_program.practice().notebook()->Controller().OpenPage(
        title, [this, title](bool ok) { ok ? Next() : Fail("no page " + title); });
  });
}

void Tour::SelectBlock(const QString& selector) {
  m_steps.push_back([this, selector] {
    m_program.practice().notebook()->Controller().SelectBlock(
        selector, [this, selector](bool ok) { ok ? Next() : Fail("not on the page: " + selector); });
  });
}

void Tour::CaretToEnd() {
  m_steps.push_back([this] {
    m_program.practice().notebook()->Controller().CaretToEnd(
        [this](bool ok) { ok ? Next() : Fail("no caret"); });
  });
}

void Tour::Select(const QString& text) {
  m_steps.push_back([this, text] {
    m_program.practice().notebook()->Controller().SelectText(
        text, [this, text](bool ok) { ok ? Next() : Fail("not on the page: " + text); });
  });
}

void Tour::ShowSelection(const QString& caption) {
  m_steps.push_back([this, caption] {
    m_program.practice().notebook()->Controller().SelectionFragment([this, caption](const QString& fragment) {
      Say(QStringLiteral("   %1: %2").arg(caption, fragment.trimmed()));
      Next();
    });
  });
}

void Tour::Expect(const QString& text) {
  m_steps.push_back([this, text] {
    m_program.practice().notebook()->Controller().VisibleText([this, text](const QString& page) {
      page.contains(text) ? Next() : Fail("the page does not say " + text);
    });
  });
}

void Tour::TakePicture(const QString& name) {
  m_steps.push_back([this, name] {
    QTimer::singleShot(kUntilPaintedMs, this, [this, name] {
      Picture(name);
      Next();
    });
  });
}

void Tour::RunAction(const QString& action) {
  m_program.application().Run(
      {shell::FindCommand(action.toStdString()), std::nullopt, true}, [this](const shell::Outcome& outcome) {
        const QString problem =
            outcome.messages.empty() ? QString() : QString::fromStdString(outcome.messages.front());
        QMetaObject::invokeMethod(
            this, [this, problem] { problem.isEmpty() ? Next() : Fail(problem); }, Qt::QueuedConnection);
      });
}

void Tour::ChooseFromMenu(const QString& action, const QString& picture) {
  m_steps.push_back([this, action, picture] {
    if (picture.isEmpty()) return RunAction(action);
    QMenu& menu = m_program.tray().menu();
    menu.popup(m_program.tray().IconGeometry().center());
    for (QAction* group : menu.actions()) {
      if (group->menu() == nullptr || group->menu()->findChild<QAction*>(action) == nullptr) continue;
      menu.setActiveAction(group);
      group->menu()->setActiveAction(group->menu()->findChild<QAction*>(action));
    }
    QTimer::singleShot(kUntilPaintedMs, this, [this, action, picture, &menu] {
      Picture(picture);
      menu.close();
      RunAction(action);
    });
  });
}

void Tour::Await(int looksLeft, const QString& what, const std::function<bool()>& holds,
                 const std::function<void()>& then) {
  if (holds()) return then();
  if (looksLeft == 0) return Fail("waited in vain: " + what);
  QTimer::singleShot(kLookMs, this, [=, this] { Await(looksLeft - 1, what, holds, then); });
}

void Tour::AnswerDialog(const QString& action, const QString& picture, Fill fill) {
  m_steps.push_back([this, action, picture, fill = std::move(fill)] {
    RunAction(action);
    const auto isOpen = [] { return OpenDialog() != nullptr; };
    Await(kLooks, "a dialog", isOpen, [this, picture, fill] {
      const std::function<bool()> isThere = fill(*OpenDialog());
      const auto isReady = [isThere] {
        return OkButton() != nullptr && OkButton()->isEnabled() && isThere();
      };
      Await(kLooks, "a dialog that can be answered", isReady, [this, picture] {
        QTimer::singleShot(kUntilPaintedMs, this, [this, picture] {
          Picture(picture);
          if (QPushButton* ok = OkButton()) ok->click();
          // What goes wrong leaves the dialog open; the end of the action goes on with the tour.
          Await(
              kLooks, "the end of the dialog", [] { return OpenDialog() == nullptr; }, [] {});
        });
      });
    });
  });
}

}  // namespace quill::ui
