// The page as the service sends it, and the ids in it.
#include "practice/service/online_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "content/xml_strictness.h"
#include "online/link_conversions.h"
#include "practice/service/online_ids.h"
#include "practice_pages/online_ids_of.h"

namespace quill::practice {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kGuid = "{3C7E1D00-5A1E-4C0D-8F00-9A2B6C4D1E00}";

/// What stands in the service's `div`, without ids.
std::string Inside(std::string_view body) {
  const std::string html = OnlinePageHtml({"T", std::string(body)}, kGuid, false);
  const std::size_t from = html.find('\n', html.find("_default")) + 1;
  return html.substr(from, html.find("\n\t\t</div>") - from);
}

// Clients find the title, the language, and the one positioned div by their places.
TEST(OnlinePage, HasTheFrameOfTheService) {
  const std::string html = OnlinePageHtml({"A & B", "<p>x</p>"}, kGuid, true);
  EXPECT_TRUE(
      std::regex_search(html, std::regex(R"(^<html lang="en-US">\s*<head>\s*<title>A &amp; B</title>)")));
  EXPECT_THAT(html, HasSubstr(R"(<meta http-equiv="Content-Type" content="text/html; charset=utf-8" />)"));
  EXPECT_THAT(html,
              HasSubstr(R"(<body data-absolute-enabled="true" style="font-family:Calibri;font-size:11pt">)"));
  const std::regex outline(
      R"re(<div id="div:\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}\{\d+\}" data-id="_default" style="position:absolute;)re");
  EXPECT_TRUE(std::regex_search(html, outline)) << html;
  EXPECT_THAT(OnlinePageHtml({"A", "<p>x</p>"}, kGuid, false), Not(HasSubstr(" id=")));
}

// Every shape in which the service differs from what an editor makes.
TEST(OnlinePage, WritesElementsAsTheServiceDoes) {
  const std::pair<const char*, const char*> kCases[] = {
      {"<p>a<br>b</p>", "<p>a<br />b</p>"},
      {"<p>a\xC2\xA0&amp;&lt;&copy;</p>", "<p>a&nbsp;&amp;&lt;\xC2\xA9</p>"},
      {"<p data-tag=\"to-do:completed,important\">x</p>", "<p data-tag=\"to-do:completed,important\">x</p>"},
      {"<p><b>x</b><i style=\"color:red\">y</i></p>",
       "<p><span style=\"font-weight:bold\">x</span><span style=\"font-style:italic\">y</span></p>"},
      {"<table><tbody><tr><th>x</th></tr></tbody></table>", "<table><tr><td>x</td></tr></table>"},
      {"<ol><li>a</li><ol><li>b</li></ol></ol>", "<ol><li>a</li><ol><li>b</li></ol></ol>"},
      {"<pre>a\nb</pre>", "<p>a<br />b</p>"},
      {"<img src=\"data:image/png;base64,AA==\" alt=\"1 &quot;\n2\">",
       "<img src=\"data:image/png;base64,AA==\" data-fullres-src=\"data:image/png;base64,AA==\" alt=\"1 "
       "&quot;&#10;2\" />"},
      {"<p onclick=\"x()\" style=\"background:url(x)\">a<script>b</script><a href=\"javascript:c\">d</a></p>",
       "<p>a<a>d</a></p>"},
      {"<div><section><p>x</p></section></div>", "<p>x</p>"},
      {"<p>open<p>again", "<p>open</p><p>again</p>"},
      {"<p></p>", "<p></p>"},
  };
  for (const auto& [page, online] : kCases) EXPECT_EQ(Inside(page), online);
}

// Clients parse it as XML, whatever somebody has put on the page.
TEST(OnlinePage, IsWellFormedWhateverThePageHolds) {
  const std::string nasty[] = {
      std::string("<p>\x01\x0B<b>\xEF\xBF\xBF\xFF</p></b><td>"), "<p a:b=c x<y>&#1;&bogus;]]></p>",
      "<!--a--b--><?x?><svg><p>x</p></svg><math><mi>y</mi></math>", "<table><p>a<td><ul>b<li></table>"};
  for (const std::string& body : nasty) {
    std::string html = OnlinePageHtml({"\x02<" + body, body}, kGuid, true);
    html = std::regex_replace(html, std::regex("&nbsp;"), " ");
    EXPECT_TRUE(!content::CheckXml(html).fault) << html;
  }
  std::string deep;
  for (int i = 0; i < 300'000; ++i) deep += "<b>";
  EXPECT_THAT(OnlinePageHtml({"t", deep}, kGuid, true), HasSubstr("</html>"));
}

// A client may send an id back only for the page that it has seen.
TEST(OnlineIds, EveryChangeMakesAllIdsNewAndKeepsTheGuidsOfTheRest) {
  const LibraryContent before{"T", "<h1>Head</h1><p>one</p><p>two</p><p>two</p><ul><li>three</li></ul>"};
  LibraryContent after = before;
  after.body.replace(after.body.find("one"), 3, "new");
  const std::vector<std::string> old = IdsOf(before, kGuid);
  const std::vector<std::string> fresh = IdsOf(after, kGuid);
  EXPECT_EQ(IdsOf(before, kGuid), old);
  EXPECT_EQ(std::set<std::string>(old.begin(), old.end()).size(), 7u) << "the outline and six elements";
  ASSERT_EQ(fresh.size(), old.size());
  for (std::size_t i = 0; i < old.size(); ++i) {
    EXPECT_NE(old[i], fresh[i]);
    const auto guid = [](const std::string& id) { return id.substr(0, id.find('}')); };
    EXPECT_EQ(guid(old[i]) == guid(fresh[i]), i != 2) << i;
  }
  EXPECT_NE(IdsOf({"Other", before.body}, kGuid), old) << "the title is part of the page";
  EXPECT_NE(IdsOf(before, "{3C7E1D00-5A1E-4C0D-8F00-9A2B6C4D1E01}")[1].substr(0, 39), old[1].substr(0, 39));
}

// A link to a paragraph leads there still when something else on the page has changed.
TEST(OnlineIds, AParagraphIsFoundByTheObjectIdOfItsLink) {
  const LibraryContent page{
      "T", "<p>a</p><table><tbody><tr><td><p>b</p></td></tr></tbody></table><div>c<p>a</p></div>"};
  const std::vector<std::string> ids = IdsOf(page, kGuid);
  const LibraryContent later{"Renamed", page.body + "<p>more</p>"};
  const std::vector<std::string> kKinds = {"div", "p", "table", "tr", "td", "p", "p"};
  ASSERT_EQ(ids.size(), kKinds.size());
  for (std::size_t i = 0; i < ids.size(); ++i) {
    EXPECT_EQ(ids[i].substr(0, ids[i].find(':')), kKinds[i]);
    const std::string link =
        online::ConvertOnlineHtmlObjId2ClientUrlObjId(ids[i].substr(ids[i].find(':') + 1));
    const auto place = ParagraphOfObjectId(later, kGuid, link);
    EXPECT_EQ(place, i == 0 ? std::nullopt : std::optional(i - 1)) << "the outline is no paragraph";
  }
  EXPECT_EQ(ParagraphOfObjectId(page, kGuid, "{}&00"), std::nullopt);
  EXPECT_EQ(ParagraphOfObjectId(page, kGuid, ""), std::nullopt);
}

}  // namespace
}  // namespace quill::practice
