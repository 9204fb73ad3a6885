#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>
#include <set>

#include "base/atomic_file.h"
#include "content/text_between.h"
#include "files/store/section_choice.h"
#include "files/store/section_copy.h"
#include "files/store_world.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using test::SaidDates;
using test::StoreWorld;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Which entries are copied under which names, entry against entry, as the rule reads word for word.
std::vector<std::pair<std::size_t, std::string>> ByComparingAll(const std::vector<FolderEntry>& entries,
                                                                const SaidDates& dates) {
  const auto created = [&](std::size_t i) {
    const auto found = dates.seconds.find(entries[i].name);
    return found == dates.seconds.end() ? -1 : found->second;
  };
  std::set<std::string> done;
  std::vector<std::pair<std::size_t, std::string>> copied;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].isFolder || entries[i].name.find(").one") == std::string::npos) continue;
    std::string base(content::TextBetween(entries[i].name, "", ".one"));
    if (base.empty()) continue;
    base += ".one";
    if (done.contains(base)) continue;
    bool isNewest = true;
    for (std::size_t j = 0; j < entries.size(); ++j) {
      if (j != i && entries[j].name.starts_with(base) && created(i) < created(j)) isNewest = false;
    }
    if (!isNewest) continue;
    copied.emplace_back(i, base);
    done.insert(base);
  }
  return copied;
}

/// A listing with many near misses: names that begin alike, folders, equal and missing dates.
std::vector<FolderEntry> RandomListing(std::mt19937& random, SaidDates& dates) {
  const std::vector<std::string> pieces{"A", "B", ".one", " (x)", ").one", ".on", "e", " (y).one", ".", "é"};
  const auto pick = [&](std::size_t below) { return random() % below; };
  std::set<std::string> names;
  for (std::size_t i = pick(24); i > 0; --i) {
    std::string name;
    for (std::size_t piece = 1 + pick(5); piece > 0; --piece) name += pieces[pick(pieces.size())];
    names.insert(name);
  }
  std::vector<FolderEntry> entries;
  for (const std::string& name : names) {
    entries.push_back({name, pick(6) == 0, false});
    if (pick(5) != 0) dates.seconds[name] = static_cast<int>(pick(4));
  }
  std::shuffle(entries.begin(), entries.end(), random);
  return entries;
}

// The quick way chooses what comparing every entry with every other does, and asks each file once at most.
TEST(ChooseSections, AgreesWithComparingAll) {
  std::mt19937 random(20261122);
  std::size_t chosenInAll = 0;
  for (int round = 0; round < 20'000; ++round) {
    SaidDates dates;
    const std::vector<FolderEntry> entries = RandomListing(random, dates);
    std::vector<std::pair<std::size_t, std::string>> chosen;
    for (const ChosenSection& section : ChooseSections("folder", entries, dates))
      chosen.emplace_back(section.entry, section.name);
    ASSERT_EQ(chosen, ByComparingAll(entries, dates)) << "round " << round;
    for (const auto& [file, times] : dates.asked) ASSERT_EQ(times, 1) << file;
    chosenInAll += chosen.size();
  }
  EXPECT_GT(chosenInAll, 10'000u) << "the listings hold hardly anything to choose";
}

// 10,000 versions of one section: 10,000 questions, not 100 million.
TEST(ChooseSections, AsksEachVersionOnce) {
  SaidDates dates;
  std::vector<FolderEntry> entries;
  for (int i = 0; i < 10'000; ++i) {
    entries.push_back({"A.one (" + std::to_string(i) + ").one", false, false});
    dates.seconds[entries.back().name] = i % 777;
  }
  const std::vector<ChosenSection> chosen = ChooseSections("folder", entries, dates);
  ASSERT_EQ(chosen.size(), 1u);
  EXPECT_EQ(chosen[0].entry, 776u) << "of equally old ones the first";
  EXPECT_EQ(dates.asked.size(), 10'000u);
  for (const auto& [file, times] : dates.asked) ASSERT_EQ(times, 1) << file;
}

// A notebook is staged folder by folder, under the sections' own names, with their times.
TEST(CopySections, StagesTheNewestVersions) {
  const StoreWorld world;
  SaidDates dates;
  dates.seconds = {{"A.one (x).one", 10}, {"A.one (y).one", 11}};
  world.Version("Work", "A", "x", "old");
  const fs::path newest = world.Version("Work", "A", "y", "new");
  fs::last_write_time(newest, fs::file_time_type::clock::now() - std::chrono::hours(100));
  world.Version("Work/Group/Inner", "B \"q\" $(touch x)", "z", "b");
  world.Put(world.cache / "Work" / "Plain.one", "plain");
  world.Put(world.cache / "Work" / "Open Notebook.onetoc2", "table");
  const CopyReport report = CopySections(world.cache / "Work", world.temporary, dates);
  EXPECT_EQ(report.copied, 2u);
  EXPECT_THAT(report.problems, IsEmpty());
  EXPECT_THAT(StoreWorld::Tree(world.temporary), ElementsAre("A.one", "Group/Inner/B \"q\" $(touch x).one"));
  EXPECT_EQ(*ReadFile(world.temporary / "A.one"), "new");
  EXPECT_EQ(fs::last_write_time(world.temporary / "A.one"), fs::last_write_time(newest));
}

// Links to folders are part of a notebook, but each folder is copied once.
TEST(CopySections, FollowsLinksOnce) {
  const StoreWorld world;
  const SaidDates dates;
  world.Version("Work", "A", "x");
  world.Put(world.folder.path() / "elsewhere" / "B.one (x).one", "b");
  fs::create_directory_symlink(world.folder.path() / "elsewhere", world.cache / "Work" / "linked");
  fs::create_directory_symlink(world.cache, world.cache / "Work" / "up");
  fs::create_directory_symlink("loop", world.cache / "Work" / "loop");
  EXPECT_THAT(CopySections(world.cache / "Work", world.temporary, dates).problems, IsEmpty());
  EXPECT_THAT(StoreWorld::Tree(world.temporary), ElementsAre("A.one", "linked/B.one"));
}

// OneNote may exchange versions under our hands: the others are copied all the same, and what is missing is
// named.
TEST(CopySections, GoesOnWhenFilesVanish) {
  const StoreWorld world;
  SaidDates dates;
  for (const char* name : {"A", "B"}) {
    for (const char* version : {"1", "2"}) {
      world.Version("Work", name, version);
      dates.seconds[std::string(name) + ".one (" + version + ").one"] = version[0];
    }
  }
  dates.whenAsked = [](const fs::path& file) {
    if (file.filename() == "A.one (2).one") fs::remove(file);
  };
  const CopyReport report = CopySections(world.cache / "Work", world.temporary, dates);
  EXPECT_THAT(StoreWorld::Tree(world.temporary), ElementsAre("B.one"));
  ASSERT_EQ(report.problems.size(), 1u);
  EXPECT_EQ(report.problems[0].file.filename(), "A.one (2).one");
  EXPECT_THAT(report.problems[0].reason, HasSubstr("No such file"));
}

// What cannot be read or made is told once, and nothing below it is tried; a copy never replaces anything.
TEST(CopySections, TellsWhatItCouldNotCopy) {
  const StoreWorld world;
  const SaidDates dates;
  world.Version("Work/Group/Inner", "B", "x");
  world.Version("Work", "A", "x", "new");
  world.Put(world.temporary / "Group", "a file in the way");
  world.Put(world.temporary / "A.one", "there before");
  const CopyReport report = CopySections(world.cache / "Work", world.temporary, dates);
  std::vector<std::string> named;
  for (const FileProblem& problem : report.problems) named.push_back(problem.file.filename().string());
  EXPECT_THAT(named, UnorderedElementsAre("Group", "A.one (x).one"));
  EXPECT_EQ(*ReadFile(world.temporary / "A.one"), "there before");
}

/// The superuser can read every folder, so for a scope this program is nobody and owns what is in a folder.
class AsNobody {
 public:
  explicit AsNobody(const fs::path& tree) : m_isRoot(::geteuid() == 0) {
    if (!m_isRoot) return;
    constexpr ::uid_t kNobody = 65534;
    for (const auto& entry : fs::recursive_directory_iterator(tree))
      EXPECT_EQ(::lchown(entry.path().c_str(), kNobody, kNobody), 0);
    EXPECT_EQ(::chown(tree.c_str(), kNobody, kNobody), 0);
    EXPECT_EQ(::seteuid(kNobody), 0);
  }
  ~AsNobody() {
    if (!m_isRoot) return;
    EXPECT_EQ(::seteuid(0), 0);
  }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  bool m_isRoot;
};

TEST(CopySections, NamesFoldersThatCannotBeRead) {
  const StoreWorld world;
  const SaidDates dates;
  world.Version("Work/closed", "B", "x");
  world.Version("Work", "A", "x");
  fs::permissions(world.cache / "Work" / "closed", fs::perms::none);
  const AsNobody nobody(world.folder.path());
  const CopyReport report = CopySections(world.cache / "Work", world.temporary, dates);
  fs::permissions(world.cache / "Work" / "closed", fs::perms::owner_all);
  EXPECT_EQ(report.copied, 1u);
  ASSERT_EQ(report.problems.size(), 1u);
  EXPECT_EQ(report.problems[0].file.filename(), "closed");
}

// Cancel is heard before each section.
TEST(CopySections, EndsWhenTold) {
  const StoreWorld world;
  const SaidDates dates;
  for (const char* name : {"A", "B", "C"}) world.Version("Work", name, "x");
  std::size_t total = 0;
  const CopyReport report = CopySections(world.cache / "Work", world.temporary, dates,
                                         [&](std::size_t copied, std::size_t all, const fs::path&) {
                                           total = std::max(total, all);
                                           return copied < 2;
                                         });
  EXPECT_TRUE(report.isCancelled);
  EXPECT_EQ(report.copied, 2u);
  EXPECT_EQ(total, 3u);
}

}  // namespace
}  // namespace quill::files
