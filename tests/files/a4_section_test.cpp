#include "files/store/a4_section.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <random>

#include "base/atomic_file.h"
#include "revision_store_reader.h"
#include "shell/temporary_folder.h"
#include "store_checksums.h"

namespace quill::files {
namespace {

using namespace std::string_view_literals;
using test::ReadRevisionStore;
using test::RevisionStore;
using test::StoredObject;
using test::StoredSpace;

/// The objects of one kind in a space.
std::vector<const StoredObject*> OfKind(const StoredSpace& space, std::uint32_t kind) {
  std::vector<const StoredObject*> found;
  for (const auto& [id, object] : space.objects)
    if (object.kind == kind) found.push_back(&object);
  return found;
}

/// What the only reference of a property leads to.
const StoredObject& Only(const StoredSpace& space, const StoredObject& object, std::uint32_t property) {
  const auto& identifiers = object.properties.at(property).identifiers;
  EXPECT_EQ(identifiers.size(), 1u) << std::hex << property;
  return space.objects.at(identifiers.at(0));
}

const StoredObject& RootOf(const StoredSpace& space, std::uint32_t role) {
  return space.objects.at(space.roots.at(role));
}

float Length(const StoredObject& object, std::uint32_t property) {
  return std::bit_cast<float>(static_cast<std::uint32_t>(object.properties.at(property).number));
}

const StoredSpace& SectionOf(const RevisionStore& store) {
  return store.spaces.at(store.rootSpace);
}

const StoredSpace& PageOf(const RevisionStore& store) {
  const StoredObject& series = Only(SectionOf(store), RootOf(SectionOf(store), 1), 0x24001C20);
  EXPECT_EQ(series.kind, 0x00060008u);
  const auto& pages = series.properties.at(0x2C001D63).identifiers;
  EXPECT_EQ(pages.size(), 1u);
  EXPECT_NE(pages.at(0), store.rootSpace);
  return store.spaces.at(pages.at(0));
}

/// Everything that leads from one thing to another, as a text.
std::string Shape(const RevisionStore& store) {
  std::string shape = store.rootSpace;
  for (const auto& [spaceId, space] : store.spaces) {
    shape += "space" + spaceId;
    for (const auto& [role, root] : space.roots) shape += std::to_string(role) + root;
    for (const auto& [id, object] : space.objects) {
      shape += "object" + id + std::to_string(object.references);
      for (const auto& [key, value] : object.properties)
        for (const std::string& other : value.identifiers) shape += "to" + other;
    }
  }
  return shape;
}

// What the other tests measure by is itself measured by published values.
TEST(A4Section, IsCheckedWithKnownSums) {
  EXPECT_EQ(test::Crc32c("123456789"), 0xE3069283u);
  EXPECT_EQ(test::Md5Digest("abc"), "\x90\x01\x50\x98\x3C\xD2\x4F\xB0\xD6\x96\x3F\x7D\x28\xE1\x7F\x72"sv);
}

// OneNote for Mac opens the native revision store only, and tells it by these bytes.
TEST(A4Section, IsANativeRevisionStore) {
  ASSERT_GE(A4Section().size(), 1024u);
  EXPECT_EQ(A4Section().substr(48, 16), "\x3F\xDD\x9A\x10\x1B\x91\xF5\x49\xA5\xD0\x17\x91\xED\xC8\xAE\xD8"sv);
}

// A section shows a page whose space it names, under the metadata that it keeps of it.
TEST(A4Section, HasOnePageWithItsMetadata) {
  const auto store = ReadRevisionStore(A4Section());
  ASSERT_TRUE(store) << store.error();
  EXPECT_EQ(store->spaces.size(), 2u);
  const StoredSpace& section = SectionOf(*store);
  EXPECT_EQ(RootOf(section, 1).kind, 0x00060007u);
  EXPECT_EQ(RootOf(section, 2).kind, 0x00020031u);
  const StoredSpace& page = PageOf(*store);
  EXPECT_EQ(RootOf(page, 1).kind, 0x00060037u);
  const StoredObject& metadata = RootOf(page, 2);
  const StoredObject& series = Only(section, RootOf(section, 1), 0x24001C20);
  const StoredObject& copy = Only(section, series, 0x24003442);
  for (const StoredObject* object : {&metadata, &copy}) {
    EXPECT_EQ(object->kind, 0x00020030u);
    EXPECT_EQ(object->properties.at(0x1C001CF3).bytes, "\0\0"sv);
    EXPECT_EQ(object->properties.at(0x1C001C30).bytes, series.properties.at(0x1C001C30).bytes);
    EXPECT_EQ(object->properties.at(0x14001DFF).number, 1u);
  }
  EXPECT_NE(series.properties.at(0x1C001C30).bytes, RootOf(section, 1).properties.at(0x1C001C30).bytes);
  const StoredObject& author = Only(page, RootOf(page, 4), 0x20001D79);
  EXPECT_EQ(RootOf(page, 4).kind, 0x00020044u);
  EXPECT_EQ(author.kind, 0x00120001u);
  EXPECT_GT(author.properties.at(0x1C001D75).bytes.size(), 2u);
}

// What the section is for: an A4 sheet, upright, whose title waits to be typed.
TEST(A4Section, HasAnA4PageWithAnEmptyTitle) {
  const auto store = ReadRevisionStore(A4Section());
  ASSERT_TRUE(store) << store.error();
  const StoredSpace& space = PageOf(*store);
  ASSERT_EQ(OfKind(space, 0x0006000B).size(), 1u);
  const StoredObject& page = Only(space, RootOf(space, 1), 0x24001C1F);
  EXPECT_EQ(&page, OfKind(space, 0x0006000B)[0]);
  EXPECT_NEAR(Length(page, 0x14001C01) / 2, 210 / 25.4, 0.005);
  EXPECT_NEAR(Length(page, 0x14001C02) / 2, 297 / 25.4, 0.005);
  EXPECT_EQ(page.properties.at(0x14001C8B).number, 6u);
  EXPECT_EQ(page.properties.at(0x08001C8E).number, 1u);
  EXPECT_LT(Length(page, 0x14001C4E) + Length(page, 0x14001C4F), Length(page, 0x14001C01));
  EXPECT_FALSE(page.properties.contains(0x24001C20)) << "a blank page has no contents";
  const StoredObject& title = Only(space, page, 0x24001D5F);
  EXPECT_EQ(title.kind, 0x0006002Cu);
  const StoredObject& outline = Only(space, title, 0x24001C20);
  const StoredObject& text = Only(space, Only(space, outline, 0x24001C20), 0x24001C1F);
  EXPECT_EQ(text.kind, 0x0006000Eu);
  EXPECT_EQ(text.properties.at(0x08001CB4).number, 1u);
  EXPECT_EQ(text.properties.at(0x1C001C22).bytes, "\0\0"sv);
  EXPECT_EQ(Only(space, text, 0x2000342C).kind, 0x0012004Du);
}

// The reader is strict: a damaged byte is found, or it changed a value and nothing that leads anywhere.
TEST(A4Section, ShowsDamageOrKeepsItsShape) {
  const auto whole = ReadRevisionStore(A4Section());
  ASSERT_TRUE(whole) << whole.error();
  const std::string shape = Shape(*whole);
  std::mt19937 random(7);
  std::size_t found = 0;
  for (std::size_t at = 0; at < A4Section().size(); ++at) {
    std::string damaged(A4Section());
    damaged[at] = static_cast<char>(damaged[at] ^ (1 + random() % 255));
    const auto store = ReadRevisionStore(damaged);
    if (!store)
      ++found;
    else
      ASSERT_TRUE(Shape(*store) == shape) << "byte " << at;
  }
  EXPECT_GT(found, A4Section().size() * 3 / 4);
  for (std::size_t size = 0; size < A4Section().size(); size += 5)
    EXPECT_FALSE(ReadRevisionStore(A4Section().substr(0, size))) << size;
  for (int run = 0; run < 1000; ++run) {
    std::string damaged(A4Section());
    for (int i = 0; i < 6; ++i)
      damaged[1024 + random() % (damaged.size() - 1024)] = static_cast<char>(random());
    if (const auto store = ReadRevisionStore(damaged)) {
      ASSERT_TRUE(Shape(*store) == shape) << "run " << run;
    }
  }
}

// A build that differs from the last one could not be checked by anybody.
TEST(A4Section, IsTheSameWheneverItIsMade) {
  const test::TemporaryFolder folder;
  const auto make = [](const std::filesystem::path& file) {
    return std::system((QUILL_SECTION_FILE " '" + file.string() + "' 2>/dev/null").c_str());
  };
  for (const char* name : {"one.one", "other.one"}) {
    ASSERT_EQ(make(folder.path() / name), 0);
    const auto bytes = ReadFile(folder.path() / name);
    ASSERT_TRUE(bytes) << bytes.error();
    EXPECT_TRUE(*bytes == A4Section()) << name;
  }
  EXPECT_NE(make(folder.path() / "missing" / "a4.one"), 0) << "a build must stop without the file";
}

}  // namespace
}  // namespace quill::files
