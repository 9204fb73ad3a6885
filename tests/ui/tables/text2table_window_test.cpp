#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "table_windows.h"
#include "tools/text_to_table.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/tables/table_excerpt.h"
#include "ui/windows/tables/win_text2table.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools::TextTableMode;

struct Text2TableWindow : DialogTest<MWinText2Table, shell::Text2TableRequest> {
  MWinText2Table* Open(std::string text, TextTableMode mode, std::string separator = "-") {
    asked.emplace(world, OnThread({std::move(text), {mode, std::move(separator), "", ""}}));
    return WaitForWindow<MWinText2Table>();
  }
  std::future<std::optional<shell::TextTableChoice>> OnThread(shell::Text2TableRequest request) {
    return std::async(std::launch::async, [this, request] { return RunDialog(world.ui, request); });
  }
  static std::string Field(MWinText2Table* window, const char* name) {
    return FromQt(window->findChild<QLineEdit*>(name)->text());
  }
  static std::string Sizes(MWinText2Table* window) {
    return Field(window, "columns") + "x" + Field(window, "rows");
  }
  static std::string Problem(MWinText2Table* window) {
    auto* line = window->findChild<ProblemLine*>();
    std::string text;
    if (line == nullptr) return text;
    for (const auto* label : line->findChildren<QLabel*>()) text += FromQt(label->text());
    return text;
  }
  static void TypeColumns(MWinText2Table* window, const char* text) {
    auto* field = window->findChild<QLineEdit*>("columns");
    field->setFocus();
    field->selectAll();
    Press(Qt::Key_Delete);
    Type(text);
  }
  static std::string Shown(MWinText2Table* window) {
    return FromQt(window->findChild<PagePreview*>()->toHtml());
  }
  /// What a preview makes of the table that would be inserted now.
  static std::string Expected(MWinText2Table* window, std::string_view text, tools::TextTableCut cut) {
    PagePreview preview;
    preview.ShowHtml(tools::CreateTable(text, cut, Field(window, "columns"), Field(window, "rows")).html);
    return FromQt(preview.toHtml());
  }

  std::optional<Asked<std::optional<shell::TextTableChoice>>> asked;
};

// By paragraphs the rows follow from the columns as they are typed, and the preview is the table itself.
TEST_F(Text2TableWindow, ByParagraphsTheRowsFollowTheColumns) {
  const std::string text = "one\n\n<b>three</b>\nfour\nfive";
  auto* window = Open(text, TextTableMode::Paragraphs);
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window), ElementsAre("Paragraph marks", "Columns:", "Preview", "Insert", "Cancel"));
  EXPECT_EQ(Sizes(window), "1x5");
  TypeColumns(window, "2");
  EXPECT_EQ(Sizes(window), "2x3");
  EXPECT_EQ(FromQt(window->findChild<QLabel*>("size")->text()), "Rows: 3, columns: 2.");
  EXPECT_EQ(Shown(window), Expected(window, text, {}));
  EXPECT_THAT(Shown(window), HasSubstr("font-weight"));
  Picture(*window, "text2table");
  Press(Qt::Key_Return);
  const auto answer = asked->Answer().value();
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->mode, TextTableMode::Paragraphs);
  EXPECT_EQ(answer->columns + "x" + answer->rows, "2x3");
}

// The other modes read the size from the text; back at paragraphs the number of columns found is kept.
TEST_F(Text2TableWindow, ASeparatorGivesTheSize) {
  const std::string text = "\na\tb;c,d\te\n\nf\tg";
  auto* window = Open(text, TextTableMode::Tabs, ";");
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(Sizes(window), "3x4");
  EXPECT_FALSE(window->findChild<QLineEdit*>("columns")->isEnabled());
  EXPECT_EQ(Shown(window), Expected(window, text, {TextTableMode::Tabs, ""}));
  Press(Qt::Key_Down);
  EXPECT_EQ(Sizes(window), "2x4");
  EXPECT_EQ(Shown(window), Expected(window, text, {TextTableMode::Commas, ""}));
  Press(Qt::Key_Down);
  EXPECT_EQ(Sizes(window), "2x4");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Sizes(window), "1x4") << "an empty separator cuts nothing";
  Type(";");
  EXPECT_EQ(Sizes(window), "2x4");
  EXPECT_EQ(Shown(window), Expected(window, text, {TextTableMode::Other, ";"}));
  Picture(*window, "text2table-other");
  window->findChildren<QRadioButton*>().front()->click();
  EXPECT_EQ(Sizes(window), "2x2") << "four lines in two columns";
  EXPECT_TRUE(window->findChild<QLineEdit*>("columns")->isEnabled());
  Press(Qt::Key_Escape);
  EXPECT_EQ(asked->Answer().value().has_value(), false);
}

// Sizes are free text. What cannot become a table of that size is told before it is inserted.
TEST_F(Text2TableWindow, WarnsOfSizesThatCannotBe) {
  auto* window = Open("a\nb\nc", TextTableMode::Paragraphs);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(Problem(window), "");
  QElapsedTimer time;
  time.start();
  TypeColumns(window, "9999999999");
  EXPECT_LT(time.elapsed(), 10000);
  EXPECT_EQ(Sizes(window), "9999999999x1");
  EXPECT_THAT(Problem(window), HasSubstr("more than 1,000,000 cells"));
  Picture(*window, "text2table-clamped");
  TypeColumns(window, "two");
  EXPECT_EQ(Sizes(window), "twox3");
  EXPECT_THAT(Problem(window), HasSubstr("no cells"));
  TypeColumns(window, "1000000");
  EXPECT_EQ(Problem(window), "");
  TypeColumns(window, "-2");
  EXPECT_THAT(Problem(window), HasSubstr("no cells"));
  TypeColumns(window, "3 or so");
  EXPECT_EQ(Problem(window), "");
  EXPECT_EQ(Sizes(window), "3 or sox1");
}

// A number from the settings file without a button cuts at commas.
TEST_F(Text2TableWindow, AnUnknownModeCutsAtCommas) {
  auto* window = Open("a,b,c", static_cast<TextTableMode>(9));
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(Sizes(window), "3x1");
  for (const auto* button : window->findChildren<QRadioButton*>()) EXPECT_FALSE(button->isChecked());
  Press(Qt::Key_Return);
  EXPECT_EQ(asked->Answer().value()->mode, static_cast<TextTableMode>(9));
}

// Megabytes are cut before they are laid out, in every mode and shape, and each key is answered at once.
TEST_F(Text2TableWindow, ALargeTextIsCutForThePreview) {
  std::string lines, cells;
  for (int i = 0; i < 200'000; ++i) lines += "line " + std::to_string(i) + "\tx\n";
  for (int i = 0; i < 200'000; ++i) cells += "cell " + std::to_string(i) + "\t";
  const std::string letters(3'000'000, 'x');
  std::string full;
  for (int i = 0; i < 10'000; ++i) full += std::string(90, 'y') + (i % 20 == 19 ? "\n" : "\t");
  for (const std::string& text : {lines, cells, letters, full}) {
    for (const auto mode : {TextTableMode::Paragraphs, TextTableMode::Tabs}) {
      PagePreview preview;
      preview.resize(500, 400);
      preview.show();
      QElapsedTimer time;
      time.start();
      const TableExcerpt excerpt = ExcerptOfTable(text, {mode, ""}, "10", "30000");
      preview.ShowHtml(excerpt.html);
      preview.grab();
      EXPECT_LT(time.elapsed(), 10000);
      EXPECT_TRUE(excerpt.isPart);
      EXPECT_LT(excerpt.html.size(), 20'000u);
    }
  }
  auto* window = Open(lines, TextTableMode::Paragraphs);
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(FromQt(window->findChild<QLabel*>("size")->text()), HasSubstr("Only the beginning is shown."));
  Picture(*window, "text2table-large");
}

// Cells keep their places when rows and columns are left out, and no tag or character is cut in two.
TEST(TableExcerpt, IsTheTopLeftOfTheTable) {
  std::string numbers;
  for (int i = 0; i < 100; ++i) numbers += std::to_string(i) + "\n";
  const std::string html = ExcerptOfTable(numbers, {}, "20", "6").html;
  EXPECT_THAT(html, HasSubstr("<tr><td>0</td><td>1</td>"));
  EXPECT_THAT(html, HasSubstr("<td>9</td></tr><tr><td>20</td>"));
  EXPECT_THAT(html, HasSubstr("<tr><td>-</td><td></td>")) << "the empty sixth row";
  const std::string long1 = std::string(390, 'a') + "<span title='" + std::string(100, 'b') + "'>c</span>";
  EXPECT_THAT(ExcerptOfTable(long1, {}, "1", "1").html, HasSubstr("aaa</td>"));
  const std::string long2 = "a" + [] {
    std::string text;
    for (int i = 0; i < 300; ++i) text += "\u00E4";
    return text;
  }();
  EXPECT_EQ(ToQt(ExcerptOfTable(long2, {}, "1", "1").html).count(QChar::ReplacementCharacter), 0);
  EXPECT_FALSE(ExcerptOfTable("a\nb", {}, "1", "2").isPart);
}

// The warning comes exactly when the table would be clamped.
TEST(TableExcerpt, KnowsWhichSizesAreClamped) {
  const std::pair<const char*, const char*> sizes[] = {
      {"1000", "1000"}, {"1000", "1001"}, {"1000001", "1"},    {"0", "1000001"}, {"-1", "5"},
      {"3", "-1"},      {"x", "5"},       {"9999999999", "0"}, {"2", "3"}};
  for (const auto& [columns, rows] : sizes) {
    EXPECT_EQ(tools::ExceedsMostCells(columns, rows), tools::CreateTable("a", {}, columns, rows).isClamped)
        << columns << " x " << rows;
  }
}

}  // namespace
}  // namespace quill::ui
