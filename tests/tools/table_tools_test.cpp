#include <gtest/gtest.h>

#include "tools/parsed_selection.h"
#include "tools/table_csv.h"
#include "tools/table_style.h"
#include "tools/table_to_text.h"
#include "tools/text_to_table.h"

namespace quill::tools {
namespace {

using test::FirstTable;
using test::Parse;

/// The `style` of each cell in document order, without "background-color:"; "-" for a cell without one.
std::string Colors(pugi::xml_node root) {
  std::string colors;
  for (auto cell = root;
       (cell = cell.find_node([&](auto node) { return node.name() == std::string("td"); }));) {
    const std::string style = cell.attribute("style").as_string("-");
    colors.append(colors.empty() ? "" : " ").append(style, style.starts_with("background-color:") ? 17 : 0);
    cell.set_name("seen");
    cell = root;
  }
  return colors;
}

std::string Restyled(const std::string& table, std::int64_t row) {
  auto document = Parse(table);
  ChangeStyle(FirstTable(document), *FindTableStyle(row));
  return Colors(document.tree());
}

// A row that is out of place gives the user other colours than the picture that was chosen.
TEST(TableStyles, StandWhereTheListShowsThem) {
  ASSERT_EQ(std::size(kTableStyles), 35u);
  const std::pair<std::int64_t, std::string_view> kIcons[] = {
      {0, "TStyle1"}, {7, "TMStyle1"}, {14, "TStyleHeader1"}, {21, "TStyleHeaderLeft1"}, {34, "TStyleLeft7"}};
  for (const auto& [row, icon] : kIcons) EXPECT_EQ(FindTableStyle(row)->icon, icon);
  for (const std::int64_t row : {std::int64_t{-1}, std::int64_t{35}, INT64_MIN, INT64_MAX})
    EXPECT_EQ(FindTableStyle(row), nullptr) << row << " from an edited settings file";
}

// Which colour wins, and which cells are left alone, is what a restyled table looks like.
TEST(TableStyle, ColoursHeaderThenFirstColumnThenBands) {
  const std::string row = "<tr><td style='border:1px'>a</td><td style=''>b</td></tr>";
  const std::string table = "<table>" + row + row + row + "</table>";
  EXPECT_EQ(Restyled(table, 21), "black black black #D9D9D9 black white");
  EXPECT_EQ(Restyled(table, 14), "black black #D9D9D9 #D9D9D9 white white");
  EXPECT_EQ(Restyled(table, 28), "black white black #D9D9D9 black white");
  EXPECT_EQ(Restyled(table, 0), "white white #CCCCCC #CCCCCC white white");
  EXPECT_EQ(Restyled("<table><tr><td>a</td><td style='x'>b</td></tr></table>", 28), "- white")
      << "a cell without a style keeps none, but is the first cell";
  EXPECT_EQ(Restyled("<table>" + row + "<tbody>" + row + row + "</tbody>" + row + "</table>", 14),
            "black black black black #D9D9D9 #D9D9D9 white white")
      << "counting starts anew in the body and goes on behind it";
  EXPECT_EQ(Restyled("<table><tr><th><td style='x'>a</td></th><td style='x'>b</td></tr></table>", 28),
            "black black")
      << "inside of what is no cell the first cell is one again";
}

struct Search {
  std::string asked;
  TableStyleOutcome outcome;
};

/// Searches with the table of id `wanted` being the one that the user restyles.
Search SearchTable(const std::string& inner, const std::string& wanted) {
  auto document = Parse(inner);
  Search search;
  search.outcome = ChangeTableStyle_Recurse(document.tree(), [&](pugi::xml_node table) {
    search.asked += table.attribute("id").value();
    return table.attribute("id").value() == wanted ? FindTableStyle(0) : nullptr;
  });
  return search;
}

// The user is asked again only for tables elsewhere, and is told "no table" only when there was none.
TEST(TableStyle, AsksForTablesUntilOneIsRestyled) {
  const struct {
    std::string inner, wanted, asked;
    std::int64_t value;
    bool met;
  } kCases[] = {
      {"<p>a</p><div><table id='1'/></div><div><table id='2'/></div><table id='3'/>", "2", "12", 1, true},
      {"<div><table id='1'/><div><table id='2'/></div></div><p><table id='3'/></p>", "", "13", -1, true},
      {"<table id='1'><tr><td><table id='2'/></td></tr></table><table id='3'/>", "", "1", -1, true},
      {"<div><table id='1'/></div><p/>", "", "1", 0, true},
      {"<p>a</p>", "", "", -1, false},
      {"<p/>", "", "", 0, false},
      {"", "", "", 0, false},
  };
  for (const auto& c : kCases) {
    const Search search = SearchTable(c.inner, c.wanted);
    EXPECT_EQ(search.asked, c.asked) << c.inner;
    EXPECT_EQ(search.outcome.value, c.value) << c.inner;
    EXPECT_EQ(search.outcome.tableMet, c.met) << c.inner;
  }
}

// What users paste into other programs: separators, quoting, and cells that vanish at the start of a row.
TEST(TableToText, SeparatesAndEncloses) {
  auto document = Parse(
      "<table><tr><td/><td><p>\n</p></td><td>c,<b>3</b></td><td>a\nb</td><td/></tr><tr/>"
      "<tr><th>no</th><td><![CDATA[say "
      "\"hi\"]]><!--no--></td></tr><tbody><tr><td>no</td></tr></tbody></table>");
  const pugi::xml_node table = FirstTable(document);
  EXPECT_EQ(TableToText(table, TableTextMode::TwoParagraphs, "-"),
            "\n\n\n\nc,3\n\nab\n\n\n\n\n\nsay \"hi\"\n\n\n");
  EXPECT_EQ(TableToText(table, TableTextMode::Paragraph, "-"), "\n\nc,3\nab\n\n\n\nsay \"hi\"\n\n");
  EXPECT_EQ(TableToText(table, TableTextMode::Tabs, "-"), "c,3\tab\t\n\nsay \"hi\"\n");
  EXPECT_EQ(TableToText(table, TableTextMode::Commas, "-"), "c,3,ab,\n\nsay \"hi\"\n");
  EXPECT_EQ(TableToText(table, TableTextMode::Other, " | "), "c,3 | ab | \n\nsay \"hi\"\n");
  EXPECT_EQ(TableToText(table, TableTextMode::Other, ""), "c,3ab\n\nsay \"hi\"\n");
  EXPECT_EQ(TableToText(table, TableTextMode{-7}, "-"), "c,3,ab,\n\nsay \"hi\"\n") << "no button is on";
  EXPECT_EQ(TableToCsv(table), "\"c,3\",ab,\n\n\"say \"\"hi\"\"\"\n");
  EXPECT_EQ(EncloseQuote(" a;b "), " a;b ");
  EXPECT_EQ(EncloseQuote("\""), "\"\"\"\"");
}

// The numbers that the dialog fills in while the user types; wrong ones cut the table short.
TEST(TextToTable, WorksOutTheSizeFields) {
  using enum TextTableMode;
  using Columns = std::optional<std::int64_t>;
  const struct {
    std::string text;
    TextTableCut cut;
    std::string field;
    EditedField edited;
    Columns columns;
    std::int64_t rows;
  } kCases[] = {
      {"a\nb\nc\nd\ne", {Paragraphs, ""}, "2", EditedField::Another, 2, 3},
      {"a\nb\nc\nd\ne", {Paragraphs, ""}, "5x", EditedField::Columns, std::nullopt, 1},
      {"a\n\nb", {Paragraphs, ""}, "zero", EditedField::Another, 1, 3},
      {"a\n\nb", {Paragraphs, ""}, "-2", EditedField::Another, -2, -1},
      {"a\nb", {Paragraphs, ""}, "99999999999999999999", EditedField::Another, INT64_MAX, 1},
      {"a\tb,c\n\nd", {Tabs, ""}, "9", EditedField::Another, 2, 3},
      {"a\tb,c,\n\nd", {Commas, ""}, "9", EditedField::Columns, std::nullopt, 3},
      {"a,b,,c", {Commas, ""}, "9", EditedField::Another, 4, 1},
      {"a--b", {Other, "--"}, "9", EditedField::Another, 2, 1},
      {"a--b", {Other, ""}, "9", EditedField::Another, 1, 1},
      {"\na,b", {Commas, ""}, "9", EditedField::Another, 2, 2},
      {"", {Tabs, ""}, "9", EditedField::Another, 1, 1},
  };
  for (const auto& c : kCases) {
    const TableSizeFields fields = GetColumnsRows(c.text, c.cut, c.field, c.edited);
    EXPECT_EQ(fields.columns, c.columns) << c.text;
    EXPECT_EQ(fields.rows, c.rows) << c.text;
  }
  EXPECT_EQ(TextToTableSource("\xC2\xA0\r\n a\n \xE2\x80\xA8"), "a");
}

/// The rows of the table with "[", "|" and "]" for the markup of cells, "/" behind each row.
std::string Rows(const TextTable& table) {
  const std::string begin =
      "<html><head><meta http-equiv='Content-Type' content='text/html; charset=utf-8'></head><body><table "
      "border='1'>";
  const std::string end = "</table></body></html>";
  if (!table.html.starts_with(begin) || !table.html.ends_with(end)) return table.html;
  std::string rows = table.html.substr(begin.size(), table.html.size() - begin.size() - end.size());
  const std::pair<std::string, std::string> kShort[] = {
      {"</td><td>", "|"}, {"<tr>", ""}, {"</tr>", "/"}, {"<td>", "["}, {"</td>", "]"}};
  for (const auto& [from, to] : kShort) {
    for (std::size_t at; (at = rows.find(from)) != std::string::npos;) rows.replace(at, from.size(), to);
  }
  return rows;
}

// The page that is pasted: where lines go, where "-" stands in, and that markup in the text is kept.
TEST(TextToTable, MakesTheTable) {
  using enum TextTableMode;
  const TextTableCut paragraphs{Paragraphs, ""};
  const TextTableCut commas{Commas, ""};
  EXPECT_EQ(Rows(CreateTable("a\n \t\nc\n\xC2\xA0\ne", paragraphs, "2", "3")), "[a|-]/[c|]/[e|]/");
  EXPECT_EQ(Rows(CreateTable("a\nb", paragraphs, "2", "2")), "[a|b]/[-|]/");
  EXPECT_EQ(Rows(CreateTable("a \r\n b ", paragraphs, "2", "1")), "[a \r|b]/") << "blanks only are trimmed";
  EXPECT_EQ(Rows(CreateTable("a\nb\nc", paragraphs, "1", "2")), "[a]/[b]/") << "lines beyond are dropped";
  EXPECT_EQ(Rows(CreateTable("a", paragraphs, "2", "none")), "");
  EXPECT_EQ(Rows(CreateTable("a", paragraphs, "0", "2")), "//");
  EXPECT_EQ(Rows(CreateTable("a", paragraphs, "2", "-1")), "");
  EXPECT_EQ(Rows(CreateTable("a,<b>,,\n\nc ", commas, "1", "1")), "[a|<b>||]/[-]/[c ]/");
  EXPECT_EQ(Rows(CreateTable("a::b", {Other, "::"}, "", "")), "[a|b]/");
  EXPECT_EQ(Rows(CreateTable("a,b", {Other, ""}, "", "")), "[a,b]/");
}

// Free text fields ask for tables that would fill the memory; smaller ones must come out whole.
TEST(TextToTable, LimitsTheNumberOfCells) {
  const TextTableCut cut{TextTableMode::Paragraphs, ""};
  const auto cells = [&](const std::string& columns, const std::string& rows, std::string_view tag = "<td>") {
    const TextTable table = CreateTable("a", cut, columns, rows);
    std::int64_t count = 0;
    for (std::size_t at = 0; (at = table.html.find(tag, at)) != std::string::npos; ++at) ++count;
    return std::pair(count, table.isClamped);
  };
  EXPECT_EQ(cells("1000", "1000"), std::pair(kMostTableCells, false));
  EXPECT_EQ(cells("1000", "1001"), std::pair(kMostTableCells, true));
  EXPECT_EQ(cells("9999999999", "9999999999"), std::pair(kMostTableCells, true));
  EXPECT_EQ(cells("3", "9999999999"), std::pair(std::int64_t{999'999}, true));
  EXPECT_EQ(cells("0", "9999999999", "<tr>"), std::pair(kMostTableCells, true));
  EXPECT_EQ(cells("9999999999", "0"), std::pair(std::int64_t{0}, false));
}

}  // namespace
}  // namespace quill::tools
