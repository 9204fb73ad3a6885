#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "base/atomic_file.h"
#include "files/store/folder_work.h"
#include "files/store/notebook_package.h"
#include "files/store_world.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using platform::ProcessEnd;
using platform::ProcessRequest;
using platform::ProcessResult;
using test::SaidRunner;
using test::StoreWorld;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Packing with real tools in a store of the test's own.
struct Packing : testing::Test {
  using Outcomes = Result<std::vector<PackageOutcome>>;

  Outcomes Pack(const std::vector<std::string>& names, const PackageProgress& progress = {}) {
    return Pack(names, world.runner, progress);
  }
  Outcomes Pack(const std::vector<std::string>& names, platform::ProcessRunner& runner,
                const PackageProgress& progress = {}) {
    std::vector<MAFolder> notebooks;
    for (const std::string& name : names) notebooks.push_back({true, name, world.cache / name});
    return PackageNotebooks(notebooks, world.packages, {runner, dates, world.temporary}, progress);
  }
  /// The files in a package, as another program reads it.
  std::vector<std::string> Inside(const std::string& name) {
    const fs::path out = world.folder.path() / "out";
    fs::remove_all(out);
    // Names that are not marked as UTF-8 hold its bytes all the same.
    const std::string script =
        "import sys,zipfile\n"
        "with zipfile.ZipFile(sys.argv[1]) as z:\n"
        "  for m in z.infolist():\n"
        "    if not m.flag_bits & 0x800: m.filename = m.orig_filename.encode('cp437').decode()\n"
        "    z.extract(m, sys.argv[2])\n";
    StoreWorld::Tool(world.folder.path(), {"python3", "-c", script,
                                           (world.packages / (name + ".quillpkg")).string(), out.string()});
    return fs::exists(out) ? StoreWorld::Tree(out) : std::vector<std::string>{"no package"};
  }

  StoreWorld world;
  test::SaidDates dates;
};

// The names come from notebooks that others share: no shell and no option may ever be seen in them.
TEST_F(Packing, TakesEveryNameAsItIs) {
  const std::vector<std::string> names{
      "Work",          "-x",          "--out=x",    "@",        "a\"b'c",  "$(touch pwned)",
      "`touch pwned`", "line\nbreak", "trailing  ", "日本語 Ä", "[a-z]*?", "back\\slash"};
  for (const std::string& name : names) world.Version(name, "S", "v", "bytes of " + name);
  const auto outcomes = Pack(names);
  ASSERT_TRUE(outcomes.ok()) << outcomes.error();
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ((*outcomes)[i].end, PackageEnd::Packed) << names[i] << ": " << (*outcomes)[i].reason;
    EXPECT_THAT(Inside(names[i]), ElementsAre(names[i] + "/S.one"));
    EXPECT_EQ(ReadFile(world.folder.path() / "out" / names[i] / "S.one").ValueOr(""), "bytes of " + names[i]);
  }
  EXPECT_TRUE(fs::is_empty(world.temporary));
  EXPECT_EQ(StoreWorld::Tree(world.packages).size(), names.size()) << "something else was written";
}

// A package says when the notebook was last changed, not when it was packed.
TEST_F(Packing, GivesThePackageTheTimeOfItsNewestSection) {
  const auto then = fs::file_time_type::clock::now() - std::chrono::hours(1000);
  fs::last_write_time(world.Version("Work", "A", "x"), then);
  ASSERT_TRUE(Pack({"Work"}).ok());
  const auto packed = fs::last_write_time(world.packages / "Work.quillpkg");
  EXPECT_LT(std::chrono::abs(packed - then), std::chrono::hours(24)) << "the folder's entry may be newer";
}

// An existing package is brought up to date and keeps what the notebook does not have any more.
TEST_F(Packing, UpdatesAPackage) {
  const fs::path old = world.Version("Work", "A", "x", "first");
  fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(10));
  world.Version("Work", "Gone", "x", "gone");
  ASSERT_TRUE(Pack({"Work"}).ok());
  fs::remove_all(world.cache / "Work");
  world.Version("Work", "A", "x", "second");
  world.Version("Work", "B", "x", "b");
  const auto outcomes = Pack({"Work"});
  ASSERT_EQ((*outcomes)[0].end, PackageEnd::Packed);
  EXPECT_THAT(Inside("Work"), ElementsAre("Work/A.one", "Work/B.one", "Work/Gone.one"));
  EXPECT_EQ(*ReadFile(world.folder.path() / "out/Work/A.one"), "second");
}

// What goes wrong with one notebook is told in the archiver's words, and the others are packed.
TEST_F(Packing, TellsWhatFailedAndGoesOn) {
  const std::string longest(255, 'n');
  for (const std::string& name : {std::string("Junk"), longest, std::string("Work")})
    world.Version(name, "A", "x");
  world.Put(world.packages / "Junk.quillpkg", "this is no package");
  const auto outcomes = Pack({"Junk", longest, "Work"});
  ASSERT_TRUE(outcomes.ok());
  EXPECT_EQ((*outcomes)[0].end, PackageEnd::Failed);
  EXPECT_THAT((*outcomes)[0].reason, HasSubstr("structure invalid"));
  EXPECT_EQ(*ReadFile(world.packages / "Junk.quillpkg"), "this is no package");
  EXPECT_EQ((*outcomes)[1].end, PackageEnd::Failed);
  EXPECT_THAT((*outcomes)[1].reason, HasSubstr("too long"));
  EXPECT_EQ((*outcomes)[2].end, PackageEnd::Packed);
}

// A section that cannot be read does not keep the others out of the package; it is named.
TEST_F(Packing, NamesWhatIsMissing) {
  world.Version("Work", "A", "x");
  fs::create_symlink("nowhere", world.cache / "Work" / "B.one (x).one");
  const auto outcomes = Pack({"Work"});
  ASSERT_EQ((*outcomes)[0].end, PackageEnd::Incomplete);
  EXPECT_EQ((*outcomes)[0].missing.at(0).file.filename(), "B.one (x).one");
  EXPECT_THAT(Inside("Work"), ElementsAre("Work/A.one"));
}

// What lay in the temporary folder before must not end up in a package; nothing that is not checked is
// packed.
TEST_F(Packing, StagesInAnEmptyFolder) {
  world.Version("Work", "A", "x");
  world.Put(world.temporary / "Work" / "Stranger.one", "left behind");
  EXPECT_TRUE(PackageNotebooks({{false, "Work", world.cache / "Work"}}, world.packages,
                               {world.runner, dates, world.temporary})
                  ->empty());
  EXPECT_THAT(Inside("Work"), ElementsAre("no package"));
  Pack({"Work"}).ok();
  EXPECT_THAT(Inside("Work"), ElementsAre("Work/A.one"));
  const auto other = FolderLock::Take(world.temporary);
  EXPECT_THAT(Pack({"Work"}).error(), HasSubstr("another program"));
}

// Cancel while the archiver works: no half package, nothing staged, the old package as it was.
TEST_F(Packing, CancelledLeavesNothing) {
  std::mt19937 random(1);
  std::string noise(24u << 20, '\0');  // incompressible: about a second of the archiver's work
  for (char& c : noise) c = static_cast<char>(random());
  world.Version("Work", "A", "x", noise);
  world.Put(world.packages / "Work.quillpkg.old", "another file");
  int callsWhileZipping = 0;
  const auto outcomes = Pack({"Work", "Never"}, [&](double fraction, std::string_view) {
    callsWhileZipping += fraction >= 0.25 ? 1 : 0;  // half of the first of two
    return callsWhileZipping < 3;
  });
  ASSERT_EQ(outcomes->size(), 1u);
  EXPECT_EQ((*outcomes)[0].end, PackageEnd::Cancelled);
  EXPECT_GE(callsWhileZipping, 3);
  EXPECT_TRUE(fs::is_empty(world.temporary));
  EXPECT_THAT(StoreWorld::Tree(world.packages), ElementsAre("Work.quillpkg.old"));
}

// An archiver that had to be killed leaves its own temporary file beside the package; others' stay.
TEST_F(Packing, ClearsUpAfterAKilledArchiver) {
  world.Version("Work", "A", "x");
  world.Put(world.packages / "ziBEFORE", "somebody else's");
  SaidRunner killed([&](const ProcessRequest&) {
    world.Put(world.packages / "ziAb12cD", "half a package");
    return ProcessResult{ProcessEnd::Signalled, 9, {}, {}, false, {}};
  });
  const auto outcomes = Pack({"Work"}, killed);
  EXPECT_EQ((*outcomes)[0].end, PackageEnd::Failed);
  EXPECT_EQ((*outcomes)[0].reason, "signal 9");
  EXPECT_THAT(StoreWorld::Tree(world.packages), ElementsAre("ziBEFORE"));
}

// The archiver at its fixed place is used first; without any the user learns which program is missing.
TEST_F(Packing, LooksForTheArchiver) {
  world.Version("-Work", "A", "x");
  SaidRunner none([](const ProcessRequest& request) {
    ProcessResult result;
    result.end = ProcessEnd::NotFound;
    result.reason = request.command.front() + ": No such file or directory";
    return result;
  });
  const auto outcomes = Pack({"-Work"}, none);
  EXPECT_THAT((*outcomes)[0].reason, StartsWith("zip:"));
  const std::string package = (world.packages / "-Work.quillpkg").string();
  EXPECT_THAT(none.commands, ElementsAre(ElementsAre("/usr/bin/zip", "-r", "-m", "-o", package, "./-Work"),
                                         ElementsAre("zip", "-r", "-m", "-o", package, "./-Work")));
}

}  // namespace
}  // namespace quill::files
