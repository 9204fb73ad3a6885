#include <random>

#include "online/page_edit.h"
#include "online/page_oracle.h"
#include "online/service_samples.h"
#include "page_world.h"
#include "practice/service/online_page.h"

namespace quill::ui {
namespace {

/// The page as it is drawn, without the white space at the ends of lines: the engine tells that differently
/// for one page.
constexpr const char* kLines =
    "document.body.innerText.replace(/[ \\t]*\\n[ \\t\\n]*/g, '\\n').replace(/^[ \\n]+|[ \\n]+$/g, '')";
constexpr const char* kGuid = "{00000001-2222-4333-8444-0123456789AB}";

/// Pages and words, the same in every run.
class Chance {
 public:
  explicit Chance(unsigned seed) : m_random(seed) {}

  std::size_t Below(std::size_t count) { return m_random() % count; }
  std::string Bytes(std::size_t most) {
    std::string bytes(Below(most), '\0');
    for (char& byte : bytes) byte = static_cast<char>(m_random());
    return bytes;
  }
  std::string Words() { return oracle::GrowWords(Bytes(3) + static_cast<char>(Below(8))); }
  /// No letter "z" is in a page, so putting this in changes it.
  std::string NewWords() { return Below(4) == 0 ? "" : oracle::GrowWords(Bytes(3)) + "z"; }

 private:
  std::mt19937 m_random;
};

/// The content of a page as somebody writes it: paragraphs, headings, lists within lists, tables, formatted
/// words, pictures.
class Writer {
 public:
  explicit Writer(Chance& chance) : m_chance(chance) {}

  std::string Blocks(int depth) {
    std::string blocks;
    for (std::size_t left = m_chance.Below(4) + 1; left > 0; --left) blocks += Block(depth);
    return blocks;
  }

 private:
  std::string Block(int depth) {
    switch (depth > 2 ? m_chance.Below(3) : m_chance.Below(6)) {
      case 0:
        return "<h2>" + Line() + "</h2>";
      case 3:
        return "<ul>" + Items(depth + 1) + "</ul>";
      case 4:
        return "<ol>" + Items(depth + 1) + "</ol>";
      case 5:
        return "<table><tr><td>" + Line() + "</td><td><p>" + Line() + "</p><p>" + Line() +
               "</p></td></tr></table>";
      default:
        return "<p data-tag=\"to-do\" style=\"margin:0\">" + Line() + "</p>";
    }
  }
  std::string Items(int depth) {
    std::string items;
    for (std::size_t left = m_chance.Below(3) + 1; left > 0; --left) {
      items += "<li>" + Line();
      if (depth < 3 && m_chance.Below(3) == 0) items += "<ul>" + Items(depth + 1) + "</ul>";
      items += "</li>";
    }
    return items;
  }
  std::string Line() {
    static const char* const kPieces[] = {
        "ab",   "a b", "A", "Kk",     " ",        "\n ",      "&nbsp;", "&amp;",
        "&lt;", "i",   "b", "&#233;", "\xC3\x89", "\xC4\xB0", "<br />", "<img src=\"x?a=1&amp;b=2\" />"};
    std::string line;
    for (std::size_t left = m_chance.Below(9); left > 0; --left) {
      const std::string piece = kPieces[m_chance.Below(std::size(kPieces))];
      line += m_chance.Below(3) == 0 ? "<span style=\"color:red\">" + piece + "</span>" : piece;
    }
    return line;
  }

  Chance& m_chance;
};

// The script in the engine and the core are two readings of one page: what they find and send is the same,
// byte by byte.
TEST(FindInPageLikeTheCore, ReplacesAll) {
  PageWorld& page = PageWorld::Warm();
  Chance chance(20240507);
  std::size_t matches = 0;
  std::size_t sent = 0;
  for (int i = 0; i < 500; ++i) {
    const std::string html = oracle::GrowPage(chance.Bytes(120));
    const std::string find = chance.Words();
    const std::string replacement = chance.NewWords();
    const bool matchesCase = chance.Below(2) == 0;
    const auto edit = online::ReplaceInPage(html, find, replacement, matchesCase);
    ASSERT_TRUE(edit.ok()) << html;
    page.Show(html);
    ASSERT_EQ(page.Mark(find, matchesCase).matchCount, edit->matchCount) << find << " in\n" << html;
    ASSERT_EQ(page.ReplaceAll(find, replacement, matchesCase).isFound, edit->matchCount > 0);
    ASSERT_EQ(page.Json(), edit->json) << find << " -> " << replacement << " in\n" << html;
    matches += edit->matchCount;
    sent += edit->changeCount;
  }
  EXPECT_GT(matches, 300u);
  EXPECT_GT(sent, 150u);
}

// A page of the practice service, edited as a user does it: what the service makes of it is what was seen,
// and nothing but texts has changed.
TEST(FindInPageLikeTheCore, TheServiceShowsWhatTheWindowShowed) {
  PageWorld& page = PageWorld::Warm();
  Chance chance(7);
  int changed = 0;
  for (int i = 0; i < 150; ++i) {
    const practice::LibraryContent content{"T", Writer(chance).Blocks(0)};
    const std::string html = practice::OnlinePageHtml(content, kGuid, true);
    page.Show(html);
    for (std::size_t step = chance.Below(5) + 1; step > 0; --step) {
      const std::string find = chance.Words();
      if (chance.Below(4) == 0) page.ReplaceAll(find, chance.NewWords());
      for (std::size_t skipped = chance.Below(3); skipped > 0; --skipped) page.Find(find);
      page.Replace(find, chance.NewWords());
      page.Replace(find, chance.NewWords());
    }
    const std::string json = page.Json();
    page.Mark("");
    const std::string drawn = page.Text(kLines);
    if (json.empty()) continue;
    ++changed;
    const auto applied = practice::ApplyChanges(content, kGuid, json);
    ASSERT_TRUE(applied.ok()) << applied.error().message << "\n" << json;
    const std::string now = practice::OnlinePageHtml(*applied, kGuid, true);
    page.Show(now);
    ASSERT_EQ(page.Text(kLines), drawn) << json << "\n" << html;
    ASSERT_EQ(oracle::Skeleton(now), oracle::Skeleton(html)) << json;
    // The way back finds every other element as it was.
    const auto back = online::UndoChanges(html, json, now);
    ASSERT_TRUE(back.ok()) << back.error() << "\n" << json;
  }
  EXPECT_GT(changed, 80);
}

}  // namespace
}  // namespace quill::ui
