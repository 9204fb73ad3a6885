#include "files/favourites/favourite_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "files/name_number.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Plist(std::string_view contents) {
  return "<plist version=\"1.0\"><dict>" + std::string(contents) + "</dict></plist>";
}

// Bookmarks must be there again after a restart, in their order; adding one again moves nothing and leaves
// one.
TEST(FavouriteList, KeepsOrderAndReplacesById) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "f.plist";
  EXPECT_THAT(FavouriteList(file).All(), IsEmpty());
  for (const auto& [id, link] :
       {std::pair("B", "l1"), std::pair("A", "l2"), std::pair("C", "l3"), std::pair("B", "l4")})
    ASSERT_TRUE(FavouriteList(file).Add(id, link).ok());
  EXPECT_THAT(FavouriteList(file).All(),
              ElementsAre(Favourite{"B", "l4"}, Favourite{"A", "l2"}, Favourite{"C", "l3"}));
  ASSERT_TRUE(FavouriteList(file).Remove("A").ok());
  ASSERT_TRUE(FavouriteList(file).Remove("A").ok()) << "gone already";
  EXPECT_THAT(FavouriteList(file).All(), ElementsAre(Favourite{"B", "l4"}, Favourite{"C", "l3"}));
  EXPECT_EQ(FavouriteList(file).LinkOf("A"), "");
}

// The file is edited by hand and by other tools: what is no text is no bookmark, and is not lost by a save.
TEST(FavouriteList, LeavesValuesOfOtherTypesAlone) {
  const TemporaryFolder folder;
  const auto file = folder.Write(
      "f.plist", Plist("<key>n</key><integer>7</integer><key>a</key><array><string>x</string></array>"
                       "<key>t</key><true/><key>empty</key><string/><key>dash</key><string>-</string>"
                       "<key>d</key><dict><key>k</key><string>v</string></dict>"));
  FavouriteList list(file);
  EXPECT_EQ(list.Problem(), "");
  EXPECT_THAT(list.All(), ElementsAre(Favourite{"empty", ""}, Favourite{"dash", "-"}));
  ASSERT_TRUE(list.Add("new", "l").ok());
  const MConfig read(file);
  EXPECT_EQ(read.ReadInt("n", 0), 7);
  EXPECT_THAT(read.Keys(), ElementsAre("n", "a", "t", "empty", "dash", "d", "new"));
}

// Ids and links come from the clipboard: nothing in them may break the file or reach another entry.
TEST(FavouriteList, TakesHostileTexts) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "f.plist";
  const std::vector<Favourite> hostile = {{"</key></dict>", "<string>&amp;]]>"},
                                          {"../../etc/passwd", "\"\ndo shell script"},
                                          {std::string(5000, 'x'), std::string(50'000, 'y')},
                                          {"\xF0\x9F\x93\x8C \xD7\xA9", "\xE2\x80\xAE"}};
  for (const Favourite& one : hostile) ASSERT_TRUE(FavouriteList(file).Add(one.id, one.link).ok());
  EXPECT_EQ(FavouriteList(file).All(), hostile);
  for (const Favourite& one : hostile) ASSERT_TRUE(FavouriteList(file).Remove(one.id).ok());
  EXPECT_THAT(FavouriteList(file).All(), IsEmpty());
}

// A damaged file costs no more than what was in it: it is told, kept beside, and adding goes on.
TEST(FavouriteList, SetsADamagedFileAside) {
  const TemporaryFolder folder;
  const auto file = folder.Write("f.plist", "not a list");
  FavouriteList list(file);
  EXPECT_THAT(list.Problem(), HasSubstr("f.plist"));
  EXPECT_THAT(list.All(), IsEmpty());
  EXPECT_TRUE(list.Remove("a").ok());
  EXPECT_EQ(ReadFile(file).ValueOr(""), "not a list") << "a look must not change it";
  ASSERT_TRUE(list.Add("a", "l").ok());
  EXPECT_EQ(ReadFile(MConfig::DamagedCopy(file)).ValueOr(""), "not a list");
  EXPECT_THAT(FavouriteList(file).All(), ElementsAre(Favourite{"a", "l"}));
}

// A copied link is exactly two lines; anything else would bookmark a web address or half a link.
TEST(LinkOfCopiedLines, WantsExactlyTwoLines) {
  EXPECT_EQ(LinkOfCopiedLines("https://w\nonenote:x"), "onenote:x");
  EXPECT_EQ(LinkOfCopiedLines("a\xE2\x80\xA8"
                              "b"),
            "b")
      << "any line break of the platform";
  for (const char* text : {"", "onenote:x", "https://w\r\nonenote:x", "a\nb\n", "a\n\nb"})
    EXPECT_EQ(LinkOfCopiedLines(text), "") << text;
}

// The number stands in menus and in the list of recent actions: another one tomorrow would open nothing.
TEST(NumberOfName, IsTheSameInEveryRun) {
  EXPECT_EQ(NumberOfName("8A4C2F10-F5"), 1822978521127047208);
  EXPECT_GT(NumberOfName(""), 0);
  EXPECT_NE(NumberOfName("ab"), NumberOfName("ba"));
}

}  // namespace
}  // namespace quill::files
