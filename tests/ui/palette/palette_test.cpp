#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QtTest/QTest>
#include <optional>
#include <string>
#include <vector>

#include "gui_world.h"
#include "palette_entries.h"
#include "ui/palette/win_palette.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// An open palette over the real menu, and what was chosen in it.
class PaletteTest : public testing::Test {
 protected:
  void Open() {
    palette.Open();
    ASSERT_TRUE(WaitUntil([this] { return palette.isActiveWindow() && field->hasFocus(); }));
  }

  std::string Current() const { return FromQt(list->currentIndex().data().toString()); }

  std::vector<std::string> Listed(int most = 3) const {
    std::vector<std::string> titles;
    for (int row = 0; row < std::min(most, list->model()->rowCount()); ++row) {
      titles.push_back(FromQt(list->model()->index(row, 0).data().toString()));
    }
    return titles;
  }

  std::string Status() const { return FromQt(palette.findChildren<QLabel*>().last()->text()); }

  shell::StringTable strings;
  std::string recent;
  std::vector<std::string> chosen;
  bool wasOpenWhenChosen = false;
  WinPalette palette{
      strings, EntriesOfTable(strings), [this] { return recent; },
      [this](const shell::CommandRow& row, std::optional<std::int64_t> argument) {
        wasOpenWhenChosen = palette.isVisible();
        chosen.push_back(std::string(row.action) + (argument ? " " + std::to_string(*argument) : ""));
      }};
  QLineEdit* field = palette.findChild<QLineEdit*>();
  QListView* list = palette.findChild<QListView*>();
};

// The whole way without a mouse: type, Return, and the palette is out of the way before the command starts.
TEST_F(PaletteTest, RunsWhatWasTyped) {
  Open();
  Type("up ca");
  EXPECT_EQ(Current(), "UPPER CASE");
  Press(Qt::Key_Return);
  EXPECT_THAT(chosen, ElementsAre("MenuItemUpperCaseClick"));
  EXPECT_FALSE(wasOpenWhenChosen);
  EXPECT_FALSE(palette.isVisible());
}

// The list is moved through while typing goes on; a tag runs with its index.
TEST_F(PaletteTest, MovesInTheListFromTheField) {
  Open();
  const int rows = list->model()->rowCount();
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(list->currentIndex().row(), 2);
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(list->currentIndex().row(), rows - 1);
  Press(Qt::Key_PageUp);
  const int pageUp = list->currentIndex().row();
  EXPECT_LT(pageUp, rows - 5);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(list->currentIndex().row(), rows - 1);
  Press(Qt::Key_Down);
  EXPECT_EQ(list->currentIndex().row(), 0) << "goes round";
  Press(Qt::Key_Up);
  Press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(list->currentIndex().row(), 0);
  Type("star");
  EXPECT_TRUE(field->hasFocus());
  Press(Qt::Key_Home);
  Type("tag ");
  EXPECT_EQ(FromQt(field->text()), "tag star") << "Home alone belongs to the field";
  Press(Qt::Key_Enter);
  EXPECT_THAT(chosen, ElementsAre("MenuItemPageTitleTagClick 15"));
}

// A click does what Return does.
TEST_F(PaletteTest, RunsTheClickedAction) {
  Open();
  Type("table");
  const QModelIndex second = list->model()->index(1, 0);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(second).center());
  EXPECT_THAT(chosen, ElementsAre("MenuItemTableInformationClick"));
}

// Going away is always one key or one click elsewhere, and runs nothing.
TEST_F(PaletteTest, ClosesWithoutRunning) {
  Open();
  Type("upper");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(palette.isVisible());
  Open();
  EXPECT_EQ(FromQt(field->text()), "") << "starts afresh";
  EXPECT_EQ(list->currentIndex().row(), 0);
  QWidget other;
  other.show();
  other.activateWindow();
  EXPECT_TRUE(WaitUntil([this] { return !palette.isVisible(); }));
  EXPECT_THAT(chosen, IsEmpty());
}

// What cannot run now says why instead of running, and runs as soon as it can.
TEST_F(PaletteTest, GivesTheReasonOfAnUnavailableAction) {
  Open();
  const QString reason = QStringLiteral("OneNote is not running");
  palette.SetProblems({{shell::FindCommand("MenuItemUpperCaseClick"), reason}});
  Type("upper");
  EXPECT_THAT(FromQt(list->currentIndex().data(Qt::AccessibleTextRole).toString()),
              HasSubstr(FromQt(reason)));
  EXPECT_NE(Status(), FromQt(reason));
  Press(Qt::Key_Return);
  EXPECT_TRUE(palette.isVisible());
  EXPECT_EQ(Status(), FromQt(reason));
  Picture(palette, "palette-reason");
  palette.SetProblems({});
  EXPECT_NE(Status(), FromQt(reason)) << "what is over is not said any more";
  Press(Qt::Key_Return);
  EXPECT_THAT(chosen, ElementsAre("MenuItemUpperCaseClick"));
}

// The actions of the last minutes wait at the top, freshly read each time, tags each by themselves.
TEST_F(PaletteTest, ListsRecentActionsFirst) {
  recent = "MenuItemPageTitleTagClick:3,garbage,MenuItemRulerClick";
  Open();
  EXPECT_THAT(Listed(), ElementsAre("Page Title Tag ♥", "Ruler", "New Page"));
  recent = "MenuItemRulerClick";
  Open();
  EXPECT_THAT(Listed(2), ElementsAre("Ruler", "New Page"));
}

// A search for nothing that exists says so, and Return and the arrows do no harm there.
TEST_F(PaletteTest, SaysWhenNothingIsFound) {
  Open();
  Type("zzzzq");
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(FromQt(field->accessibleDescription()), "No action found");
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Return})
    Press(key);
  EXPECT_TRUE(palette.isVisible());
  Picture(palette, "palette-nothing");
  field->clear();
  EXPECT_TRUE(list->isVisible());
}

/// What a screen reader was told to speak.
std::vector<std::string> g_spoken;

void Speak(QAccessibleEvent* event) {
  QAccessibleInterface* spoken = event->accessibleInterface();
  if (event->type() != QAccessible::Focus || spoken == nullptr) return;
  g_spoken.push_back(FromQt(spoken->text(QAccessible::Name)));
}

// A blind user hears each row that the arrows reach, with its group and shortcut, and has a name for
// everything.
TEST_F(PaletteTest, SpeaksTheCurrentRow) {
  Open();
  EXPECT_THAT(UnnamedControls(palette), IsEmpty());
  Type("insert date");
  const auto previous = QAccessible::installUpdateHandler(Speak);
  g_spoken.clear();
  Press(Qt::Key_Down);
  const std::string second = "Insert Date and Time, Page and Date";
  EXPECT_EQ(FromQt(field->accessibleDescription()), second);
  QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(list);
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(FromQt(rows->child(1)->text(QAccessible::Name)), second);
  Press(Qt::Key_Up);
  QAccessible::installUpdateHandler(previous);
  const std::string keys =
      FromQt(QKeySequence(QStringLiteral("Ctrl+Alt+Shift+D")).toString(QKeySequence::NativeText));
  const std::string first = "Insert Date, Page and Date, " + keys;
  EXPECT_EQ(FromQt(field->accessibleDescription()), first);
  // Without a display Qt tells nobody; where it does (QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1), these come.
  if (QAccessible::isActive()) {
    EXPECT_THAT(g_spoken, ElementsAre(second, first));
  }
}

// Pasted junk and a resize to nothing: the window stays what it is.
TEST_F(PaletteTest, SurvivesJunkAndNarrowness) {
  Open();
  field->setText(QString(5000, QChar(0xD83D)));
  field->setText(QStringLiteral("a\n\tb\u202e").repeated(90));
  field->setText(QStringLiteral("e"));
  for (const int width : {1, 40, 120, 300}) {
    palette.resize(width, 300);
    EXPECT_FALSE(palette.grab().isNull());
  }
}

// For looking at: all actions, a search, greyed ones.
TEST_F(PaletteTest, IsPainted) {
  PaletteProblems problems;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    if (shell::Has(row.needs, shell::Needs::SignIn))
      problems[&row] = QStringLiteral("You are not signed in to your account");
  }
  palette.SetProblems(problems);
  Open();
  Picture(palette, "palette-all");
  Type("ta");
  EXPECT_GT(list->model()->rowCount(), 3);
  Picture(palette, "palette-search");
  field->setText(QStringLiteral("cont no"));
  Picture(palette, "palette-grey");
}

}  // namespace
}  // namespace quill::ui
