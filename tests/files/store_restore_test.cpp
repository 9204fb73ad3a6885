#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/atomic_file.h"
#include "files/archive_bytes.h"
#include "files/store/package_restore.h"
#include "files/store/section_restore.h"
#include "files/store_world.h"

namespace quill::files {
namespace {

using test::CabinetOf;
namespace fs = std::filesystem;
using test::StoreWorld;
using test::ZipOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Unpacking : testing::Test {
  UnpackTools Tools() { return {world.runner}; }
  fs::path Package(const std::string& name, std::string_view bytes) {
    return world.Put(world.packages / name, bytes);
  }
  UnpackOutcome Unzip(const std::string& name, std::string_view bytes) {
    return UnpackQuillpkg(Package(name, bytes), target, Tools());
  }
  UnpackOutcome Extract(const fs::path& package) {
    return UnpackOnepkg(package, target, {"/missing/cex", "cabextract"}, Tools());
  }

  StoreWorld world;
  fs::path target = world.cache / "Work.quillpkg";
};

// A package holds what a notebook was: restored, the files are in the target under their names.
TEST_F(Unpacking, RestoresAPackage) {
  const UnpackOutcome outcome =
      Unzip("Work.quillpkg", ZipOf({{"Work/A.one", "a"}, {"Work/Group/日本 $(touch x).one", "b"}}));
  EXPECT_EQ(outcome.end, UnpackEnd::Unpacked) << outcome.reason;
  EXPECT_EQ(outcome.files, 2u);
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("Work/A.one", "Work/Group/日本 $(touch x).one"));
}

// A package opens itself, however its name reads as a pattern, and never the one that the pattern means.
TEST_F(Unpacking, OpensThePackageThatWasMeant) {
  const std::vector<std::pair<std::string, std::string>> pairs{{"Work [1].quillpkg", "Work 1.quillpkg"},
                                                               {"a*.quillpkg", "abc.quillpkg"},
                                                               {"q?.quillpkg", "qx.quillpkg"},
                                                               {"b\\c.quillpkg", "bc.quillpkg"},
                                                               {"-d.quillpkg", "d.quillpkg"},
                                                               {"[!a]].quillpkg", "x].quillpkg"},
                                                               {".h[.quillpkg", ".h.quillpkg"},
                                                               {"n\nl.quillpkg", "nl.quillpkg"},
                                                               {"e $(x) 'é'.quillpkg", "e.quillpkg"}};
  for (const auto& [name, lure] : pairs) {
    Package(lure, ZipOf({{"lure", ""}}));
    target = world.cache / name;
    EXPECT_EQ(Unzip(name, ZipOf({{"right", ""}})).end, UnpackEnd::Unpacked) << name;
    EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("right")) << name;
  }
  world.Put(world.packages / "[x]" / "in.quillpkg", ZipOf({{"right", ""}}));
  world.Put(world.packages / "x" / "in.quillpkg", ZipOf({{"lure", ""}}));
  target = world.cache / "in.quillpkg";
  EXPECT_EQ(UnpackQuillpkg(world.packages / "[x]" / "in.quillpkg", target, Tools()).end, UnpackEnd::Unpacked);
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("right"));
}

// A hostile package writes nothing outside the target, neither by its names nor through links of its own or
// old ones.
TEST_F(Unpacking, StaysInsideTheTarget) {
  const fs::path outside = world.folder.path() / "outside";
  fs::create_directories(outside);
  fs::create_directories(target);
  fs::create_directory_symlink(outside, target / "old");
  const std::string above = outside.string();
  const UnpackOutcome outcome = Unzip("Work.quillpkg", ZipOf({{"../../up.one", "x"},
                                                              {above + "/absolute.one", "x"},
                                                              {"out", above, 0120777},
                                                              {"out/evil.one", "x"},
                                                              {"old/evil.one", "x"},
                                                              {"a/up", "../..", 0120777},
                                                              {"a/chain", "up/../..", 0120777},
                                                              {"a/self", "self", 0120777},
                                                              {"a/good", "../b/S.one", 0120777},
                                                              {"b/S.one", "s"}}));
  EXPECT_TRUE(HasRestored(outcome)) << outcome.reason;
  EXPECT_TRUE(fs::is_empty(outside));
  EXPECT_FALSE(fs::exists(world.cache / "up.one") || fs::exists(world.cache.parent_path() / "up.one"));
  for (const std::string& path : StoreWorld::Tree(target)) {
    const std::size_t arrow = path.find(" -> ");
    if (arrow == std::string::npos || path.starts_with("old -> ")) continue;
    EXPECT_EQ(path, "a/good -> ../b/S.one");
  }
  EXPECT_EQ(*ReadFile(target / "a" / "good"), "s");
  EXPECT_GE(outcome.removedLinks, 4u);
}

// Folders without rights must not hide links from the search for them.
TEST_F(Unpacking, FindsLinksInClosedFolders) {
  const UnpackOutcome outcome = Unzip("Work.quillpkg", ZipOf({{"closed/", "", 040000},
                                                              {"closed/out", "/etc", 0120777},
                                                              {"z", "/etc", 0120777},
                                                              {"S.one", "s"}}));
  EXPECT_EQ(outcome.removedLinks, 2u) << outcome.reason;
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("S.one"));
}

// Restoring twice keeps what the user has changed since, and says so; new files come in.
TEST_F(Unpacking, KeepsWhatIsThere) {
  Unzip("Work.quillpkg", ZipOf({{"Work/A.one", "packed"}}));
  world.Put(target / "Work" / "A.one", "changed since");
  const UnpackOutcome outcome =
      Unzip("Work.quillpkg", ZipOf({{"Work/A.one", "packed"}, {"Work/B.one", "new"}}));
  EXPECT_EQ(outcome.end, UnpackEnd::Unpacked);
  EXPECT_EQ(outcome.kept, 1u);
  EXPECT_EQ(*ReadFile(target / "Work" / "A.one"), "changed since");
  EXPECT_EQ(*ReadFile(target / "Work" / "B.one"), "new");
}

// A package that would fill the disk is stopped before it does, and leaves the target as it was.
TEST_F(Unpacking, StopsBeforeTheDiskIsFull) {
  world.Put(world.folder.path() / "zeros", std::string(96u << 20, '\0'));
  const fs::path bomb = world.packages / "Bomb.quillpkg";
  StoreWorld::Tool(world.folder.path(), {"zip", "-q", "-1", bomb.string(), "zeros"});
  world.Put(target / "mine.one", "mine");
  std::uintmax_t most = 0;
  UnpackTools tools = Tools();
  // A disk of 400 MB on which every byte takes the room of eight.
  tools.freeSpace = [&](const fs::path& folder) -> std::optional<std::uintmax_t> {
    std::uintmax_t used = 0;
    std::error_code error;
    if (fs::exists(folder / "zeros", error)) used = fs::file_size(folder / "zeros", error) * 8;
    most = std::max(most, used);
    constexpr std::uintmax_t kDisk = 400u << 20;
    return used < kDisk ? kDisk - used : 0;
  };
  const UnpackOutcome outcome = UnpackQuillpkg(bomb, target, tools);
  EXPECT_EQ(outcome.end, UnpackEnd::DiskFull);
  EXPECT_GT(most, 0u) << "nothing was written at all";
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("mine.one"));
  EXPECT_TRUE(fs::directory_iterator(target) != fs::directory_iterator());
}

// Whatever comes to nothing leaves no folder behind that was not there, and gives its reason.
TEST_F(Unpacking, LeavesNothingBehindAFailure) {
  const auto fails = [&](const UnpackOutcome& outcome, UnpackEnd end, const std::string& reason) {
    EXPECT_EQ(outcome.end, end) << outcome.reason;
    EXPECT_THAT(outcome.reason, HasSubstr(reason));
    EXPECT_FALSE(fs::exists(target));
  };
  fails(Unzip("Junk.quillpkg", "no package"), UnpackEnd::Nothing, "not found");
  fails(Unzip("Empty.quillpkg", ""), UnpackEnd::Nothing, "not found");
  Package("Gone.quillpkg.zip", ZipOf({{"lure", ""}}));
  fails(UnpackQuillpkg(world.packages / "Gone.quillpkg", target, Tools()), UnpackEnd::NoFile, "No such file");
  fails(UnpackQuillpkg(world.packages, target, Tools()), UnpackEnd::NoFile, "not a file");
  const fs::path package = Package("Work.quillpkg", ZipOf({{"A.one", "a"}}));
  UnpackTools cancelled = Tools();
  cancelled.isCancelled = [] { return true; };
  test::SaidRunner stopped([](const platform::ProcessRequest& request) {
    EXPECT_TRUE(request.isCancelled());
    std::ofstream(fs::path(request.command.back()) / "half.one") << "half";
    platform::ProcessResult result;
    result.end = platform::ProcessEnd::Cancelled;
    return result;
  });
  fails(UnpackQuillpkg(package, target, {stopped, cancelled.isCancelled}), UnpackEnd::Cancelled, "");
  fails(UnpackOnepkg(package, target, {"/missing/cex", "missing-cabextract"}, Tools()), UnpackEnd::NoProgram,
        "missing-cabextract");
  world.Put(target, "a file in the way");
  EXPECT_EQ(UnpackQuillpkg(package, target, Tools()).end, UnpackEnd::NoFolder);
}

// A damaged package gives what can be read of it, and the program's complaint.
TEST_F(Unpacking, TellsThatOnlyAPartCameOut) {
  std::string bytes = ZipOf({{"A.one", "aaaaaaaa"}, {"B.one", "bbbbbbbb"}});
  bytes[bytes.find("aaaaaaaa")] = 'x';
  const UnpackOutcome outcome = Unzip("Work.quillpkg", bytes);
  EXPECT_EQ(outcome.end, UnpackEnd::Partly);
  EXPECT_THAT(outcome.reason, HasSubstr("CRC"));
  EXPECT_THAT(StoreWorld::Tree(target), testing::Contains("B.one"));
}

// Real cabinets by two makers, and names in them that reach out.
TEST_F(Unpacking, ExtractsCabinets) {
  const fs::path source = world.folder.path() / "source";
  world.Put(source / "Group" / "S.one", "section");
  world.Put(source / "Open Notebook.onetoc2", "table");
  const fs::path made = world.packages / "[Work] -x.onepkg";
  StoreWorld::Tool(source, {"gcab", "-c", "-z", made.string(), "Group/S.one", "Open Notebook.onetoc2"});
  EXPECT_EQ(Extract(made).end, UnpackEnd::Unpacked);
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("Group/S.one", "Open Notebook.onetoc2"));
  EXPECT_EQ(*ReadFile(target / "Group" / "S.one"), "section");

  const UnpackOutcome stored = Extract(Package("Stored.onepkg", CabinetOf("Plain.one", "plain")));
  EXPECT_EQ(stored.end, UnpackEnd::Unpacked) << stored.reason;
  EXPECT_EQ(*ReadFile(target / "Plain.one"), "plain");

  target = world.cache / "hostile.onepkg";
  for (const char* name : {"..\\..\\evil.one", "\\evil.one", "C:\\evil.one"})
    Extract(Package("Hostile.onepkg", CabinetOf(name, "evil")));
  for (const fs::path& folder : {world.cache, world.cache.parent_path()})
    EXPECT_FALSE(fs::exists(folder / "evil.one")) << folder;
  EXPECT_FALSE(fs::exists("/evil.one"));

  target = world.cache / "junk.onepkg";
  EXPECT_EQ(Extract(Package("Junk.onepkg", "no cabinet")).end, UnpackEnd::Nothing);
  EXPECT_FALSE(fs::exists(target));
}

// A section is exchanged in one step: never half of it, never the old one gone without the new one.
TEST(RestoreSection, ReplacesOneOfTheSameName) {
  const StoreWorld world;
  const fs::path restored = world.cache / "Quill Restore Sections" / "S $(x).one";
  const fs::path section = world.Put(world.packages / "S $(x).one", "first");
  EXPECT_EQ(RestoreSectionFile(section, world.cache).end, SectionRestoreEnd::Restored);
  world.Put(section, "second");
  EXPECT_EQ(RestoreSectionFile(section, world.cache).file, restored);
  EXPECT_EQ(*ReadFile(restored), "second");
  EXPECT_EQ(RestoreSectionFile(restored, world.cache).end, SectionRestoreEnd::Restored) << "of itself";
  EXPECT_EQ(*ReadFile(restored), "second");

  const SectionRestore missing = RestoreSectionFile(world.packages / "missing" / "S $(x).one", world.cache);
  EXPECT_EQ(missing.end, SectionRestoreEnd::NotCopied);
  EXPECT_THAT(missing.reason, HasSubstr("missing"));
  EXPECT_EQ(*ReadFile(restored), "second");
  EXPECT_THAT(StoreWorld::Tree(restored.parent_path()), ElementsAre("S $(x).one"))
      << "a temporary file is left";

  EXPECT_EQ(RestoreSectionBytes("a4.one", "bytes", world.cache).end, SectionRestoreEnd::Restored);
  EXPECT_EQ(*ReadFile(restored.parent_path() / "a4.one"), "bytes");
  EXPECT_EQ(RestoreSectionBytes("a4.one", "bytes", section).end, SectionRestoreEnd::NoFolder)
      << "a file in the way";
}

}  // namespace
}  // namespace quill::files
