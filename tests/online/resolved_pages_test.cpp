#include "online/resolved_pages.h"

#include <gtest/gtest.h>

namespace quill::online {
namespace {

// A place that belongs to another account would have a command change somebody else's page.
TEST(ResolvedPages, AreFoundInAnyCaseForTheirOwnUser) {
  ResolvedPages pages;
  pages.Remember("ada", "8AF5-1c", {"p", "s"});
  EXPECT_EQ(pages.Find("ada", "8af5-1C"), (OnlinePlace{"p", "s"}));
  EXPECT_FALSE(pages.Find("bob", "8AF5-1c"));
  EXPECT_FALSE(pages.Find("Ada", "8AF5-1c"));
  EXPECT_FALSE(pages.Find("ada", "8AF5-1"));
  pages.Remember("ada", "8af5-1c", {"p2", "s2"});
  pages.Remember("bob", "8AF5-1c", {"q", "t"});
  EXPECT_EQ(pages.Find("ada", "8AF5-1C"), (OnlinePlace{"p2", "s2"}));
  pages.Forget("ada", "8AF5-1C");
  EXPECT_FALSE(pages.Find("ada", "8af5-1c")) << "the older place must not come back";
  EXPECT_TRUE(pages.Find("bob", "8af5-1c"));
}

// The program may run for months: what was found longest ago goes first.
TEST(ResolvedPages, StayFew) {
  ResolvedPages pages;
  for (int i = 0; i < 500; ++i) pages.Remember("ada", std::to_string(i), {"p", "s"});
  pages.Remember("ada", "0", {"p", "s"});
  EXPECT_TRUE(pages.Find("ada", "1"));
  pages.Remember("ada", "new", {"p", "s"});
  EXPECT_FALSE(pages.Find("ada", "1"));
  EXPECT_TRUE(pages.Find("ada", "0")) << "found anew a moment ago";
  EXPECT_TRUE(pages.Find("ada", "new"));
}

}  // namespace
}  // namespace quill::online
