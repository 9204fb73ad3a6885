#include "ui/tour.h"

#include <QApplication>
#include <QMenu>
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
constexpr int kLongestWaitForTrayMs = 5000;

}  // namespace

Tour::Tour(Program& program, std::filesystem::path folder) : m_program(program), m_folder(std::move(folder)) {
  Plan();
  QTimer::singleShot(0, this, [this] { Next(); });
}

void Tour::Plan() {
  Tell("Quill Menu: a tour with the practice notebook");
  m_steps.push_back([this] {
    m_program.OpenPractice();
    if (m_program.practice().notebook() == nullptr) return Fail("the practice notebook did not open");
    Next();
  });
  OpenPage("Welcome");
  TakePicture("01-notebook");
  Tell("1. Select some words on the page, open the tray menu, choose UPPER CASE.");
  Select("The quick brown fox jumps over the lazy dog.");
  ShowSelection("before");
  TakePicture("02-selected");
  ChooseFromMenu("MenuItemUpperCaseClick", "03-menu");
  Expect("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG.");
  Select("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG.");
  ShowSelection("after");
  TakePicture("04-upper-case");
  Tell("2. A whole table, each word capitalised: borders and widths stay.");
  OpenPage("Table");
  m_steps.push_back([this] {
    m_program.practice().notebook()->Controller().SelectBlock(
        "table", [this](bool ok) { ok ? Next() : Fail("no table"); });
  });
  ChooseFromMenu("MenuItemCapitalizeEachWordClick", "");
  TakePicture("05-table");
  Tell("3. The date at the caret, and a tag in front of the page's title.");
  OpenPage("Welcome");
  m_steps.push_back([this] {
    m_program.practice().notebook()->Controller().CaretToEnd(
        [this](bool ok) { ok ? Next() : Fail("no caret"); });
  });
  ChooseFromMenu("MenuItemInsertDateClick", "");
  ChooseFromMenu("MenuItemPageTitleTagClick", "");
  TakePicture("06-date-and-tag");
  Tell("That was the tour. Start ./dev run on a machine with a display to try it yourself.");
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

void Tour::OpenPage(const QString& title) {
  m_steps.push_back([this, title] {
    m_program.practice().notebook()->Controller().OpenPage(
        title, [this, title](bool ok) { ok ? Next() : Fail("no page " + title); });
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

void Tour::ChooseFromMenu(const QString& action, const QString& picture) {
  m_steps.push_back([this, action, picture] {
    const shell::CommandRow* row = shell::FindCommand(action.toStdString());
    if (row == nullptr) return Fail("no action " + action);
    const auto run = [this, row] {
      m_program.application().Run({row, std::nullopt, true}, [this](const shell::Outcome& outcome) {
        const QString problem =
            outcome.messages.empty() ? QString() : QString::fromStdString(outcome.messages.front());
        QMetaObject::invokeMethod(
            this, [this, problem] { problem.isEmpty() ? Next() : Fail(problem); }, Qt::QueuedConnection);
      });
    };
    if (picture.isEmpty()) return run();
    QMenu& menu = m_program.tray().menu();
    menu.popup(m_program.tray().IconGeometry().center());
    for (QAction* group : menu.actions()) {
      if (group->menu() == nullptr || group->menu()->findChild<QAction*>(action) == nullptr) continue;
      menu.setActiveAction(group);
      group->menu()->setActiveAction(group->menu()->findChild<QAction*>(action));
    }
    QTimer::singleShot(kUntilPaintedMs, this, [this, run, picture, &menu] {
      Picture(picture);
      menu.close();
      run();
    });
  });
}

}  // namespace quill::ui
