#include "practice/page_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "base/atomic_file.h"

namespace quill::practice {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::vector<BuiltInPage> TwoPages() {
  return {{"B section", {"{11111111-2222-4333-8444-555555555555}", "Second", "<p>2</p>", 2}},
          {"A section", {"{11111111-2222-4333-8444-666666666666}", "First", "<p>1</p>", 3}}};
}

class PageStoreTest : public testing::Test {
 protected:
  PageStoreTest() {
    std::string pattern = (fs::temp_directory_path() / "quill-pages-XXXXXX").string();
    folder = mkdtemp(pattern.data());
  }
  ~PageStoreTest() override { fs::remove_all(folder); }

  PageStore Open() {
    Result<PageStore> store = PageStore::Open(folder / "Practice", TwoPages());
    EXPECT_TRUE(store.ok());
    return std::move(*store);
  }
  std::vector<std::string> Names(const PageStore& store) {
    std::vector<std::string> names;
    for (const PageEntry& page : store.Pages())
      names.push_back(page.address.section + "/" + page.address.name);
    return names;
  }

  fs::path folder;
};

// A name from outside (a link, a title) must never become a path that leads out of the notebook.
TEST_F(PageStoreTest, RefusesNamesThatLeaveTheFolder) {
  PageStore store = Open();
  std::ofstream(folder / "secret.htm") << PageFileText({"", "secret", "<p>s</p>", 0});
  const std::string kBad[] = {"",        ".",
                              "..",      "../..",
                              "a/b",     "a\\b",
                              ".hidden", std::string("a\0b", 3),
                              "a\nb",    std::string(200, 'x')};
  for (const std::string& bad : kBad) {
    EXPECT_FALSE(store.Load({bad, "secret"}).ok()) << bad;
    EXPECT_FALSE(store.Load({"A section", bad}).ok()) << bad;
    EXPECT_FALSE(store.Save({bad, "x"}, {}).ok()) << bad;
    EXPECT_FALSE(store.Save({"A section", bad}, {}).ok()) << bad;
    EXPECT_FALSE(store.Create(bad, "x").ok()) << bad;
    EXPECT_FALSE(store.Delete({"A section", bad}).ok()) << bad;
  }
  fs::create_symlink(folder / "secret.htm", folder / "Practice" / "A section" / "link.htm");
  EXPECT_FALSE(store.Load({"A section", "link"}).ok());
  EXPECT_THAT(Names(store), ElementsAre("B section/Second", "A section/First"));
}

// Whatever a title says, its file stays inside its section, and two pages never share a file.
TEST_F(PageStoreTest, AnyTitleGetsAFileOfItsOwn) {
  PageStore store = Open();
  std::string longTitle;
  for (int i = 0; i < 100; ++i) longTitle += "長";
  const std::string kTitles[] = {"",        "../../etc/passwd", "...",     "a/b\\c:d",
                                 "CON\x01", longTitle,          longTitle, "  "};
  std::set<fs::path> files;
  for (const std::string& title : kTitles) {
    const Result<PageAddress> made = store.Create("A section", title);
    ASSERT_TRUE(made.ok()) << title;
    const fs::path file = folder / "Practice" / made->section / (made->name + ".htm");
    EXPECT_TRUE(fs::is_regular_file(file)) << file;
    EXPECT_TRUE(files.insert(file).second) << file;
    EXPECT_EQ(store.Load(*made)->title, title);
  }
  EXPECT_EQ(store.Pages().size(), 2 + std::size(kTitles));
}

// The page's id is what favourites remember; it must survive edits, new titles and markup in titles.
TEST_F(PageStoreTest, KeepsThePageUnderANewTitle) {
  PageStore store = Open();
  Page page = *store.Load({"A section", "First"});
  page.title = "R&D <\"new\"> &amp;";
  page.body = "<p>a</p>\n<p></body> is no end</p>";
  const Result<PageAddress> moved = store.Save({"A section", "First"}, page);
  ASSERT_TRUE(moved.ok());
  EXPECT_EQ(*store.Load(*moved), page);
  EXPECT_FALSE(store.Load({"A section", "First"}).ok());
  EXPECT_EQ(*store.Save(*moved, page), *moved) << "saved again, it stays";

  const PageAddress twin = *store.Create("A section", page.title);
  const Page twinPage = *store.Load(twin);
  EXPECT_EQ(*store.Save(twin, twinPage), twin) << "a numbered name is not taken for another title";
  EXPECT_NE(twinPage.id, page.id);
}

// "Reset" is for what was spoilt; it must not take what the user has written.
TEST_F(PageStoreTest, ResetBringsBackBuiltInPagesOnly) {
  PageStore store = Open();
  Page page = *store.Load({"B section", "Second"});
  page.title = "Renamed";
  ASSERT_TRUE(store.Save({"B section", "Second"}, page).ok());
  ASSERT_TRUE(store.Delete({"A section", "First"}).ok());
  EXPECT_FALSE(fs::exists(folder / "Practice" / "A section")) << "an empty section goes with its last page";
  ASSERT_TRUE(store.Create("Mine", "Diary").ok());
  ASSERT_TRUE(store.Reset().ok());
  EXPECT_THAT(Names(store), ElementsAre("Mine/Diary", "B section/Second", "A section/First"));
  EXPECT_EQ(Names(Open()), Names(store)) << "and an existing notebook is opened as it is";
}

// A full or read-only disk: the old page stays whole and the reason is told.
TEST_F(PageStoreTest, AFailedSaveLeavesTheOldPage) {
  PageStore store = Open();
  const Page before = *store.Load({"A section", "First"});
  fs::create_directory(folder / "Practice" / "A section" / "Other.htm");
  Page page = before;
  page.body.assign(100, 'x');
  EXPECT_FALSE(store.Save({"A section", "Other"}, {before.id, "Other", "x", 1}).ok());
  EXPECT_EQ(*store.Load({"A section", "First"}), before);
  std::ofstream(folder / "Practice" / "A section" / "broken.htm") << "no page";
  EXPECT_FALSE(store.Load({"A section", "broken"}).ok());
  EXPECT_EQ(store.Pages().size(), 2u) << "a file that is no page is not listed";
}

}  // namespace
}  // namespace quill::practice
