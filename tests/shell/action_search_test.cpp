#include "shell/action_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "content/unicode_text.h"
#include "shell/action_synonyms.h"
#include "shell/command_table.h"
#include "shell/string_table.h"

namespace quill::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The menu as its English users see it.
struct Menu {
  std::vector<SearchEntry> entries;

  Menu() {
    const StringTable strings;
    for (const CommandRow& row : CommandTable()) {
      if (row.place != Place::Menu && row.place != Place::Palette) continue;
      entries.push_back({std::string(strings.Text(row.titleKey)), Synonyms(strings, row, std::nullopt), ""});
    }
  }

  std::vector<std::string> Titles(std::string_view query, std::span<const std::size_t> recent = {}) const {
    std::vector<std::string> titles;
    for (const SearchHit& hit : ActionSearch(entries).Find(query, recent)) {
      titles.push_back(entries[hit.entry].title);
    }
    return titles;
  }

  std::string First(std::string_view query) const {
    const auto titles = Titles(query);
    return titles.empty() ? "" : titles.front();
  }
};

std::vector<std::string> Find(const std::vector<SearchEntry>& entries, std::string_view query,
                              std::span<const std::size_t> recent = {}) {
  std::vector<std::string> titles;
  for (const SearchHit& hit : ActionSearch(entries).Find(query, recent))
    titles.push_back(entries[hit.entry].title);
  return titles;
}

std::vector<SearchEntry> Titles(const std::vector<std::string>& titles) {
  std::vector<SearchEntry> entries;
  for (const std::string& title : titles) entries.push_back({title, "", ""});
  return entries;
}

/// The parts of the title that are shown in bold, in brackets.
std::string Marked(const std::string& title, std::string_view query) {
  const std::vector<SearchHit> hits = ActionSearch(Titles({title})).Find(query);
  if (hits.empty()) return "";
  std::u16string text = content::ToUtf16(title);
  for (auto range = hits[0].title.rbegin(); range != hits[0].title.rend(); ++range) {
    text.insert(range->begin + range->length, u"]").insert(range->begin, u"[");
  }
  return content::ToUtf8(text);
}

// Nobody learns the menu: what people type instead of a title brings the action they mean to the top.
TEST(ActionSearch, FindsWhatIsMeant) {
  const struct {
    const char *query, *title;
  } cases[] = {
      {"UPPER CASE", "UPPER CASE"},
      {"uc", "UPPER CASE"},
      {"up ca", "UPPER CASE"},
      {"case up", "UPPER CASE"},
      {"upca", "UPPER CASE"},
      {"uppercase", "UPPER CASE"},
      {"uper case", "UPPER CASE"},
      {"upepr", "UPPER CASE"},
      {"capitals", "UPPER CASE"},
      {"shout", "UPPER CASE"},
      {"small letters", "lower case"},
      {"swap case", "tOGGLE cASE"},
      {"title case", "Capitalize Each Word"},
      {"today", "Insert Date"},
      {"clock", "Insert Time"},
      {"timestamp", "Insert Date and Time"},
      {"np", "New Page"},
      {"newpage", "New Page"},
      {"page new", "New Page"},
      {"plain", "Copy as Plain Text"},
      {"cpt", "Copy as Plain Text"},
      {"unformatted", "Copy as Plain Text"},
      {"ocr", "Text in Image…"},
      {"csv table", "Save Table as CSV…"},
      {"tbl style", "Table Style…"},
      {"tabel style", "Table Style…"},
      {"table text", "Table to Text…"},
      {"text table", "Text to Table…"},
      {"onedrive", "Open Cloud Attachment"},
      {"toc", "Contents: Headings"},
      {"math", "LaTeX Equation…"},
      {"formula", "LaTeX Equation…"},
      {"horizonal", "Horizontal Line"},
      {"hr", "Horizontal Line"},
      {"code", "Source Code…"},
      {"settings", "Options…"},
      {"preferences", "Options…"},
      {"docx", "Save as Word Document"},
      {".onepkg", "Extract .onepkg…"},
      {"next month", "Calendar: Next Month"},
      {"serach and replace", "Find and Replace…"},
      {"word", "Word Count…"},
      {"wordcount", "Word Count…"},
  };
  const Menu menu;
  for (const auto& [query, title] : cases) EXPECT_EQ(menu.First(query), title) << query;
}

// Who does know the title gets the action, by all of it and by its initials (titles that begin with these
// very letters are nearer still).
TEST(ActionSearch, FindsEveryActionByItsTitleAndInitials) {
  const Menu menu;
  for (const SearchEntry& entry : menu.entries) {
    EXPECT_EQ(menu.First(entry.title), entry.title);
    std::u32string initials;
    const SearchText folded = FoldForSearch(entry.title);
    for (const std::uint32_t word : folded.words) initials += folded.letters[word];
    if (initials.size() < 2 || folded.letters.starts_with(initials)) continue;
    std::string query;
    for (const char32_t letter : initials) content::AppendUtf8(query, letter);
    auto titles = menu.Titles(query);
    std::erase_if(
        titles, [&](const std::string& title) { return FoldForSearch(title).letters.starts_with(initials); });
    titles.resize(std::min<std::size_t>(titles.size(), 3));
    EXPECT_THAT(titles, testing::Contains(entry.title)) << query;
  }
}

// The better an entry fits, the higher it stands, whatever its place in the menu.
TEST(ActionSearch, RanksByTheKindOfMatch) {
  std::vector<SearchEntry> entries =
      Titles({"a prison tent", "Blueprint", "Reprint page", "My Print", "Printer", "Print"});
  entries.insert(entries.begin() + 1, {"Output", "printing, paper", ""});
  entries.insert(entries.begin(), {"Sheet", "", "Print"});
  EXPECT_THAT(Find(entries, "print"), ElementsAre("Print", "Printer", "My Print", "Blueprint", "Reprint page",
                                                  "Output", "Sheet", "a prison tent"));
  EXPECT_THAT(Find(Titles({"x-a-b-c", "xaybzc", "xabyc"}), "abc"), ElementsAre("x-a-b-c", "xabyc", "xaybzc"));
}

// Each word may be at home somewhere else; all of them must be.
TEST(ActionSearch, AcceptsWordsOfTitleSynonymAndGroup) {
  const std::vector<SearchEntry> entries = {{"UPPER CASE", "capitals, big letters", "Text"},
                                            {"Table Style", "capital rows", "Table"}};
  EXPECT_THAT(Find(entries, "text capit"), ElementsAre("UPPER CASE"));
  EXPECT_THAT(Find(entries, "letters case"), ElementsAre("UPPER CASE"));
  EXPECT_THAT(Find(entries, "capital table"), ElementsAre("Table Style"));
  EXPECT_THAT(Find(entries, "text spaceship"), IsEmpty());
}

// What was used a moment ago comes first among equals, and leads the list before anything is typed.
TEST(ActionSearch, PutsRecentActionsFirstAmongEquals) {
  const auto entries = Titles({"Table", "Table Style", "Table Size", "Text", "Style Table"});
  const std::vector<std::size_t> recent = {4, 2, 99, 2};
  EXPECT_THAT(Find(entries, "", recent),
              ElementsAre("Style Table", "Table Size", "Table", "Table Style", "Text"));
  EXPECT_THAT(Find(entries, "tab", recent), ElementsAre("Table Size", "Table", "Table Style", "Style Table"));
  EXPECT_THAT(Find(entries, " … ", recent), testing::SizeIs(5));
}

// Nobody types accents, capitals or full-width letters into a search field, and some languages have no
// spaces.
TEST(ActionSearch, FoldsWhatPeopleDoNotType) {
  const struct {
    const char *title, *query;
  } found[] = {{"Überschrift", "uberschrift"},
               {"Größe ändern", "grosse and"},
               {"Œuvre d’art", "oeuvre dart"},
               {"Ｔａｂｌｅ", "table"},
               {"Table", "ｔａｂ"},
               {"Ændre Størrelse", "aendre storrelse"},
               {"日付を挿入…", "挿入"},
               {"插入日期和时间", "日期"},
               {"テーブルのスタイル", "スタイル"},
               {"ﾃｰﾌﾞﾙ", "テーブル"},
               {"표 스타일", "스타"},
               {"İstanbul", "istanbul"},
               {"Ёлка", "елка"},
               {"Ε\u0301νας", "ενασ"},
               {"Page Title Tag ☐", "☐"}};
  for (const auto& [title, query] : found)
    EXPECT_FALSE(Marked(title, query).empty()) << title << " by " << query;
  EXPECT_EQ(Marked("がく", "かく"), "") << "voicing marks are not accents";
}

// The bold letters are the ones that were typed, also beside characters of two UTF-16 units and marks.
TEST(ActionSearch, MarksTheMatchedCharacters) {
  EXPECT_EQ(Marked("UPPER CASE", "up ca"), "[UP]PER [CA]SE");
  EXPECT_EQ(Marked("UPPER CASE", "uc"), "[U]PPER [C]ASE");
  EXPECT_EQ(Marked("UPPER CASE", "upper case"), "[UPPER CASE]");
  EXPECT_EQ(Marked("Save Table as CSV…", "csv table"), "Save [Table] as [CSV]…");
  EXPECT_EQ(Marked("🎫🏠 A\u0301b x", "a"), "🎫🏠 [A\u0301]b x");
  EXPECT_EQ(Marked("Größe", "osse"), "Gr[öße]");
  EXPECT_EQ(Marked("日付を挿入", "挿入"), "日付を[挿入]");
  EXPECT_EQ(Marked("Horizontal Line", "hrzline"), "[H]o[r]i[z]ontal [Line]");
}

// A checkbox cannot be typed: each tag is found by what it is called.
TEST(ActionSynonyms, NameThePageTitleTags) {
  const StringTable strings;
  const CommandRow* row = FindCommandByNumber(25);
  EXPECT_TRUE(Synonyms(strings, *row, 15).starts_with(" star")) << Synonyms(strings, *row, 15);
  EXPECT_TRUE(Synonyms(strings, *row, 0).starts_with("none"));
  EXPECT_EQ(Synonyms(strings, *row, 99), Synonyms(strings, *row, std::nullopt));
  EXPECT_EQ(SynonymKey("menuUpperCase"), "synUpperCase");
  EXPECT_EQ(SynonymKey("titleOptions"), "");
}

/// Letters, spaces, marks, symbols and bytes that are no text.
std::string RandomText(std::mt19937& random, std::size_t most) {
  static const std::vector<std::string> kParts = {"a",
                                                  "b",
                                                  "A",
                                                  " ",
                                                  "Ü",
                                                  "ß",
                                                  "…",
                                                  "日",
                                                  "が",
                                                  "\u0301",
                                                  "🎫",
                                                  "\xff",
                                                  "\xf0\x9f",
                                                  "'",
                                                  "-",
                                                  "☐",
                                                  std::string(1, '\0'),
                                                  "ﬃ",
                                                  "가"};
  std::string text;
  for (std::size_t n = random() % (most + 1); n > 0; --n) text += kParts[random() % kParts.size()];
  return text;
}

// Whatever is typed or pasted: no crash, every mark inside the title, ascending and apart.
TEST(ActionSearch, SurvivesRandomText) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<SearchEntry> entries;
    for (int i = 0; i < 8; ++i) {
      entries.push_back({RandomText(random, 120), RandomText(random, 20), RandomText(random, 5)});
    }
    const ActionSearch search(entries);
    for (int i = 0; i < 10; ++i) {
      for (const SearchHit& hit : search.Find(RandomText(random, i == 0 ? 3000 : 6))) {
        std::size_t last = 0;
        for (const TextRange& range : hit.title) {
          EXPECT_GT(range.length, 0u);
          EXPECT_TRUE(range.begin > last || last == 0);
          last = range.begin + range.length;
        }
        EXPECT_LE(last, content::ToUtf16(entries[hit.entry].title).size());
      }
    }
  }
}

// Ten times the actions may take ten times as long, not more: the list follows the typing.
TEST(ActionSearch, IsLinearInTheNumberOfActions) {
  const auto seconds = [](const ActionSearch& search) {
    double best = 1e9;
    for (int i = 0; i < 7; ++i) {
      const auto start = std::chrono::steady_clock::now();
      for (const char* query : {"e", "uc", "table", "zxq", "exprt tgs"}) search.Find(query);
      best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
  };
  const Menu menu;
  std::vector<SearchEntry> few, many;
  for (std::size_t i = 0; i < 500; ++i) few.push_back(menu.entries[i % menu.entries.size()]);
  for (std::size_t i = 0; i < 5000; ++i) many.push_back(menu.entries[i % menu.entries.size()]);
  EXPECT_LT(seconds(ActionSearch(many)), 25 * seconds(ActionSearch(few)));
}

// What cannot run now must not stand in the way of what can; typed in full it is still what was meant.
TEST(ActionSearch, PrefersWhatCanRun) {
  const std::vector<SearchEntry> entries = {
      {"Date and Time Format", "", "Page"}, {"Insert Date", "", "Page"}, {"Insert Time", "", "Page"}};
  const ActionSearch search(entries);
  const std::vector<bool> unavailable = {true, false, true};
  EXPECT_EQ(search.Find("date").at(0).entry, 0u);
  EXPECT_EQ(search.Find("date", {}, unavailable).at(0).entry, 1u);
  EXPECT_EQ(search.Find("", {}, unavailable).at(0).entry, 1u);
  EXPECT_EQ(search.Find("date and time format", {}, unavailable).at(0).entry, 0u);
}

}  // namespace
}  // namespace quill::shell
