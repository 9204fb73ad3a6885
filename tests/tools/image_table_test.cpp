#include "tools/image_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "shell/temporary_folder.h"
#include "tools/insert_oracles.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class ImageTable : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, std::string_view bytes) {
    const fs::path file = m_folder.path() / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
  }
  std::string PathOf(const std::string& name) const { return (m_folder.path() / name).string(); }

  test::TemporaryFolder m_folder;
};

// Both layouts, with and without names, as the page gets them.
TEST_F(ImageTable, WritesBothLayouts) {
  const ImageEntry entries[] = {{"/p/a.png", "a.png", "data:image/png;base64,YQ=="},
                                {"/p/b <c>.JPG", "b <c>.JPG", "data:image/JPG;base64,Yg=="}};
  for (const bool isHorizontal : {false, true}) {
    for (const bool hasNames : {false, true}) {
      const ImageTableStyle style{isHorizontal ? ImageLayout::Horizontal : ImageLayout::Vertical,
                                  hasNames ? ImageNames::Shown : ImageNames::Hidden};
      EXPECT_EQ(ImageTableHtml(entries, style), oracle::ImageTable(entries, isHorizontal, hasNames));
    }
  }
  EXPECT_EQ(ImageTableHtml({}, {}), "");
}

// What is read from disk is the same table; a file that is gone costs its row and is named.
TEST_F(ImageTable, BuildsFromFilesAndNamesWhatItCouldNotRead) {
  const std::string first = Write("a.png", "a");
  const std::string second = Write("sub/b.JPG", std::string_view("\0\xFF\x10", 3));
  const std::string paths[] = {first, PathOf("gone.gif"), second, m_folder.path().string()};
  const ImageTableBuild build = BuildImageTable(paths, {});
  EXPECT_EQ(build.pictures, 2u);
  EXPECT_THAT(build.skipped, ElementsAre(SkippedPath{PathOf("gone.gif"), SkipReason::Missing},
                                         SkippedPath{m_folder.path().string(), SkipReason::NotAFile}));
  const ImageEntry entries[] = {{first, "a.png", "data:image/png;base64,YQ=="},
                                {second, "b.JPG", "data:image/JPG;base64,AP8Q"}};
  EXPECT_EQ(build.html, oracle::ImageTable(entries, false, true));
  EXPECT_EQ(ReadImageEntry(second)->dataUri, entries[1].dataUri);
  EXPECT_EQ(BuildImageTable(std::span(paths).subspan(1, 1), {}).html, "");
}

// A folder of thousands of photographs: the user can stop it, and it ends before memory does.
TEST_F(ImageTable, CanBeEndedAndKeepsItsLimits) {
  const std::string paths[] = {Write("a.png", "123"), Write("b.png", "123456789"), Write("c.png", "123")};
  std::vector<std::size_t> seen;
  const auto endAtSecond = [&](std::size_t done, std::size_t total) {
    EXPECT_EQ(total, 3u);
    seen.push_back(done);
    return done < 1;
  };
  const ImageTableBuild ended = BuildImageTable(paths, {}, endAtSecond);
  EXPECT_TRUE(ended.isCancelled);
  EXPECT_EQ(ended.html, "");
  EXPECT_THAT(seen, ElementsAre(0u, 1u));

  for (const ImageTableLimits limits : {ImageTableLimits{8, 100}, ImageTableLimits{100, 11}}) {
    const ImageTableBuild build = BuildImageTable(paths, {}, {}, limits);
    EXPECT_EQ(build.pictures, 2u);
    EXPECT_THAT(build.skipped, ElementsAre(SkippedPath{paths[1], SkipReason::TooLarge}));
  }
}

// Folders are walked whole and only once, whatever links they hold; upper-case endings stay out there.
TEST_F(ImageTable, ExpandsFoldersOnceAndFilesByTheirEnding) {
  const std::string chosen = Write("chosen/IMG.PNG", "x");
  const std::string text = Write("chosen/notes.txt", "x");
  for (const char* name :
       {"a.png", "B.PNG", "b.jpeg.txt", ".hidden/c.jpe", "deep/er/d.emf", "jpg", "deep/e.bmp"})
    Write(std::string("tree/") + name, "x");
  fs::create_directory_symlink("..", PathOf("tree/deep/up"));
  fs::create_symlink("gone", PathOf("tree/broken.gif"));
  ASSERT_EQ(::mkfifo(PathOf("tree/pipe.png").c_str(), 0600), 0);

  const std::string paths[] = {chosen, text, PathOf("none"), PathOf("tree"), PathOf("tree/deep")};
  const PictureList list = ExpandPictures(paths);
  ASSERT_FALSE(list.paths.empty());
  EXPECT_EQ(list.paths.front(), chosen);
  EXPECT_THAT(list.paths, UnorderedElementsAre(chosen, PathOf("tree/a.png"), PathOf("tree/.hidden/c.jpe"),
                                               PathOf("tree/deep/er/d.emf"), PathOf("tree/deep/e.bmp")));
  EXPECT_THAT(list.skipped, UnorderedElementsAre(SkippedPath{text, SkipReason::NotAPicture},
                                                 SkippedPath{PathOf("none"), SkipReason::Missing},
                                                 SkippedPath{PathOf("tree/broken.gif"), SkipReason::Missing},
                                                 SkippedPath{PathOf("tree/pipe.png"), SkipReason::NotAFile}));
}

// The order is the folder's own listing, each subfolder in its place.
TEST_F(ImageTable, KeepsTheOrderOfTheListing) {
  for (const char* name : {"q.png", "a/x.png", "a/c.png", "m.png", "b/z.png", "0.png"}) Write(name, "x");
  std::vector<std::string> expected;
  for (const auto& entry : fs::recursive_directory_iterator(m_folder.path())) {
    if (entry.is_regular_file()) expected.push_back(entry.path().string());
  }
  const std::string folder = m_folder.path().string();
  EXPECT_EQ(ExpandPictures(std::span(&folder, 1)).paths, expected);
}

// Whoever has chosen the whole disk by mistake can end the walk, and keeps what it had found.
TEST_F(ImageTable, StopsAWalkWhenItIsTold) {
  for (int i = 0; i < 20; ++i) Write("many/" + std::to_string(i) + ".png", "x");
  const std::string paths[] = {PathOf("many"), Write("last.png", "x")};
  std::size_t calls = 0;
  const PictureList whole = ExpandPictures(paths, [&](std::size_t) { return ++calls > 0; });
  EXPECT_FALSE(whole.isStopped);
  EXPECT_EQ(whole.paths.size(), 21u);
  EXPECT_GE(calls, 22u) << "each entry is a chance to stop";

  const PictureList part = ExpandPictures(paths, [](std::size_t found) { return found < 5; });
  EXPECT_TRUE(part.isStopped);
  EXPECT_THAT(part.paths, ElementsAreArray(std::span(whole.paths).first(5)));

  calls = 0;
  const PictureList none = ExpandPictures(paths, [&](std::size_t) { return ++calls < 10; });
  EXPECT_TRUE(none.isStopped);
  EXPECT_EQ(calls, 10u) << "not asked again, also while a large folder is being listed";
  EXPECT_THAT(none.paths, IsEmpty());
}

// A folder that may not be opened is named instead of passing for an empty one.
TEST_F(ImageTable, NamesFoldersItMayNotOpen) {
  Write("closed/a.png", "x");
  fs::permissions(PathOf("closed"), fs::perms::none);
  fs::permissions(m_folder.path(), fs::perms(0755));
  const std::string folder = m_folder.path().string();
  // The superuser may open everything, so it looks with the eyes of somebody else.
  constexpr uid_t kNobody = 65534;
  const bool isSuperuser = ::geteuid() == 0;
  if (isSuperuser) {
    ASSERT_EQ(::seteuid(kNobody), 0);
  }
  const PictureList list = ExpandPictures(std::span(&folder, 1));
  if (isSuperuser) {
    ASSERT_EQ(::seteuid(0), 0);
  }
  fs::permissions(PathOf("closed"), fs::perms::owner_all);
  EXPECT_THAT(list.paths, IsEmpty());
  EXPECT_THAT(list.skipped, ElementsAre(SkippedPath{PathOf("closed"), SkipReason::Unreadable}));
}

}  // namespace
}  // namespace quill::tools
