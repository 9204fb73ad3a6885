#include "platform/mac/pasteboard_history.h"

#include <gtest/gtest.h>

namespace quill::platform::mac {
namespace {

// OneNote empties the pasteboard and then fills it: a read in between would find nothing selected.
TEST(PasteboardHistory, ACopyCountsWhenItHasContents) {
  PasteboardHistory history;
  history.Marked(10);
  EXPECT_FALSE(history.Arrived({10, true})) << "what the user had";
  EXPECT_FALSE(history.Arrived({11, false})) << "emptied only";
  EXPECT_FALSE(history.Arrived({-1, true})) << "no answer from the system";
  EXPECT_TRUE(history.Arrived({11, true}));
  EXPECT_FALSE(history.Arrived({11, true})) << "the same copy twice";
}

// After a copy that failed, the user's old contents must not pass for the selection.
TEST(PasteboardHistory, OldContentsAreUnreadableFromTheMarkOn) {
  PasteboardHistory history;
  EXPECT_TRUE(history.Readable(10));
  history.Marked(10);
  EXPECT_FALSE(history.Readable(10));
  EXPECT_TRUE(history.Readable(11));
  EXPECT_FALSE(history.Readable(-1)) << "no answer from the system";
  history.Written(12, true);
  EXPECT_TRUE(history.Readable(12));

  history.Marked(-1);
  EXPECT_FALSE(history.Readable(12)) << "nobody knows what was there before";
  EXPECT_FALSE(history.Arrived({12, true}));
}

// Putting back what never left would lose what cannot be saved, and what somebody else copied meanwhile.
TEST(PasteboardHistory, OnlyWhatThisProgramChangedIsPutBackAndOnce) {
  PasteboardHistory history;
  history.Marked(10);
  EXPECT_EQ(history.EndLoan(), std::nullopt) << "a copy that never came";

  history.Marked(10);
  ASSERT_TRUE(history.Arrived({11, true}));
  history.Marked(11);
  history.Written(12, true);
  EXPECT_EQ(history.EndLoan(), 12);
  EXPECT_EQ(history.EndLoan(), std::nullopt);
  EXPECT_TRUE(history.Readable(12)) << "the mark ends with the loan";
}

// Waiting for OneNote is for what it has yet to take, not for what it has itself copied.
TEST(PasteboardHistory, OnlyACompleteWriteIsWaitedFor) {
  PasteboardHistory history;
  history.Written(5, false);
  EXPECT_FALSE(history.Pasted());
  history.Written(6, true);
  EXPECT_TRUE(history.Pasted());
  history.Arrived({7, true});
  EXPECT_FALSE(history.Pasted());
}

}  // namespace
}  // namespace quill::platform::mac
