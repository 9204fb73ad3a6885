// The rules of the table tools and counts read word by word, recursive and rebuilding texts as they go. The
// fast code must not differ from them on any document.
#include <gtest/gtest.h>

#include <random>

#include "content/unicode_text.h"
#include "tools/parsed_selection.h"
#include "tools/table_csv.h"
#include "tools/table_style.h"
#include "tools/table_to_text.h"
#include "tools/word_count.h"

namespace quill::tools {
namespace {

bool IsElement(pugi::xml_node node) {
  return node.type() == pugi::node_element;
}

bool IsElement(pugi::xml_node node, const std::string& name) {
  return IsElement(node) && node.name() == name;
}

bool IsText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

std::string StringValue(pugi::xml_node node) {
  std::string value = IsText(node) ? node.value() : "";
  for (const pugi::xml_node child : node) value = value + StringValue(child);
  return value;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text = text.substr(0, at) + to + text.substr(at + from.size());
  return text;
}

struct LiteralStyles {
  ChooseTableStyle choose;
  std::int64_t rowIndex = 0;

  std::int64_t ChangeTableStyle_Recurse(pugi::xml_node element) {
    if (!element.first_child()) return 0;
    std::int64_t result = -1;
    for (const pugi::xml_node child : element) {
      if (IsElement(child, "table")) {
        const TableStyle* style = choose(child);
        if (style != nullptr) ChangeStyle(child, *style);
        return style != nullptr ? 1 : -1;
      }
      if (IsElement(child)) result = ChangeTableStyle_Recurse(child);
      if (result > 0) return result;
    }
    return result;
  }

  void ChangeStyle(pugi::xml_node element, const TableStyle& style) {
    rowIndex = 0;
    for (const pugi::xml_node child : element) {
      if (IsElement(child, "tr")) {
        rowIndex = rowIndex + 1;
        ChangeStyle_TR(child, style);
      } else if (IsElement(child)) {
        ChangeStyle(child, style);
      }
    }
  }

  void ChangeStyle_TR(pugi::xml_node row, const TableStyle& style) {
    int cells = 0;
    for (const pugi::xml_node child : row) {
      if (IsElement(child, "td")) {
        cells = cells + 1;
        std::string_view color;
        if (rowIndex == 1) color = style.headerRow;
        if (color.empty() && cells == 1) color = style.firstColumn;
        if (color.empty()) color = rowIndex % 2 == 1 ? style.oddRows : style.evenRows;
        child.attribute("style").set_value(("background-color:" + std::string(color)).c_str());
      } else if (IsElement(child)) {
        ChangeStyle_TR(child, style);
      }
    }
  }
};

/// `separator` null: paragraphs that `after` ends.
std::string LiteralText(pugi::xml_node table, const char* separator, const std::string& after, bool isCsv) {
  std::string text;
  for (const pugi::xml_node tr : table) {
    if (!IsElement(tr, "tr")) continue;
    std::string row;
    for (const pugi::xml_node td : tr) {
      if (!IsElement(td, "td")) continue;
      std::string cell = Replaced(StringValue(td), "\n", "");
      if (isCsv) {
        const bool isEnclosed = cell.find_first_of(",\"") != std::string::npos;
        cell = Replaced(cell, "\"", "\"\"");
        if (isEnclosed) cell = "\"" + cell + "\"";
      }
      if (separator == nullptr) {
        row = row + cell + after;
      } else {
        row = row.empty() ? cell : row + separator + cell;
      }
    }
    text = text + row + "\n";
  }
  return text;
}

struct LiteralCounter {
  WordCounts counts;

  std::int64_t Run_Recurse(pugi::xml_node element, bool isParagraph) {
    std::int64_t count = 0;
    for (const pugi::xml_node child : element) {
      if (IsText(child)) {
        if (isParagraph) StatisticsWords(child.value());
      } else if (IsElement(child, "img")) {
        counts.images += 1;
      } else if (IsElement(child, "span") || IsElement(child, "a")) {
        count += Run_Recurse(child, isParagraph);
      } else if (IsElement(child)) {
        count += 1;
        if (Run_Recurse(child, true) == 0) counts.paragraphs += 1;
      }
    }
    return count;
  }

  void StatisticsWords(const std::string& text) {
    int run = 0;
    for (const char16_t c : content::ToUtf16(text)) {
      const bool isSpace = c == ' ' || (c >= 9 && c <= 13);
      counts.charactersWithSpaces += 1;
      counts.charactersNoSpaces += isSpace ? 0 : 1;
      if (isSpace) {
        counts.nonAsianWords += run > 0 ? 1 : 0;
        run = 0;
      } else if (c > 255) {
        counts.asianWords += 1;
        run = 0;
      } else {
        run = run + 1;
      }
    }
    counts.nonAsianWords += run > 0 ? 1 : 0;
  }
};

/// A random tree of the names that the tools look for.
void Grow(std::string& xml, std::mt19937& random, int depth) {
  constexpr const char* kNames[] = {"table", "table", "tr", "tr", "td",   "td",  "td",
                                    "tbody", "p",     "p",  "a",  "span", "img", "br"};
  constexpr const char* kTexts[] = {"a", " ",   "\n",       ",",        "&quot;",        "é",      "中",
                                    "😀", "b c", "<!--x-->", "<?tr x?>", "<![CDATA[d]]>", "\u00A0", "\u0100"};
  for (std::size_t n = random() % 5; n-- > 0;) {
    if (depth == 0 || random() % 3 == 0) {
      xml += kTexts[random() % std::size(kTexts)];
    } else {
      const std::string name = kNames[random() % std::size(kNames)];
      xml.append("<" + name).append(random() % 3 == 0 ? ">" : " style='width:1in'>");
      Grow(xml, random, depth - 1);
      xml.append("</" + name + ">");
    }
  }
}

void CompareTexts(pugi::xml_node table) {
  ASSERT_EQ(TableToCsv(table), LiteralText(table, ",", "", true));
  ASSERT_EQ(TableToText(table, TableTextMode::TwoParagraphs, ""), LiteralText(table, nullptr, "\n\n", false));
  ASSERT_EQ(TableToText(table, TableTextMode::Paragraph, ""), LiteralText(table, nullptr, "\n", false));
  ASSERT_EQ(TableToText(table, TableTextMode::Tabs, ""), LiteralText(table, "\t", "", false));
  ASSERT_EQ(TableToText(table, TableTextMode::Other, "; "), LiteralText(table, "; ", "", false));
}

/// Accepts the table that comes after this many refusals, and writes down which tables it was asked for.
ChooseTableStyle Refusing(unsigned refusals, std::string& asked) {
  return [refusals, &asked](pugi::xml_node table) mutable {
    asked += std::to_string(table.offset_debug()) + " ";
    return refusals-- == 0 ? &kTableStyles[21] : nullptr;
  };
}

void CompareStyles(const std::string& inner, unsigned refusals) {
  auto ours = test::Parse(inner);
  auto literal = test::Parse(inner);
  std::string asked;
  std::string literallyAsked;
  const auto outcome = ChangeTableStyle_Recurse(ours.tree(), Refusing(refusals, asked));
  LiteralStyles styles{Refusing(refusals, literallyAsked)};
  ASSERT_EQ(outcome.value, styles.ChangeTableStyle_Recurse(literal.tree()));
  ASSERT_EQ(outcome.tableMet, !asked.empty());
  ASSERT_EQ(asked, literallyAsked);
  ASSERT_EQ(ours.Xml(), literal.Xml());
}

// The walks keep no call stack and the texts are built in place; neither may show in any result.
TEST(RandomTables, FastAndLiteralReadingsAgree) {
  std::mt19937 random(20240131);
  int tables = 0;
  for (int i = 0; i < 6'000 && !HasFatalFailure(); ++i) {
    std::string inner;
    Grow(inner, random, 7);
    SCOPED_TRACE(inner);
    auto document = test::Parse(inner);
    LiteralCounter counter;
    counter.Run_Recurse(document.Root(), false);
    ASSERT_EQ(CountWords(document.Root()), counter.counts);
    if (const pugi::xml_node table = test::FirstTable(document)) {
      ++tables;
      CompareTexts(table);
    }
    CompareStyles(inner, random() % 3);
  }
  EXPECT_GT(tables, 1000);
}

// Counting adds up blocks of a long text; a run across the seam is still one word.
TEST(RandomTables, LongTextsAreCountedLikeShortOnes) {
  std::string text;
  while (text.size() < 3'000'000) text += "word é 中😀x\t";
  WordCounts counts;
  StatisticsWords(text, counts);
  LiteralCounter counter;
  counter.StatisticsWords(text);
  EXPECT_EQ(counts, counter.counts);
}

// Elements nested a hundred thousand deep would use up the stack of a recursive walk.
TEST(RandomTables, DeepNestingIsWalkedWithoutRecursion) {
  std::string nested;
  for (int i = 0; i < 100'000; ++i) nested += "<th>";
  pugi::xml_document deep;
  // The end tags are missing, which the tree forgives.
  deep.load_string(("<table><tr>" + nested + "<td style='x'>a</td>").c_str());
  EXPECT_EQ(CountWords(deep).paragraphs, 1);
  EXPECT_EQ(ChangeTableStyle_Recurse(deep, [](auto) { return &kTableStyles[0]; }).value, 1);
  const pugi::xml_node cell = content::FindElementNamed(deep, "td");
  EXPECT_STREQ(cell.attribute("style").value(), "background-color:white");
  deep.load_string(("<table><tr><td>" + nested + "a").c_str());
  EXPECT_EQ(TableToCsv(deep.first_child()), "a\n");
}

}  // namespace
}  // namespace quill::tools
