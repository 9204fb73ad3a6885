#include "ui/windows/image_table/row_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quill::ui {
namespace {

using testing::ElementsAre;

// Rows picked from all over the list land together where they are dropped, and keep their own order.
TEST(RowOrder, GathersRowsWhereTheyAreDropped) {
  EXPECT_THAT(RowsGatheredAt(5, {3, 1}, 0), ElementsAre(1, 3, 0, 2, 4));
  EXPECT_THAT(RowsGatheredAt(5, {1, 3}, 5), ElementsAre(0, 2, 4, 1, 3));
  EXPECT_THAT(RowsGatheredAt(5, {0, 4}, 3), ElementsAre(1, 2, 0, 4, 3));
  EXPECT_TRUE(IsUnchanged(RowsGatheredAt(5, {1, 2}, 2))) << "dropped onto themselves";
  EXPECT_TRUE(IsUnchanged(RowsGatheredAt(5, {1, 2}, 3)));
  EXPECT_TRUE(IsUnchanged(RowsGatheredAt(5, {}, 3)));
}

// A step moves what can move; a block at the end stays whole instead of turning around.
TEST(RowOrder, ShiftsRowsUntilTheyReachTheEnd) {
  EXPECT_THAT(RowsShifted(5, {1, 3}, RowStep::Up), ElementsAre(1, 0, 3, 2, 4));
  EXPECT_THAT(RowsShifted(5, {2, 3}, RowStep::Up), ElementsAre(0, 2, 3, 1, 4));
  EXPECT_THAT(RowsShifted(5, {0, 1, 3}, RowStep::Up), ElementsAre(0, 1, 3, 2, 4));
  EXPECT_THAT(RowsShifted(5, {1, 2}, RowStep::Down), ElementsAre(0, 3, 1, 2, 4));
  EXPECT_THAT(RowsShifted(5, {1, 3, 4}, RowStep::Down), ElementsAre(0, 2, 1, 3, 4));
  EXPECT_TRUE(IsUnchanged(RowsShifted(3, {0, 1, 2}, RowStep::Down)));
  EXPECT_TRUE(IsUnchanged(RowsShifted(0, {}, RowStep::Up)));
}

}  // namespace
}  // namespace quill::ui
