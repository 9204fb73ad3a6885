#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QRadioButton>
#include <QtTest/QTest>

#include "table_windows.h"
#include "tools/table_to_text.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/tables/win_table2text.h"

namespace quill::ui {
namespace {

using shell::TableTextChoice;
using testing::ElementsAre;
using testing::IsEmpty;
using tools::TableTextMode;

/// Two rows of two cells; a no-break space in the first one, a carriage return in the last.
shell::TableCopy SmallTable() {
  return TableOf("<table><tr><td>a\u00A0b</td><td>c</td></tr><tr><td>d</td><td>e&#13;f</td></tr></table>");
}

shell::TableCopy BigTable() {
  std::string table = "<table>";
  for (int row = 0; row < 4000; ++row) {
    table += "<tr>";
    for (int column = 0; column < 6; ++column) {
      table += "<td>cell " + std::to_string(row) + "," + std::to_string(column) + "</td>";
    }
    table += "</tr>";
  }
  return TableOf(table + "</table>");
}

struct Table2TextWindow : DialogTest<MWinTable2Text, shell::Table2TextRequest> {
  static std::string Clipboard() { return FromQt(QApplication::clipboard()->text()); }
  static std::string Checked(MWinTable2Text* window) {
    for (auto* button : window->findChildren<QRadioButton*>()) {
      if (button->isChecked()) return FromQt(button->text().remove(u'&'));
    }
    return "none";
  }
};

/// Mode and separator of an answer.
std::string InWords(const std::optional<TableTextChoice>& answer) {
  if (!answer) return "no answer";
  return std::to_string(static_cast<std::int64_t>(answer->mode)) + " '" + answer->separator + "'";
}

// The text is on the clipboard as soon as the window is there and after each change, byte for byte.
TEST_F(Table2TextWindow, KeepsTheTextOnTheClipboard) {
  auto asked = Ask({SmallTable(), {TableTextMode::TwoParagraphs, "-"}});
  auto* window = WaitForWindow<MWinTable2Text>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(Clipboard(), "a\u00A0b\n\nc\n\n\nd\n\ne\rf\n\n\n");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "table2text");
  const std::vector<std::string> texts{"a\u00A0b\nc\n\nd\ne\rf\n\n", "a\u00A0b\tc\nd\te\rf\n",
                                       "a\u00A0b,c\nd,e\rf\n", "a\u00A0b-c\nd-e\rf\n"};
  for (const std::string& text : texts) {
    Press(Qt::Key_Down);
    EXPECT_EQ(Clipboard(), text);
    EXPECT_EQ(FromQt(window->findChild<PlainTextView*>()->original()), text);
  }
  EXPECT_EQ(Focused(), FromQt(window->findChildren<QRadioButton*>().back()->text()))
      << "not in the field yet";
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "-");
  Type(" + ");
  EXPECT_EQ(Clipboard(), "a\u00A0b + c\nd + e\rf\n") << "Tab has selected the old separator";
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  EXPECT_EQ(Clipboard(), "a\u00A0bc\nde\rf\n") << "no separator is one, too";
  Press(Qt::Key_Return);
  EXPECT_EQ(InWords(asked.Answer().value()), "4 ''");
}

// There is nothing to cancel: what was chosen last is remembered whichever way the window goes.
TEST_F(Table2TextWindow, AnswersTheSameHoweverItIsClosed) {
  const std::vector<std::function<void(MWinTable2Text*)>> ways{
      [](auto*) { Press(Qt::Key_Escape); }, [](auto*) { Press(Qt::Key_Return); },
      [](MWinTable2Text* window) { window->close(); }};
  for (const auto& way : ways) {
    auto asked = Ask({SmallTable(), {TableTextMode::Tabs, "+"}});
    auto* window = WaitForWindow<MWinTable2Text>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Checked(window), "Tabs");
    EXPECT_THAT(TabOrder(*window), ElementsAre("Tabs", "Text", "Close"));
    Press(Qt::Key_Down);
    way(window);
    EXPECT_EQ(InWords(asked.Answer().value()), "3 '+'");
  }
}

// A settings file may hold any number: no button is on, commas separate, and nothing else is chosen for the
// user.
TEST_F(Table2TextWindow, AnUnknownModeSeparatesByCommas) {
  for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{5}, std::int64_t{1} << 32}) {
    auto asked = Ask({SmallTable(), {static_cast<TableTextMode>(number), "-"}});
    auto* window = WaitForWindow<MWinTable2Text>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Checked(window), "none");
    EXPECT_EQ(Clipboard(), "a\u00A0b,c\nd,e\rf\n");
    Press(Qt::Key_Escape);
    EXPECT_EQ(InWords(asked.Answer().value()), std::to_string(number) + " '-'");
  }
}

// Whoever clicks "Other" goes on to type the separator.
TEST_F(Table2TextWindow, AClickOnOtherLeadsToTheField) {
  auto asked = Ask({SmallTable(), {TableTextMode::Tabs, "-"}});
  auto* window = WaitForWindow<MWinTable2Text>();
  ASSERT_NE(window, nullptr);
  QTest::mouseClick(window->findChildren<QRadioButton*>().back(), Qt::LeftButton);
  EXPECT_EQ(Focused(), "-");
  Type("; ");
  EXPECT_EQ(Clipboard(), "a\u00A0b; c\nd; e\rf\n");
  Picture(*window, "table2text-other");
}

// A large table does not slow down typing: all of it is on the clipboard, and its beginning in the view.
TEST_F(Table2TextWindow, IsQuickWithALargeTable) {
  const shell::TableCopy table = BigTable();
  auto asked = Ask({table, {TableTextMode::Other, ";"}});
  auto* window = WaitForWindow<MWinTable2Text>();
  ASSERT_NE(window, nullptr);
  Press(Qt::Key_Tab);
  QElapsedTimer time;
  time.start();
  Type("abcdefghij");
  ProcessEventsFor(0ms);
  RecordProperty("millisecondsForAKey", std::to_string(time.elapsed() / 10));
  EXPECT_LT(time.elapsed(), 10 * 1000);
  const std::string all = tools::TableToText(table->document_element(), TableTextMode::Other, "abcdefghij");
  EXPECT_EQ(Clipboard(), all);
  auto* view = window->findChild<PlainTextView*>();
  EXPECT_LT(view->toPlainText().size(), 25'000);
  EXPECT_TRUE(all.starts_with(FromQt(view->toPlainText())));
  bool told = false;
  for (const auto* label : window->findChildren<QLabel*>())
    told |= label->text().contains("Only its beginning");
  EXPECT_TRUE(told);
  Picture(*window, "table2text-large");
  QApplication::clipboard()->clear();
  view->selectAll();
  view->copy();
  EXPECT_EQ(Clipboard(), all) << "all is all";
}

}  // namespace
}  // namespace quill::ui
