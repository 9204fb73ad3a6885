// The notebook's files as the service's library.
#include "practice/service/store_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "practice/link_parts.h"

namespace quill::practice {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr const char* kFirst = "{11111111-2222-4333-8444-555555555555}";
constexpr const char* kSecond = "{11111111-2222-4333-8444-666666666666}";

class StoreLibraryTest : public testing::Test {
 protected:
  StoreLibraryTest() {
    std::string pattern = (fs::temp_directory_path() / "quill-library-XXXXXX").string();
    folder = mkdtemp(pattern.data());
    PageStore store = *PageStore::Open(folder, {{"Zoo", {kFirst, "First", "<p>1</p>", 1}},
                                                {"Zoo", {kSecond, "Second", "<p>2</p>", 2}},
                                                {"Ark", {"", "Third", "<p>3</p>", 3}}});
  }
  ~StoreLibraryTest() override { fs::remove_all(folder); }

  fs::path folder;
};

// The service shows the same sections, in the same order and with the same ids, as the notebook's links have.
TEST_F(StoreLibraryTest, ListsTheNotebookAsItsWindowDoes) {
  StoreLibrary library(folder);
  const std::vector<LibraryNotebook> notebooks = library.Notebooks();
  ASSERT_EQ(notebooks.size(), 1u);
  EXPECT_EQ(notebooks[0].name, "Practice");
  EXPECT_EQ(notebooks[0].accountId, kAccount);
  ASSERT_EQ(notebooks[0].sections.size(), 2u);
  const LibrarySection& zoo = notebooks[0].sections[0];
  EXPECT_EQ(zoo.name, "Zoo");
  EXPECT_EQ(zoo.guid, SectionId("Zoo"));
  ASSERT_EQ(zoo.pages.size(), 2u);
  EXPECT_EQ(zoo.pages[0].guid, kFirst);
  EXPECT_EQ(zoo.pages[1].title, "Second");
  const std::string handMade = notebooks[0].sections[1].pages.at(0).guid;
  EXPECT_EQ(library.Load(handMade)->body, "<p>3</p>") << "a file without an id is reached all the same";
  EXPECT_FALSE(library.Load("{11111111-2222-4333-8444-777777777777}").ok());
}

// The window renames a page while the service writes it: one file, its id, its place, and the last words.
TEST_F(StoreLibraryTest, TwoWritersLeaveOnePage) {
  PageStore window = *PageStore::Open(folder, {});
  StoreLibrary service(folder);
  Page page = *window.Load({"Zoo", "First"});
  page.title = "Renamed";
  const PageAddress renamed = *window.Save({"Zoo", "First"}, page);
  ASSERT_TRUE(service.Save(kFirst, {"By the service", "<p>new</p>"}).ok());
  EXPECT_FALSE(window.Load(renamed).ok());
  const PageAddress now = *window.Find(kFirst, renamed);
  EXPECT_EQ(*window.Load(now), (Page{kFirst, "By the service", "<p>new</p>", 1}));
  page.body = "<p>last</p>";
  ASSERT_TRUE(window.Save(now, page).ok());
  EXPECT_EQ(*service.Load(kFirst), (LibraryContent{"Renamed", "<p>last</p>"}));
  EXPECT_EQ(window.Pages().size(), 3u);
  fs::remove_all(folder / "Zoo");
  EXPECT_FALSE(service.Save(kFirst, {"T", ""}).ok()) << "a deleted page does not come back";
}

// Links come with braces, with escaped ones, and without.
TEST(LinkTarget, ReadsEveryWayToWriteAnId) {
  const std::string id = "11111111-2222-4333-8444-55555555555a";
  const std::string start = "onenote:https://d.docs.live.net/7c/Documents/P/S.one#T&section-id={" + id + "}";
  const std::string wanted = "{11111111-2222-4333-8444-55555555555A}";
  for (const char* form : {"{#}", "%7B#%7d", "#"}) {
    std::string written = form;
    written.replace(written.find('#'), 1, id);
    for (const char* end : {"", "&end", "&object-id={AB-C}&3E", "&object-id={ab-c}&3e&end"}) {
      const LinkTarget target = TargetOfLink(start + "&page-id=" + written + end);
      EXPECT_EQ(target.pageId, wanted) << form << end;
      EXPECT_EQ(target.sectionId, wanted);
      EXPECT_EQ(target.objectId, std::string_view(end).starts_with("&o") ? "{AB-C}&3E" : "") << form << end;
    }
  }
  EXPECT_EQ(TargetOfLink("https://example.com/").pageId, "");
}

}  // namespace
}  // namespace quill::practice
