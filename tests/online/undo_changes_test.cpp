#include <gtest/gtest.h>

#include <random>
#include <regex>

#include "online/page_edit.h"
#include "online/page_oracle.h"
#include "online/service_samples.h"

namespace quill::online {
namespace {

using samples::Page;

/// The page after a change: every element that had an id has another one, and so have those without.
std::string WithNewIds(const std::string& html) {
  oracle::RawPage page(html);
  int count = 0;
  struct Walker : pugi::xml_tree_walker {
    int* count = nullptr;
    bool for_each(pugi::xml_node& node) override {
      static const std::regex kNamed("p|li|ol|table|div|h2|tr|td");
      if (!std::regex_match(node.name(), kNamed)) return true;
      node.remove_attribute("id");
      node.prepend_attribute("id") =
          (std::string(node.name()) + ":{n" + std::to_string(++*count) + "}").c_str();
      return true;
    }
  } walker;
  walker.count = &count;
  page.tree.traverse(walker);
  return oracle::Source(page.tree);
}

std::string WithoutIds(const std::string& html) {
  return std::regex_replace(html, std::regex(" id=\"[^\"]*\""), "");
}

std::string Swapped(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// The page is what it was, whatever was changed in it.
TEST(UndoChanges, PutsThePageBack) {
  std::mt19937 random(20240323);
  int undone = 0;
  for (int i = 0; i < 500; ++i) {
    std::string seed(random() % 80, '\0');
    for (char& c : seed) c = static_cast<char>(random());
    const std::string before = WithNewIds(oracle::GrowPage(seed));
    const auto edit = ReplaceInPage(before, "a", "<x>", false);
    ASSERT_TRUE(edit.ok());
    if (edit->json.empty()) continue;
    const std::string now = WithNewIds(oracle::Applied(before, edit->json));
    const auto undo = UndoChanges(before, edit->json, now);
    ASSERT_TRUE(undo.ok()) << undo.error() << "\n" << before << "\n" << now;
    ASSERT_EQ(WithoutIds(oracle::Applied(now, *undo)), WithoutIds(before));
    ++undone;
  }
  EXPECT_GT(undone, 200);
}

const std::string kBefore = Page(
    "<h1 id=\"h1:{a}{1}\">One</h1>\r\n<p id=\"p:{b}{1}\">old&nbsp;<span>text</span></p>"
    "<table id=\"table:{c}{1}\"><tr id=\"tr:{d}{1}\"><td id=\"td:{e}{1}\">old</td></tr></table>");
const std::string kNow = Page(
    "<h1 id=\"h1:{a}{2}\">One</h1><p id=\"p:{b2}{2}\">new&nbsp;<span>text</span></p>\n\n"
    "<table id=\"table:{c2}{2}\"><tr id=\"tr:{d2}{2}\"><td id=\"td:{e2}{2}\">new</td></tr></table>");
constexpr const char* kChanges =
    R"([{"target":"table:{c}{1}","action":"replace","content":"x"},{"target":"p:{b}{1}","action":"replace","content":"y"}])";

// The service writes white space between elements as it likes, and adds ids wherever it wants.
TEST(UndoChanges, FindsElementsByTheirPlace) {
  const auto undo = UndoChanges(kBefore, kChanges, kNow);
  ASSERT_TRUE(undo.ok()) << undo.error();
  EXPECT_EQ(
      *undo,
      R"([{"target":"p:{b2}{2}","action":"replace","content":"<p>old&nbsp;<span>text</span></p>"},)"
      R"({"target":"table:{c2}{2}","action":"replace","content":"<table><tr><td>old</td></tr></table>"}])");
}

// Somebody else has worked in the page meanwhile: his work is not put back.
TEST(UndoChanges, RefusesAPageThatDiffersElsewhere) {
  const std::pair<const char*, const char*> kOthers[] = {
      {">One<", ">Two<"},
      {"<h1 id=\"h1:{a}{2}\">One</h1>", ""},
      {"<p id=\"p:{b2}{2}\">", "<p id=\"p:{x}{2}\">new</p><p id=\"p:{b2}{2}\">"},
      {"<p id=\"p:{b2}{2}\">new&nbsp;<span>text</span></p>", ""},
      {"<p id=\"p:{b2}{2}\">", "<p>"},
      {"</table>", "</table><p id=\"p:{z}{2}\">more</p>"},
      {"</html>", ""}};
  for (const auto& [from, to] : kOthers) {
    const std::string now = Swapped(kNow, from, to);
    ASSERT_NE(now, kNow) << from;
    EXPECT_FALSE(UndoChanges(kBefore, kChanges, now).ok()) << now;
  }
  EXPECT_FALSE(UndoChanges(Page("<p id=\"p:{b}{1}\">old</p>"), kChanges, kNow).ok());
}

// Only replacements by an id can be taken back.
TEST(UndoChanges, RefusesOtherChanges) {
  for (const char* changes :
       {"", "[]", "{}", "[1]", R"([{"target":"p:{b}{1}","action":"append","content":"x"}])",
        R"([{"target":"body","action":"replace","content":"x"}])", R"([{"action":"replace"}])"})
    EXPECT_FALSE(UndoChanges(kBefore, changes, kNow).ok()) << changes;
}

}  // namespace
}  // namespace quill::online
