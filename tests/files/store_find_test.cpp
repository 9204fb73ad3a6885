#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/store/extractor.h"
#include "files/store/folder_work.h"
#include "files/store/notebook_list.h"
#include "files/store/onenote_store.h"
#include "files/store/section_file.h"
#include "files/store_world.h"
#include "platform/posix/creation_date.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using test::StoreWorld;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// The notebooks' folder has a name in OneNote's own language: it is known by the section files in it alone.
TEST(OneNoteStore, FindsTheCacheFolderByItsSections) {
  const StoreWorld world;
  const fs::path version = world.library / kOneNoteVersionFolder;
  EXPECT_EQ(GetOneNoteCacheFolder({world.library}), fs::path()) << "no section anywhere";
  world.Put(version / "Sauvegarde" / "Work" / "Group" / "A.ONE", "capitals are another ending");
  world.Put(version / "Settings" / "note.txt", "");
  const fs::path section = world.Version("Work/Group", "A", "x");
  EXPECT_EQ(GetOneNoteCacheFolder({world.folder.path() / "nowhere", world.library}), world.cache);
  EXPECT_EQ(FindOneFileFolder(version, StoreLevel::Inside), section);
  EXPECT_EQ(GetOneNoteVersionFolder({world.folder.path() / "nowhere", world.library}), version);
  EXPECT_EQ(GetOneNoteVersionFolder({world.folder.path() / "nowhere"}), fs::path());
}

// A store with links that lead back must not keep the program for ever.
TEST(OneNoteStore, EndsWhereLinksLoop) {
  const StoreWorld world;
  const fs::path version = world.library / kOneNoteVersionFolder;
  fs::create_directories(world.cache / "a");
  fs::create_directory_symlink(version, world.cache / "up");
  fs::create_directory_symlink("b", world.cache / "b");
  fs::create_directory_symlink("../a", world.cache / "a" / "self");
  EXPECT_EQ(GetOneNoteCacheFolder({world.library}), fs::path());
  world.Version("a", "A", "x");
  EXPECT_EQ(GetOneNoteCacheFolder({world.library}), world.cache);
}

// What was restored into the cache folder is no notebook to be packed again.
TEST(NotebookList, LeavesRestoredThingsOut) {
  const StoreWorld world;
  for (const char* name :
       {"Work", ".hidden", "QUILL restore sections", "Old.quillpkg", "Old.onepkg", "Old.zip", "New.ZIP"})
    fs::create_directory(world.cache / name);
  world.Put(world.cache / "file", "");
  const auto list = LoadBackupNotebooks(world.cache);
  ASSERT_TRUE(list.ok());
  std::vector<std::string> names;
  for (const MAFolder& notebook : *list) {
    EXPECT_TRUE(notebook.checked);
    EXPECT_EQ(notebook.path, world.cache / notebook.name);
    names.push_back(notebook.name);
  }
  EXPECT_THAT(names, UnorderedElementsAre("Work", ".hidden", "New.ZIP"));
  EXPECT_THAT(LoadBackupNotebooks(world.cache / "missing").error(), HasSubstr("missing"));
}

// The window's figures are those of the package: newest versions only.
TEST(NotebookList, MeasuresWhatWouldBePacked) {
  const StoreWorld world;
  test::SaidDates dates;
  dates.seconds = {{"A.one (x).one", 1}, {"A.one (y).one", 2}};
  world.Version("Work", "A", "x", "a long old version");
  const fs::path newest = world.Version("Work", "A", "y", "new");
  fs::last_write_time(world.Version("Work/Group", "B", "z", "b"),
                      fs::last_write_time(newest) - std::chrono::hours(1));
  world.Put(world.cache / "Work" / "Plain.one", "not a version");
  fs::create_symlink("nowhere", world.cache / "Work" / "C.one (gone).one");
  const NotebookFacts facts = MeasureNotebook(world.cache / "Work", dates);
  EXPECT_EQ(facts.sections, 2u);
  EXPECT_EQ(facts.bytes, 4u);
  EXPECT_EQ(facts.unreadable, 1u);
  ASSERT_TRUE(facts.changed.has_value());
  EXPECT_EQ(*facts.changed, std::chrono::floor<std::chrono::seconds>(
                                std::chrono::file_clock::to_sys(fs::last_write_time(newest))));
  EXPECT_EQ(MeasureNotebook(world.cache / "Work", dates, [] { return true; }).sections, 0u);
}

// Only the file-format GUID decides; what is too short for one, or no file at all, is refused.
TEST(SectionFile, IsRefusedByItsFormat) {
  const test::TemporaryFolder folder;
  const std::string packaged = "\x2F\xE9\x8D\x63\xD4\xA6\xC1\x4B\x9A\x36\xB3\xFC\x25\x11\xA5\xB7";
  const std::string native = "\x3F\xDD\x9A\x10\x1B\x91\xF5\x49\xA5\xD0\x17\x91\xED\xC8\xAE\xD8";
  const std::string start(48, '\x01');
  const auto supported = [&](const std::string& bytes) {
    return IsMacSupportedOneFile(folder.Write("s.one", bytes));
  };
  EXPECT_FALSE(supported(start + packaged + "more"));
  EXPECT_TRUE(supported(start + native));
  EXPECT_TRUE(supported(start + packaged.substr(0, 15) + '\xB8'));
  EXPECT_TRUE(supported(packaged + start));
  EXPECT_FALSE(supported(start + native.substr(1)));
  EXPECT_FALSE(IsMacSupportedOneFile(folder.path()));
  EXPECT_FALSE(IsMacSupportedOneFile(folder.path() / "missing.one"));
  const fs::path pipe = folder.path() / "pipe.one";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(IsMacSupportedOneFile(pipe)) << "waited for a writer that never comes";
}

// Deleting may never reach beyond the temporary folder, whatever lies in it or was named.
TEST(EmptyFolder, DeletesNothingElsewhere) {
  const test::TemporaryFolder folder;
  const fs::path precious = folder.Write("precious/a.txt", "a");
  const fs::path tmp = folder.path() / "Tmp";
  folder.Write("Tmp/staged/deep/b.txt", "b");
  folder.Write("Tmp/staged/.hidden", "");
  fs::create_directory_symlink(precious.parent_path(), tmp / "link");
  fs::create_directory_symlink(precious.parent_path(), tmp / "staged" / "link");
  for (const fs::path& wrong : {fs::path(), folder.path(), precious.parent_path(), tmp / ".." / "precious",
                                tmp / "link", tmp / "missing", fs::path("/")})
    EXPECT_FALSE(EmptyFolder(wrong, tmp).ok()) << wrong;
  EXPECT_FALSE(EmptyFolder("/", "/").ok());
  EXPECT_FALSE(EmptyFolder(tmp, "").ok());
  EXPECT_TRUE(fs::exists(tmp / "staged" / "deep" / "b.txt"));
  EXPECT_TRUE(EmptyFolder(tmp / "staged" / "deep", tmp).ok());
  EXPECT_TRUE(fs::is_empty(tmp / "staged" / "deep"));
  EXPECT_TRUE(EmptyFolder(tmp, tmp).ok());
  EXPECT_TRUE(fs::is_empty(tmp));
  EXPECT_TRUE(fs::exists(precious));
}

// A folder that is there counts as made; a file in the way does not.
TEST(CreateFolder, SucceedsWhenTheFolderIsThere) {
  const test::TemporaryFolder folder;
  EXPECT_TRUE(CreateFolder(folder.path() / "a" / "b").ok());
  EXPECT_TRUE(CreateFolder(folder.path() / "a" / "b").ok());
  const fs::path file = folder.Write("file", "");
  EXPECT_THAT(CreateFolder(file).error(), HasSubstr(file.string()));
  EXPECT_THAT(CreateFolder(file / "inner").error(), HasSubstr(file.string()));
}

// Two programs that stage in one folder would pack each other's sections.
TEST(FolderLock, LetsOneIn) {
  const test::TemporaryFolder folder;
  {
    const auto first = FolderLock::Take(folder.path());
    ASSERT_TRUE(first.ok());
    EXPECT_THAT(FolderLock::Take(folder.path()).error(), HasSubstr("another program"));
  }
  EXPECT_TRUE(FolderLock::Take(folder.path()).ok());
  EXPECT_FALSE(FolderLock::Take(folder.path() / "missing").ok());
}

// Asking for the processor takes seconds: once in the program's life, and only where it decides something.
TEST(Extractor, IsChosenByTheProcessorAskedOnce) {
  test::SaidRunner runner([](const platform::ProcessRequest&) {
    platform::ProcessResult result;
    result.end = platform::ProcessEnd::Exited;
    result.output = "Hardware:\n\n      Processor Name: APPLE M9\n";
    return result;
  });
  ProcessorReader reader;
  EXPECT_THAT(ExtractorPrograms(reader, runner, [](const fs::path&) { return false; }),
              ElementsAre("cabextract"));
  EXPECT_THAT(runner.commands, IsEmpty());
  const auto isThere = [](const fs::path&) { return true; };
  EXPECT_THAT(ExtractorPrograms(reader, runner, isThere), ElementsAre("/usr/local/bin/cex", "cabextract"));
  EXPECT_THAT(ExtractorPrograms(reader, runner, isThere), ElementsAre("/usr/local/bin/cex", "cabextract"));
  EXPECT_EQ(runner.commands.size(), 1u);
  EXPECT_TRUE(IsAppleProcessor("apple m1") && !IsAppleProcessor("Intel Core i7"));
}

// The date of the file itself, not of its last change, decides between versions, where the file system keeps
// it.
TEST(SystemFileDates, TellWhenAFileWasMade) {
  const test::TemporaryFolder folder;
  const platform::SystemFileDates dates;
  const auto before = std::chrono::system_clock::now() - std::chrono::seconds(2);
  const fs::path file = folder.Write("a", "a");
  fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(24));
  const auto created = dates.Created(file);
  ASSERT_TRUE(created.has_value());
  const auto changed = std::chrono::file_clock::to_sys(fs::last_write_time(file));
  EXPECT_TRUE(*created > before || std::chrono::abs(*created - changed) < std::chrono::microseconds(1));
  EXPECT_FALSE(dates.Created(folder.path() / "missing").has_value());
}

}  // namespace
}  // namespace quill::files
