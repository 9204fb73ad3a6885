#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest/QTest>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"
#include "ui/windows/notebooks/win_notebook_information.h"

namespace quill::ui {
namespace {

using online::NotebookFact;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<NotebookFact> kFacts = {
    {"@odata.etag", "W/1"},
    {"createdBy.user.displayName", "Ann"},
    {"createdDateTime", "2024-03-18T09:12:00Z"},
    {"displayName", "Home"},
    {"isDefault", "true"},
    {"isShared", "perhaps"},
    {"lastModifiedDateTime", "yesterday"},
    {"links.oneNoteWebUrl.href", "https://d.docs.live.net/7c1f/" + std::string(300, 'x') + "?a=<b>&c"},
    {"userRole", "Owner"},
};

std::vector<std::string> Lines(const std::vector<ReadableFact>& facts) {
  std::vector<std::string> lines;
  for (const ReadableFact& fact : facts) lines.push_back(FromQt(fact.name + " = " + fact.value));
  return lines;
}

// What people look for stands first and in words; nothing that the service said is left out or guessed at.
TEST(ReadableFacts, AreWhatTheServiceSaidInWords) {
  qputenv("TZ", "UTC");
  QLocale::setDefault(QLocale::c());
  const std::vector<std::string> lines = Lines(ReadableFacts(shell::StringTable(), kFacts));
  QLocale::setDefault(QLocale::system());
  EXPECT_THAT(lines,
              ElementsAre("Name = Home", "Default notebook = Yes", "Shared = perhaps", "Your role = Owner",
                          "Created = Monday, 18 March 2024, 09:12:00", "Created by = Ann",
                          "Last changed = yesterday", "Web link = " + kFacts[7].value, "@odata.etag = W/1"));
}

class NotebookInformation : public testing::Test {
 protected:
  void Open(const std::vector<NotebookFact>& facts) {
    window = new MWinNotebookInformation(world.strings, "Home", facts);
    list = window->findChild<QTreeWidget*>();
    BringToFront(*window);
    ASSERT_NE(WaitForWindow<MWinNotebookInformation>(), nullptr);
  }
  static std::string Clipboard() { return FromQt(QApplication::clipboard()->text()); }
  QRect Place(int line, int column) { return list->visualRect(list->model()->index(line, column)); }

  GuiWorld world;
  QPointer<MWinNotebookInformation> window;
  QTreeWidget* list = nullptr;
};

// Links lead to the user's own pages: a slip of the hand copies one, and never opens a browser.
TEST_F(NotebookInformation, CopiesValues) {
  Open(kFacts);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Press(Qt::Key_Return);
  EXPECT_EQ(Clipboard(), "Home");
  Press(Qt::Key_Down);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "Yes");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, Place(7, 1).center());
  EXPECT_EQ(Clipboard(), kFacts[7].value);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, Place(3, 1).center());
  EXPECT_EQ(Clipboard(), kFacts[7].value) << "a click on a plain value only marks it";
  Picture(*window, "notebook-information");
}

// A bug report takes all lines at once.
TEST_F(NotebookInformation, CopiesEverything) {
  Open({{"displayName", "Home"}, {"x.y", "1"}});
  for (QPushButton* button : window->findChildren<QPushButton*>()) {
    if (button->text().remove(u'&') == "Copy All") button->click();
  }
  EXPECT_EQ(Clipboard(), "Name: Home\nx.y: 1\n");
}

// A long link is broken into lines that fit, in a narrower window into more of them.
TEST_F(NotebookInformation, BreaksLongValues) {
  Open(kFacts);
  ASSERT_TRUE(WaitUntil([&] { return Place(7, 1).height() > 2 * Place(0, 1).height(); }));
  const int before = Place(7, 1).height();
  window->resize(window->width() / 2, window->height());
  EXPECT_TRUE(WaitUntil([&] { return Place(7, 1).height() > before; }));
  EXPECT_LE(Place(7, 1).right(), list->viewport()->width());
}

// Of a recent notebook next to nothing may be known.
TEST_F(NotebookInformation, SaysWhenNothingIsKnown) {
  Open({});
  EXPECT_FALSE(list->isVisible());
  Picture(*window, "notebook-information-none");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
}

}  // namespace
}  // namespace quill::ui
