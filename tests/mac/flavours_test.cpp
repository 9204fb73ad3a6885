#include "platform/mac/mac_flavours.h"

#include <gtest/gtest.h>

namespace quill::platform::mac {
namespace {

// Another identifier would read and write a form that no other program knows.
TEST(MacFlavours, FormsHaveTheSystemsIdentifiers) {
  EXPECT_EQ(TypeOfFlavour(Flavour::Html), "public.html");
  EXPECT_EQ(TypeOfFlavour(Flavour::Text), "public.utf8-plain-text");
  EXPECT_EQ(TypeOfFlavour(Flavour::Png), "public.png");
}

// Three copied files are three items with the same types: put back as one item, two would be lost.
TEST(MacFlavours, SnapshotNamesKeepItemsApart) {
  const ItemType cases[] = {{0, "public.file-url"}, {12, "Apple Web Archive pasteboard type"}, {1, "odd#3"}};
  for (const ItemType& itemType : cases) {
    const auto back = ParseSnapshotName(SnapshotName(itemType));
    ASSERT_TRUE(back) << itemType.type;
    EXPECT_EQ(back->item, itemType.item);
    EXPECT_EQ(back->type, itemType.type);
  }
  for (const char* foreign : {"", "text/html", "#0", "public.html#", "public.html#1x", "public.html#-1"}) {
    EXPECT_FALSE(ParseSnapshotName(foreign)) << foreign;
  }
}

// Saving must not make the Finder or Photos write out files that nobody asked for.
TEST(MacFlavours, PromisedFilesAreToldFromFilesThatExist) {
  EXPECT_TRUE(IsPromisedFile("com.apple.pasteboard.promised-file-url"));
  EXPECT_FALSE(IsPromisedFile("public.file-url"));
}

}  // namespace
}  // namespace quill::platform::mac
