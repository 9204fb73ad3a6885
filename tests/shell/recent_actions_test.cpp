#include "shell/recent_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quill::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The action used last leads, and nothing stands in the list twice.
TEST(RecentActions, MovesTheUsedActionToTheFront) {
  EXPECT_EQ(WithRecent("", "A"), "A");
  EXPECT_EQ(WithRecent("A,B,C", "B"), "B,A,C");
  EXPECT_EQ(WithRecent("A,B", RecentName("Tag", 3)), "Tag:3,A,B");
  EXPECT_EQ(RecentName("Tag", std::nullopt), "Tag");
}

// The list stays short however much is used.
TEST(RecentActions, ForgetsTheOldest) {
  std::string setting;
  for (int i = 0; i < 30; ++i) setting = WithRecent(setting, "Action" + std::to_string(i));
  const auto names = ParseRecentActions(setting);
  ASSERT_EQ(names.size(), kMostRecentActions);
  EXPECT_EQ(names.front(), "Action29");
  EXPECT_EQ(names.back(), "Action10");
}

// The settings file may be edited by hand or damaged: what can be read is used, the rest does no harm.
TEST(RecentActions, PassesOverGarbage) {
  EXPECT_THAT(ParseRecentActions(" A ,,\n B,\xff\xfe,<x>,A," + std::string(5000, 'z') + ",C,"),
              ElementsAre("A", "B", "C"));
  EXPECT_THAT(ParseRecentActions(",, ,"), IsEmpty());
  EXPECT_EQ(WithRecent("<>,A", ""), "A");
  EXPECT_EQ(WithRecent("A", "B,C"), "A");
}

}  // namespace
}  // namespace quill::shell
