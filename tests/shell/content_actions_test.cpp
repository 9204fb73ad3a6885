#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/content_requests.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

using test::CommandWorld;
using test::Copied;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

void RunAction(CommandWorld& world, const char* action) {
  CommandContext context{world.services, world.globals};
  const CommandRow* row = FindCommand(action);
  row->handler(context, *row);
}

// New patterns count from the next insertion on, and after the next start.
TEST(DateTimeFormat, KeepsThePatterns) {
  const test::TemporaryFolder folder;
  CommandWorld world;
  world.globals.folders.SettingsFile = folder.path() / "quillapp.plist";
  world.recording.AnswerDialog<DateTimeFormatRequest>(DateTimeFormats{"yyyy", "HH"});
  RunAction(world, "InsertDateTimeFormat");
  LoadSettings(world.globals);
  EXPECT_EQ(world.globals.settings.DateFormat + world.globals.settings.TimeFormat, "yyyyHH");
  RunAction(world, "InsertDateTimeFormat");  // cancelled
  EXPECT_EQ(world.globals.settings.DateFormat, "yyyy");
}

// Patterns that cannot be saved do not count until the program ends, and are gone then: they do not count.
TEST(DateTimeFormat, AFailureLeavesThePatternsAsTheyWere) {
  const test::TemporaryFolder folder;
  CommandWorld world;
  world.globals.folders.SettingsFile = folder.Write("file", "") / "quillapp.plist";
  world.recording.AnswerDialog<DateTimeFormatRequest>(DateTimeFormats{"yyyy", "HH"});
  RunAction(world, "InsertDateTimeFormat");
  EXPECT_EQ(world.globals.settings.DateFormat, "yyyy-MM-dd");
  EXPECT_EQ(world.recording.messages().size(), 1u);
}

// The last day of a month must not become the month after it, nor a year's calendar that of its neighbour.
TEST(CalendarOfChoice, InsertsTheMonthOrTheYearOfTheDay) {
  using namespace std::chrono;
  struct Row {
    year_month_day day;
    CalendarChoice::Span span;
    const char* begins;
  };
  const Row rows[] = {{2024y / 1 / 31, CalendarChoice::Span::Month, "<h2>2024 - 1</h2>"},
                      {2024y / 12 / 31, CalendarChoice::Span::Month, "<h2>2024 - 12</h2>"},
                      {1300y / 2 / 1, CalendarChoice::Span::Month, "<h2>1300 - 2</h2>"},
                      {2031y / 1 / 1, CalendarChoice::Span::Year, "\n<h2>2031 - 1</h2>"}};
  for (const Row& row : rows) {
    CommandWorld world;
    world.recording.AnswerDialog<CalendarRequest>(CalendarChoice{row.day, row.span});
    RunAction(world, "InsertCalendarCustomize");
    EXPECT_THAT(world.PastedFragment(), StartsWith(row.begins));
  }
}

class ImageTableAction : public testing::Test {
 protected:
  ImageTableAction() { world.globals.folders.SettingsFile = folder.path() / "quillapp.plist"; }
  void RunWith(const std::vector<std::string>& paths) {
    world.recording.AnswerDialog<ImageTableRequest>(
        ImageTableChoice{paths, {tools::ImageLayout::Horizontal, tools::ImageNames::Hidden}});
    RunAction(world, "ImageTable");
  }

  test::TemporaryFolder folder;
  CommandWorld world;
};

// Pictures that are gone by now are named; the others are on the page, as the user arranged them.
TEST_F(ImageTableAction, InsertsWhatCanBeReadAndNamesTheRest) {
  const std::string good = folder.Write("a.png", "PNG").string();
  const std::string gone = (folder.path() / "b.png").string();
  RunWith({good, gone, good});
  const std::string html = world.recording.pastes().at(0).contents.html.value_or("");
  EXPECT_THAT(html, HasSubstr("<tr><td><img width='480' src='data:image/png;base64,UE5H'/></td><td><img"));
  EXPECT_THAT(world.recording.messages(), ElementsAre(HasSubstr(gone + ": not found")));
  LoadSettings(world.globals);
  EXPECT_EQ(world.globals.settings.ImageTableHorizontalArrange, 1);
  EXPECT_EQ(world.globals.settings.ImageTableShowFileName, 0);
}

// Cancelled half-way, or with nothing to read, nothing reaches the page.
TEST_F(ImageTableAction, InsertsNothingWhenCancelledOrEmpty) {
  world.recording.CancelProgressAfter(1);
  RunWith({folder.Write("a.png", "PNG").string(), folder.Write("b.png", "PNG").string()});
  EXPECT_THAT(world.recording.messages(), IsEmpty());
  RunWith({"/no/such.png"});
  EXPECT_TRUE(world.recording.pastes().empty());
}

// A folder full of pictures that have gone must not fill the screen with an alert.
TEST_F(ImageTableAction, NamesTheFirstFewOfMany) {
  std::vector<std::string> gone;
  for (int i = 0; i < 50; ++i) gone.push_back("/no/such" + std::to_string(i) + ".png");
  RunWith(gone);
  const std::string message = world.recording.messages().at(0);
  EXPECT_EQ(std::count(message.begin(), message.end(), '\n'), 11);
  EXPECT_THAT(message, HasSubstr("and 40 more"));
}

// The user's own clipboard is back while the window is open, and the text keeps its carriage returns.
TEST(ImageOCRText, ShowsTheTextOfTheFirstPicture) {
  CommandWorld world(Copied("<p><img src=\"a.png\" alt=\"one&#13;&#10;two &amp; three\"></p>"));
  RunAction(world, "ImageOCRText");
  EXPECT_EQ(world.recording.transcript(), "clear; run copy; read html; restore clipboard; run window");
  EXPECT_EQ(std::any_cast<const ImageTextRequest&>(world.recording.windows().at(0)).text,
            "one\r\ntwo & three");

  CommandWorld failing;
  failing.recording.FailScripts({platform::ScriptProblem::TargetMissing});
  RunAction(failing, "ImageOCRText");
  EXPECT_TRUE(failing.recording.windows().empty());
  EXPECT_EQ(failing.recording.messages().size(), 1u);
}

}  // namespace
}  // namespace quill::shell
