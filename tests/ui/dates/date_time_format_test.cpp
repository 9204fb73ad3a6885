#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>

#include "open_dialog.h"
#include "tools/calendar.h"
#include "ui/windows/dates/win_date_time_format.h"

namespace quill::ui {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

shell::DateTimeFormatRequest Request(std::string date = "yyyy-MM-dd", std::string time = "HH:mm:ss") {
  return {{std::move(date), std::move(time)}, tools::StartOfDay(2026, 11, 15) + 14h + 5min + 9s};
}

using Dialog = OpenDialog<MWinDateTimeFormat>;

/// What the preview of the field with the keyboard says; a screen reader says it as its description.
std::string Preview() {
  QCoreApplication::processEvents();
  return FromQt(QApplication::focusWidget()->accessibleDescription());
}

std::string FieldText() {
  auto* field = qobject_cast<QComboBox*>(QApplication::focusWidget());
  return field != nullptr ? FromQt(field->currentText()) : "no field";
}

// A new format is typing, Tab, typing and Return: what was there is selected.
TEST(DateTimeFormat, IsChangedWithTheKeyboardAlone) {
  Dialog dialog(Request());
  EXPECT_THAT(TabOrder(*dialog.window),
              ElementsAre(_, "Letters of a date", _, "Letters of a time", "OK", "Cancel"));
  EXPECT_THAT(UnnamedControls(*dialog.window), IsEmpty());
  EXPECT_EQ(Preview(), "Now: 2026-11-15");
  Picture(*dialog.window, "date-time-format");
  Type("d. MMMM");
  EXPECT_EQ(Preview(), "Now: 15. November");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  Type("h:mm a");
  EXPECT_EQ(Preview(), "Now: 2:05 PM");
  Press(Qt::Key_Return);
  ASSERT_TRUE(dialog.answer.has_value());
  EXPECT_EQ(dialog.answer->date, "d. MMMM");
  EXPECT_EQ(dialog.answer->time, "h:mm a");
}

// A pattern that cannot be right is told of at once, in words, but nobody is kept from using it.
TEST(DateTimeFormat, TellsWhatIsWrongAndTakesItNevertheless) {
  const std::pair<const char*, const char*> cases[] = {
      {"yyyy-j", "Now: 2026-\n“j” has no meaning"},
      {"dd 'of", "Now: 15 of\nThe last apostrophe has no partner"},
      {"l", "This pattern writes nothing."},
      {"mm", "Now: 05"},  // not completed to "MM…", which is in the list
  };
  for (const auto& [pattern, told] : cases) {
    SCOPED_TRACE(pattern);
    Dialog dialog(Request());
    Type(pattern);
    EXPECT_THAT(Preview(), testing::StartsWith(told));
    Picture(*dialog.window, std::string("date-time-format-") + pattern);
    Press(Qt::Key_Return);
    ASSERT_TRUE(dialog.answer.has_value());
    EXPECT_EQ(dialog.answer->date, pattern);
  }
}

// Without a pattern nothing would be inserted, for a reason that nobody would find. The date comes first.
TEST(DateTimeFormat, RefusesEmptyFields) {
  Dialog dialog(Request("", ""));
  Press(Qt::Key_Return);
  EXPECT_FALSE(dialog.closed);
  EXPECT_EQ(Preview(), "Enter a pattern for the date.");
  Picture(*dialog.window, "date-time-format-empty");
  Type("d");
  EXPECT_EQ(Preview(), "Now: 15");
  Press(Qt::Key_Return);
  EXPECT_FALSE(dialog.closed);
  EXPECT_EQ(Preview(), "Enter a pattern for the time.");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(dialog.closed);
  EXPECT_FALSE(dialog.answer.has_value());
}

// The list is not only to be read: Return puts a row's letters where the caret is, also when the field is
// selected because Tab came through it, and does not close the window.
TEST(DateTimeFormat, PutsLettersOfTheListAtTheCaret) {
  Dialog dialog(Request("yyyy-", "H"));
  Press(Qt::Key_Tab);
  for (int i = 0; i < 4; ++i) Press(Qt::Key_Down);  // yyyy, yy, MMMM, MMM, MM
  Press(Qt::Key_Return);
  EXPECT_EQ(FieldText(), "yyyy-MM");
  Press(Qt::Key_Home);
  Press(Qt::Key_Tab);
  Press(Qt::Key_End);
  Press(Qt::Key_Up);  // plain text between quotes: the caret goes between them
  Press(Qt::Key_Return);
  Type("in ");
  EXPECT_EQ(FieldText(), "'in 'yyyy-MM");
  EXPECT_EQ(Preview(), "Now: in 2026-11");
  Press(Qt::Key_Return);
  ASSERT_TRUE(dialog.answer.has_value());
  EXPECT_EQ(dialog.answer->date, "'in 'yyyy-MM");
}

// Common patterns come with what they write; choosing one takes the pattern, not the example.
TEST(DateTimeFormat, OffersCommonPatterns) {
  Dialog dialog(Request("'my own'", "H"));
  auto* field = qobject_cast<QComboBox*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  Press(Qt::Key_Down);
  EXPECT_EQ(FieldText(), "yyyy-MM-dd");
  field->showPopup();
  auto* list = QApplication::activePopupWidget();
  ASSERT_NE(list, nullptr);
  Picture(*list, "date-time-format-common");
  EXPECT_EQ(FromQt(field->itemData(1, Qt::AccessibleTextRole).toString()), "15.11.2026   ·   dd.MM.yyyy");
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_EQ(FieldText(), "dd.MM.yyyy");
  EXPECT_FALSE(dialog.closed);
}

}  // namespace
}  // namespace quill::ui
