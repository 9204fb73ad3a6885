#include "online/section_contents.h"

#include <gtest/gtest.h>

#include <random>

#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

std::string Block(const std::string& list) {
  return "<table border='0'><tr><td><h1>Pages</h1></td></tr><tr><td>" + list + "</td></tr></table>";
}

// Subpages stand below their page as in OneNote, and every link opens there.
TEST(SectionContents, ListThePagesByOrderAndIndentThemByLevel) {
  const std::string body = List({Entry("onenote:https://h/a.one#B&section-id=5D&page-id=8B&end",
                                       R"("title":"B & <b>","level":2,"order":1)"),
                                 Entry("x", R"("title":null,"level":null,"order":2)"),
                                 Entry("onenote:https://h/a.one#A&section-id={5D}&page-id={8A}&end",
                                       R"("title":"A","level":0,"order":0)")});
  EXPECT_EQ(GenerateTOCSectionPagesHtml(body, "Pages"),
            Block("\n<p>- <a href=\"onenote:https://h/a.one#A&section-id={5D}&page-id={8A}&end\">A</a></p>"
                  "\n<p>&nbsp;&nbsp;&nbsp;&nbsp;- <a "
                  "href=\"onenote:https://h/a.one#B&section-id={5D}&page-id={8B}&end\">B & <b></a></p>"
                  "\n<p>- <a href=\"x\"></a></p>"));
}

// No answer is told to the user; an answer without pages is an empty list. Levels come from outside.
TEST(SectionContents, TakeWhateverComes) {
  EXPECT_EQ(GenerateTOCSectionPagesHtml("", "Pages"), "");
  for (const char* body : {"{}", "[", R"({"value":null})", R"({"value":[]})", "<html>"})
    EXPECT_EQ(GenerateTOCSectionPagesHtml(body, "Pages"), Block("")) << body;
  for (const char* level : {"-1", "\"x\"", "null", "{}"}) {
    EXPECT_EQ(GenerateTOCSectionPagesHtml(List({Entry("x", R"("order":0,"level":)" + std::string(level))}),
                                          "Pages"),
              Block("\n<p>- <a href=\"x\"></a></p>"));
  }
  EXPECT_LT(GenerateTOCSectionPagesHtml(List({Entry("x", R"("level":9000000000)")}), "Pages").size(), 2000u);
}

// Orders with gaps, twice the same, beyond the end or missing: the one pass finds what the search for each
// position finds, and every page is listed.
TEST(SectionContents, FollowThePositionsAsASearchForEachWould) {
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    std::vector<std::string> entries;
    std::vector<int> orders;  // -2: none
    for (unsigned i = random() % 12; i-- > 0;) {
      orders.push_back(static_cast<int>(random() % 14) - 2);
      entries.push_back(
          Entry(std::to_string(orders.size() - 1),
                orders.back() == -2 ? "\"x\":0" : "\"order\":" + std::to_string(orders.back())));
    }
    std::string list;
    std::vector<bool> listed(orders.size(), false);
    const auto add = [&](std::size_t page) {
      list = list + "\n<p>- <a href=\"" + std::to_string(page) + "\"></a></p>";
      listed[page] = true;
    };
    for (int position = 0; position < static_cast<int>(orders.size()); ++position) {
      const auto found = std::ranges::find(orders, position);
      if (found != orders.end()) add(static_cast<std::size_t>(found - orders.begin()));
    }
    for (std::size_t page = 0; page < orders.size(); ++page) {
      if (!listed[page]) add(page);
    }
    ASSERT_EQ(GenerateTOCSectionPagesHtml(List(entries), "Pages"), Block(list)) << List(entries);
  }
}

}  // namespace
}  // namespace quill::online
