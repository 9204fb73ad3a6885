// What a PATCH does to a page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "practice/service/online_page.h"
#include "practice_pages/online_ids_of.h"

namespace quill::practice {
namespace {

using nlohmann::json;

constexpr std::string_view kGuid = "{3C7E1D00-5A1E-4C0D-8F00-9A2B6C4D1E00}";
constexpr std::string_view kPage =
    "<h1>H</h1><p data-id=\"x\">a</p><ul><li>b</li></ul><table><tr><td><p>c</p></td></tr></table>"
    "<p><img src=\"data:image/png;base64,A\"></p><div data-id=\"y\"><p>d</p></div><p><span "
    "data-id=\"z\">e</span></p>";

/// The generated id of the first element of a kind; what is no kind of the page stays as it is.
std::string TargetOf(const LibraryContent& page, const std::string& target) {
  const std::vector<std::string> ids = IdsOf(page, kGuid);
  for (std::size_t i = 1; i < ids.size(); ++i) {  // the first is the outline's
    if (ids[i].starts_with(target + ":")) return ids[i];
  }
  return target == "outline" ? ids[0] : target;
}

json ChangeOf(const LibraryContent& page, const std::string& target, const std::string& action,
              const std::string& content, const std::string& position = "") {
  json change = {{"target", TargetOf(page, target)}, {"action", action}, {"content", content}};
  if (!position.empty()) change["position"] = position;
  return change;
}

/// The body after one change of `kPage`; the refusal's code when it is refused.
std::string After(const std::string& target, const std::string& action, const std::string& content,
                  const std::string& position = "") {
  const LibraryContent page{"T", std::string(kPage)};
  const json changes = json::array({ChangeOf(page, target, action, content, position)});
  const auto changed = ApplyChanges(page, kGuid, changes.dump());
  return changed.ok() ? changed->body : changed.error().code;
}

/// `kPage` with one piece replaced.
std::string With(std::string_view piece, std::string_view replacement) {
  std::string page(kPage);
  return page.replace(page.find(piece), piece.size(), replacement);
}

// Which element can be changed in which way is the service's own, and clients are written around it.
TEST(PageChanges, EveryTargetKnowsTheServicesActionsOnly) {
  const std::pair<const char*, const char*> kAllowed[] = {{"outline", "append prepend"},
                                                          {"body", "append prepend"},
                                                          {"div", "replace append prepend insert"},
                                                          {"h1", "replace insert"},
                                                          {"p", "replace insert"},
                                                          {"ul", "replace append prepend insert"},
                                                          {"li", "replace insert"},
                                                          {"table", "replace insert"},
                                                          {"img", "replace insert"},
                                                          {"tr", ""},
                                                          {"td", ""},
                                                          {"title", "replace"},
                                                          {"#z", ""},
                                                          {"#y", "replace append prepend insert"}};
  for (const auto& [target, allowed] : kAllowed) {
    for (const std::string action : {"replace", "append", "prepend", "insert"}) {
      const std::string result = After(target, action, "<p>new</p>");
      const bool isAllowed = std::string_view(allowed).find(action) != std::string_view::npos;
      EXPECT_EQ(result == "20124", !isAllowed) << target << " " << action << ": " << result;
      EXPECT_EQ(result.starts_with("<"), isAllowed) << target << " " << action << ": " << result;
    }
  }
}

// Where the new content goes, and in which form it may stand there.
TEST(PageChanges, PutsTheContentWhereItIsMeant) {
  EXPECT_EQ(After("p", "replace", "<p>1</p><p>2</p>"), With("<p data-id=\"x\">a</p>", "<p>1</p><p>2</p>"));
  EXPECT_EQ(After("p", "replace", "plain <b>text</b>"),
            With("<p data-id=\"x\">a</p>", "<p>plain <b>text</b></p>"));
  EXPECT_EQ(After("#x", "insert", "<p>1</p> <p>2</p>"), With("<ul>", "<p>1</p><p>2</p><ul>"));
  EXPECT_EQ(After("h1", "insert", "<p>1</p><p>2</p>", "before"), "<p>1</p><p>2</p>" + std::string(kPage));
  EXPECT_EQ(After("body", "append", "<p>1</p>"), std::string(kPage) + "<p>1</p>");
  EXPECT_EQ(After("outline", "append", "<p>1</p><p>2</p>", "before"),
            "<p>1</p><p>2</p>" + std::string(kPage));
  EXPECT_EQ(After("#y", "append", "<p>1</p>"), With("<p>d</p>", "<p>d</p><p>1</p>"));
  EXPECT_EQ(After("li", "replace", "<p>1</p><ul><li>2</li></ul>"),
            With("<li>b</li>", "<li>1</li><li>2</li>"));
  EXPECT_EQ(After("ul", "prepend", "<li>1</li>"), With("<li>b</li>", "<li>1</li><li>b</li>"));
  EXPECT_EQ(After("ul", "append", "text"), With("<li>b</li>", "<li>b</li><li>text</li>"));
  EXPECT_EQ(After("img", "replace", "<img src=\"https://x/y.png\" alt=\"z\">"),
            With("<img src=\"data:image/png;base64,A\">", "<img src=\"https://x/y.png\" alt=\"z\">"));
  EXPECT_EQ(After("img", "replace", "<p>1</p>"),
            With("<p><img src=\"data:image/png;base64,A\"></p>", "<p>1</p>"));
  EXPECT_EQ(After("p", "replace", "<p onclick=\"x\">1<script>2</script></p>"),
            With("<p data-id=\"x\">a</p>", "<p>1</p>"));
}

// A paragraph around a picture must not end up with a paragraph inside it, nor lose what it says.
TEST(PageChanges, ABlockBesideAPictureSplitsItsParagraph) {
  const LibraryContent page{"T",
                            "<p style=\"color:red\">a<b>b<img src=\"data:image/png;base64,A\">c</b>d</p>"};
  const auto result = [&](const char* action) {
    return ApplyChanges(
               page, kGuid,
               json::array({ChangeOf(page, "img", action, "<table><tr><td>1</td></tr></table>")}).dump())
        ->body;
  };
  const std::string table = "<table><tr><td>1</td></tr></table>";
  EXPECT_EQ(result("replace"),
            "<p style=\"color:red\">a<b>b</b></p>" + table + "<p style=\"color:red\"><b>c</b>d</p>");
  EXPECT_EQ(result("insert"), "<p style=\"color:red\">a<b>b<img src=\"data:image/png;base64,A\"></b></p>" +
                                  table + "<p style=\"color:red\"><b>c</b>d</p>");
}

// A title is one line of plain text, whatever is sent for it.
TEST(PageChanges, ANewTitleIsPlainText) {
  const LibraryContent page{"T", "<p>a</p>"};
  const auto changed = ApplyChanges(
      page, kGuid, json::array({ChangeOf(page, "title", "replace", " <p>A &amp;\n<b>B</b></p> ")}).dump());
  ASSERT_TRUE(changed.ok());
  EXPECT_EQ(*changed, (LibraryContent{"A & B", page.body}));
}

// Half a set of changes would leave a page that nobody has asked for.
TEST(PageChanges, OneBadChangeRefusesTheWholeArray) {
  const LibraryContent page{"T", std::string(kPage)};
  const json good = ChangeOf(page, "h1", "replace", "<p>1</p>");
  const std::string nowhere = "p:{00000000-0000-0000-0000-000000000000}{1}";
  const std::pair<json, const char*> kBad[] = {
      {ChangeOf(page, nowhere, "replace", "<p>2</p>"), "20120"},
      {ChangeOf({"Other", page.body}, "p", "replace", "<p>2</p>"), "20120"},  // the id of an older state
      {good, "20120"},                                                        // gone with the first change
      {ChangeOf(page, "#h", "replace", "<p>2</p>"), "20120"},
      {ChangeOf(page, "td", "replace", "<td>2</td>"), "20124"},
      {ChangeOf(page, "p", "delete", "<p>2</p>"), "20112"},
      {ChangeOf(page, "p", "insert", "<p>2</p>", "above"), "20112"},
      {ChangeOf(page, "p", "replace", ""), "20112"},
      {ChangeOf(page, "p", "replace", "<script>2</script>"), "20112"},
      {json("text"), "20112"}};
  for (const auto& [bad, code] : kBad) {
    const auto changed = ApplyChanges(page, kGuid, json::array({good, bad}).dump());
    ASSERT_FALSE(changed.ok()) << bad;
    EXPECT_EQ(changed.error().code, code) << bad;
    EXPECT_EQ(changed.error().status, 400);
    EXPECT_FALSE(changed.error().message.empty());
  }
  for (const char* text : {"", "{}", "[]", "[", "null", "[[]]", "\xFF"}) {
    EXPECT_EQ(ApplyChanges(page, kGuid, text).error().code, "20112") << text;
  }
}

// An element inside one that has been replaced is gone with it, also for a change sent along.
TEST(PageChanges, ChangesSeeWhatThoseBeforeThemDid) {
  const LibraryContent page{"T", std::string(kPage)};
  const json table = ChangeOf(page, "table", "replace", "<p data-id=\"new\">1</p>");
  const std::string inCell = IdsOf(page, kGuid)[8];
  ASSERT_TRUE(inCell.starts_with("p:")) << inCell;
  const json lost = {{"target", inCell}, {"action", "replace"}, {"content", "<p>2</p>"}};
  EXPECT_EQ(ApplyChanges(page, kGuid, json::array({table, lost}).dump()).error().code, "20120");
  const json known = ChangeOf(page, "#new", "insert", "<p>2</p>");
  EXPECT_EQ(ApplyChanges(page, kGuid, json::array({table, known}).dump())->body,
            With("<table><tr><td><p>c</p></td></tr></table>", "<p data-id=\"new\">1</p><p>2</p>"));
}

}  // namespace
}  // namespace quill::practice
