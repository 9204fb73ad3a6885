#include <gmock/gmock.h>

#include "content/text_between.h"
#include "online/client_link.h"
#include "practice/service/graph_ids.h"
#include "practice/service/list_filter.h"
#include "practice_service/service_world.h"

namespace quill::test {
namespace {

using practice::IdKind;
using testing::ElementsAre;

class Lists : public ServiceWorld {};

std::string Link(const Json& entry) {
  return entry["links"]["oneNoteClientUrl"]["href"];
}

// The names and places of everything that the program reads.
TEST_F(Lists, HaveTheServicesShape) {
  const Json notebooks = List("notebooks");
  ASSERT_EQ(notebooks["value"].size(), 2u);
  const Json& work = notebooks["value"][0];
  EXPECT_EQ(work["displayName"], "Work");
  EXPECT_EQ(work["isShared"], false);
  EXPECT_EQ(work["userRole"], "Owner");
  EXPECT_EQ(Link(work), "onenote:https://d.docs.live.net/7c1f0a93b2d84e65/Documents/Work");
  EXPECT_EQ(notebooks["value"][1]["isShared"], true);

  const Json section = List("sections")["value"][2];
  EXPECT_EQ(section["parentNotebook"]["id"], work["id"]);
  EXPECT_EQ(Link(section), Link(work) + "/Team%20A/50%25%20done/Minutes.one");

  const Json page = List("sections/" + SectionId(0) + "/pages?pagelevel=true&skip=4&top=1")["value"][0];
  EXPECT_EQ(page["title"], "Page 4");
  EXPECT_EQ(page["level"], 1);
  EXPECT_EQ(page["order"], 4);
  EXPECT_EQ(page["parentSection"]["id"], SectionId(0));
  EXPECT_EQ(page["parentSection"]["displayName"], "Plans");
  EXPECT_EQ(Link(page), Link(work) +
                            "/Plans.one#Page%204&section-id=00000002-2222-4333-8444-0123456789AB"
                            "&page-id=000003EC-2222-4333-8444-0123456789AB&end");
}

// Notebooks that were open last come without an id, personal ones only when asked for.
TEST_F(Lists, ShowRecentNotebooksOnRequest) {
  const Json recent = List("notebooks/getRecentNotebooks(includePersonalNotebooks=true)")["value"];
  ASSERT_EQ(recent.size(), 2u);
  EXPECT_FALSE(recent[0].contains("id"));
  EXPECT_GT(recent[0]["lastAccessedTime"], recent[1]["lastAccessedTime"]);
  EXPECT_TRUE(List("notebooks/getRecentNotebooks(includePersonalNotebooks=false)")["value"].empty());
}

// What the program's own reader makes of the service's links.
TEST_F(Lists, WriteLinksThatCanBeRead) {
  const Json list = List("sections/" + SectionId(1) + "/pages");
  const auto link = online::ReadClientLink(Link(list["value"][0]), "d.docs.live.net");
  EXPECT_EQ(link.sectionName, "Ålesund & O'Hara");
  EXPECT_EQ(link.pageTitle, "") << "a page without a title";
  EXPECT_EQ(link.accountId, "7c1f0a93b2d84e65");
  EXPECT_EQ("{" + link.pageId + "}", MadeUpGuid(3000));
}

// Names are compared without case when the filter says so; a quote that is not doubled is an error.
TEST_F(Lists, FilterByName) {
  EXPECT_EQ(List("sections?filter=tolower(name) eq 'plans'")["value"].size(), 2u);
  EXPECT_EQ(List("sections?$filter=displayName eq 'plans'")["value"].size(), 0u);
  const std::string hara = "/v1.0/me/onenote/sections?filter=tolower(name)%20eq%20'%C3%A5lesund%20%26%20o";
  EXPECT_EQ(Told(Get(hara + "'hara'")), "400 20100");
  EXPECT_EQ(Json::parse(Get(hara + "''hara'")->body)["value"].size(), 1u);
  const Json pages =
      List("pages?select=id,title&filter=tolower(title) eq 'page 7' and contains(tolower(title),'7')");
  EXPECT_EQ(Titles(pages), (std::vector<std::string>{"Page 7", "Page 7"}));
  EXPECT_EQ(pages["value"][0].size(), 2u);
}

TEST(ListFilter, RefusesWhatIsNotOne) {
  for (const char* text :
       {"", "name", "name eq", "name eq 'a", "name eq 'a' and", "name eq 'a' b", "name ne 'a'",
        "tolower(name eq 'a'", "contains(name,'a'", "name eq 'a'and", "eq 'a'", "name eq 'o'hara'"})
    EXPECT_FALSE(practice::ListFilter::Parse(text)) << text;
  for (const char* text :
       {"name eq ''", " tolower( name )  eq 'a' ", "contains(title,'x') eq true and a/b eq 'c'",
        "contains eq 'a'", "name eq 'o''hara'"})
    EXPECT_TRUE(practice::ListFilter::Parse(text)) << text;
}

// Twenty at a time with a link to follow; with a number of one's own there is no link.
TEST_F(Lists, GoOnWhereABatchEnds) {
  const std::string pages = "sections/" + SectionId(0) + "/pages";
  int count = 0;
  int batches = 0;
  for (std::string next = "/v1.0/me/onenote/" + content::PercentEscape(pages); !next.empty(); ++batches) {
    const Json batch = Json::parse(Get(next)->body);
    for (const std::string& title : Titles(batch)) EXPECT_EQ(title, "Page " + std::to_string(count++));
    const std::string link = batch.value("@odata.nextLink", "");
    next = link.substr(std::min(link.size(), service->Addresses().graph.size()));
  }
  EXPECT_EQ(count, 250);
  EXPECT_EQ(batches, 13);
  EXPECT_FALSE(List(pages + "?top=100").contains("@odata.nextLink"));
  EXPECT_EQ(Titles(List(pages + "?top=100&skip=200")).size(), 50u);
  EXPECT_TRUE(List(pages + "?$top=100&$skip=300")["value"].empty());
}

TEST_F(Lists, OrderAndCount) {
  const std::string pages = "sections/" + SectionId(0) + "/pages";
  EXPECT_THAT(Titles(List(pages + "?orderby=order desc&top=2")), ElementsAre("Page 249", "Page 248"));
  EXPECT_THAT(Titles(List(pages + "?orderby=title&top=3")), ElementsAre("Page 0", "Page 1", "Page 10"));
  const std::string body = Get("/v1.0/me/onenote/pages?count=true&top=1")->body;
  EXPECT_EQ(content::TextBetween(body, "\"@odata.count\":", ","), "351");
  EXPECT_EQ(Get("/v1.0/me/onenote/pages/$count")->body, "351");
  EXPECT_EQ(Get("/v1.0/users/a-b/onenote/" + content::PercentEscape(pages) + "/$count")->body, "250");
}

// Whatever is asked wrongly is told with the service's codes.
TEST_F(Lists, RefuseAsTheServiceDoes) {
  const std::string section = "sections/" + SectionId(0);
  EXPECT_EQ(ToldFor(section + "/pages?top=101"), "400 20129");
  EXPECT_EQ(ToldFor(section + "/pages?top=-1"), "400 20100");
  EXPECT_EQ(ToldFor(section + "/pages?skip=x"), "400 20100");
  EXPECT_EQ(ToldFor(section + "/pages?orderby=colour"), "400 20100");
  EXPECT_EQ(ToldFor("sections?filter=colour eq 'a'"), "400 20100");
  EXPECT_EQ(ToldFor("sections/" + FirstPageId() + "/pages"), "400 20112");
  EXPECT_EQ(ToldFor("sections/" + practice::GraphId(IdKind::Section, MadeUpGuid(77), "x") + "/pages"),
            "404 20102");
  EXPECT_EQ(ToldFor("binders"), "400 BadRequest");
  EXPECT_EQ(Told(Send(platform::HttpMethod::Post, "/v1.0/me/onenote/pages")), "405 BadRequest");
  token = "made-up";
  EXPECT_EQ(ToldFor("notebooks"), "401 40001");
}

// Ids lead back to their GUIDs, hold neither it nor another kind's, and notice a changed letter.
TEST(GraphIds, LeadBackToTheirGuids) {
  for (const IdKind kind : {IdKind::Notebook, IdKind::Section, IdKind::Page}) {
    const std::string id = practice::GraphId(kind, MadeUpGuid(4711), "7c1f0a93b2d84e65");
    EXPECT_EQ(practice::GuidOfGraphId(kind, id), MadeUpGuid(4711)) << id;
    EXPECT_EQ(id.find("0123456789ab"), std::string::npos) << id;
    std::string changed = id;
    changed[5] = changed[5] == '0' ? '1' : '0';
    EXPECT_FALSE(practice::GuidOfGraphId(kind, changed)) << changed;
    const IdKind other = kind == IdKind::Page ? IdKind::Section : IdKind::Page;
    EXPECT_FALSE(practice::GuidOfGraphId(other, id)) << id;
  }
  for (const char* text : {"", "0-", "0-!s", "!s1234", "0-00!101-A!s0000"})
    EXPECT_FALSE(practice::GuidOfGraphId(IdKind::Page, text)) << text;
}

// The page itself, and a change of it that the next reading shows.
TEST_F(Lists, ServeAndChangeAPage) {
  const std::string path = "/v1.0/me/onenote/pages/" + content::PercentEscape(FirstPageId()) + "/content";
  const std::string before = Get(path + "?includeIDs=true")->body;
  EXPECT_NE(before.find("<p id=\"p:{"), std::string::npos) << before;
  EXPECT_EQ(Get(path)->body.find("<p id="), std::string::npos);
  const std::string id = "p:" + std::string(content::TextBetween(before, "<p id=\"p:", "\""));
  const Json change = {{{"target", id}, {"action", "replace"}, {"content", "<p>second</p>"}}};
  const std::vector<platform::HttpHeader> isJson = {{"Content-Type", "application/json"}};
  const Answer changed = Send(platform::HttpMethod::Patch, path, change.dump(), isJson);
  EXPECT_EQ(Told(changed), "204");
  EXPECT_EQ(changed->body, "");
  EXPECT_NE(Get(path)->body.find("second"), std::string::npos);
  EXPECT_EQ(Told(Send(platform::HttpMethod::Patch, path, change.dump(), isJson)), "400 20120")
      << "the id is gone";
}

}  // namespace
}  // namespace quill::test
