#include "platform/mac/mac_ref.h"

#include <gtest/gtest.h>

#include "platform/mac/four_chars.h"

namespace quill::platform::mac {
namespace {

struct Resource {
  int released = 0;
};
int Release(Resource* resource) {
  return ++resource->released;
}
using Ref = MacRef<Resource*, Release>;

// Releasing twice crashes in Core Foundation; never releasing keeps a hot key taken.
TEST(MacRef, ReleasesEachReferenceExactlyOnce) {
  Resource first;
  Resource second;
  {
    Ref ref(&first);
    Ref moved(std::move(ref));
    moved = Ref(&second);
    EXPECT_EQ(first.released, 1);
    EXPECT_EQ(second.released, 0);
    const Ref empty;
    EXPECT_FALSE(empty);
  }
  EXPECT_EQ(first.released, 1);
  EXPECT_EQ(second.released, 1);
}

// The byte order decides whether the system knows the event.
TEST(FourChars, ReadFromTheHighestByteDown) {
  EXPECT_EQ(FourChars("GURL"), 0x4755524Cu);
  EXPECT_EQ(FourChars("\xff\x01--"), 0xFF012D2Du);
}

}  // namespace
}  // namespace quill::platform::mac
