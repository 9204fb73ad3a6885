#include <gmock/gmock.h>

#include <iostream>
#include <map>
#include <random>

#include "files/backup/daily_backup.h"
#include "files/backup_world.h"

namespace quill::files {
namespace {

using Random = std::mt19937;

bool Happens(Random& random, int percent) {
  return std::uniform_int_distribution(1, 100)(random) <= percent;
}

/// The files below a folder and what is in them.
std::map<std::string, std::string> Snapshot(const fs::path& folder) {
  std::map<std::string, std::string> files;
  std::error_code error;
  for (fs::recursive_directory_iterator file(folder, error), end; !error && file != end; ++file) {
    if (file->is_regular_file())
      files[file->path().lexically_relative(folder).string()] = ReadFile(file->path()).ValueOr("?");
  }
  return files;
}

/// A disk on which rm and cp work file by file, several at a time, so that the program or they may end at any
/// point.
class SlowPrograms final : public platform::BackgroundProcesses {
 public:
  SlowPrograms(Random& random, int failPercent) : m_random(random), m_failPercent(failPercent) {}

  void Start(platform::ProcessRequest request, Done done) override {
    const fs::path target = request.command.back();
    for (const Work& other : m_works) EXPECT_NE(other.target, target) << "two programs in one folder";
    Work work{target, {}, std::move(done), Happens(m_random, m_failPercent)};
    const bool isCopy = fs::path(request.command[0]).filename() == "cp";
    work.steps = isCopy ? CopySteps(request.command[2], target / "OneNote") : RemoveSteps(target);
    if (isCopy && work.fails) work.steps.resize(work.steps.size() / 2);
    m_works.push_back(std::move(work));
  }

  /// One step of one of them; false when all have ended.
  bool Step() {
    if (m_works.empty()) return false;
    const std::size_t which = m_random() % m_works.size();
    if (!m_works[which].steps.empty()) {
      m_works[which].steps.front()();
      m_works[which].steps.pop_front();
      return true;
    }
    Work ended = std::move(m_works[which]);
    m_works.erase(m_works.begin() + static_cast<std::ptrdiff_t>(which));
    platform::ProcessResult result;
    result.end = platform::ProcessEnd::Exited;
    result.status = ended.fails ? 1 : 0;
    result.errors = ended.fails ? "No space left on device" : "";
    ended.done(result);
    return true;
  }

 private:
  struct Work {
    fs::path target;
    std::deque<std::function<void()>> steps;
    Done done;
    bool fails;
  };

  static std::deque<std::function<void()>> CopySteps(const fs::path& from, const fs::path& to) {
    std::deque<std::function<void()>> steps;
    for (const auto& [name, bytes] : Snapshot(from)) {
      steps.emplace_back([file = to / name, bytes = bytes] {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
      });
    }
    return steps;
  }
  static std::deque<std::function<void()>> RemoveSteps(const fs::path& folder) {
    std::deque<std::function<void()>> steps;
    for (const auto& [name, bytes] : Snapshot(folder))
      steps.emplace_back([file = folder / name] { fs::remove(file); });
    steps.emplace_back([folder] { fs::remove_all(folder); });
    return steps;
  }

  Random& m_random;
  int m_failPercent;
  std::vector<Work> m_works;
};

/// What may go wrong, in percent of the days or steps.
struct Luck {
  int crash = 0;    ///< of the steps: the program ends there
  int fail = 0;     ///< of the programs: the disk is full
  int dayOff = 0;   ///< the computer is not used
  int busyDay = 0;  ///< OneNote is not closed
  int forgets = 0;  ///< the settings file cannot be written
};

/// A month of a user whose notebooks change every day.
class Month : public BackupWorld {
 public:
  Month(Luck luck, unsigned seed) : m_luck(luck), m_random(seed) {}

  /// One character for each day: "x" when there was a backup to restore in the evening, "." when there was
  /// none.
  std::string Live() {
    std::string days;
    AddBackup("notes");
    for (int i = 0; i < 31; ++i) {
      m_today = std::chrono::sys_days(std::chrono::year(2024) / 2 / 15) + std::chrono::days(i);
      WriteNotebooks(i);
      if (!Happens(m_random, m_luck.dayOff)) LiveADay();
      days += IsSafe() ? 'x' : '.';
    }
    EXPECT_EQ(Outside(), "kept");
    return days;
  }

 private:
  void WriteNotebooks(int day) {
    const std::string text = "day " + std::to_string(day);
    for (const char* name : {"15.0/c/Work/A.one", "15.0/c/Work/B.one", "15.0/c/Home/A.one"})
      WriteData(name, text);
    WriteData("15.0/c/Home/new " + std::to_string(day % 3) + ".one", text);
  }

  /// The program is started again after each crash, until it has got through the day.
  void LiveADay() {
    m_isBusy = Happens(m_random, m_luck.busyDay);
    while (!RunProgram()) CheckBackups();
    CheckBackups();
  }

  /// A run of the program with a tick between all steps; false when it ended before its work did.
  bool RunProgram() {
    SlowPrograms programs(m_random, m_luck.fail);
    DailyBackup backup({places, programs, [this](const BackupOutcome& end) {
                          if (end.problem.empty()) CheckOnlyTwoDays();
                        }});
    StoredDate last = m_saved;
    do {
      if (Happens(m_random, m_luck.crash)) return false;
      if (!m_isBusy && backup.IsDue(last, m_today)) {
        backup.Begin(m_today, [&] {
          last = m_today;
          m_data[StoredDateText(m_today)] = Snapshot(places.dataFolder);
          if (!Happens(m_random, m_luck.forgets)) m_saved = last;
        });
      }
    } while (programs.Step());
    return true;
  }

  /// What is offered as whole is what the notebooks were on that day, file by file.
  void CheckBackups() {
    const auto backups = ListBackups(places);
    ASSERT_TRUE(backups.ok());
    for (const Backup& one : *backups) {
      if (!one.isWhole) continue;
      EXPECT_EQ(Snapshot(places.backupFolder / one.name / "OneNote"), m_data[one.name]) << one.name;
    }
  }

  void CheckOnlyTwoDays() {
    const std::set<std::string> two{StoredDateText(m_today),
                                    StoredDateText(std::chrono::sys_days(m_today) - std::chrono::days(1))};
    for (const auto& entry : fs::directory_iterator(places.backupFolder)) {
      EXPECT_TRUE(!entry.is_directory() || two.contains(entry.path().filename())) << entry.path();
    }
  }

  bool IsSafe() const {
    const auto backups = ListBackups(places);
    return backups.ok() && std::ranges::any_of(*backups, &Backup::isWhole);
  }

  Luck m_luck;
  Random m_random;
  Day m_today{};
  StoredDate m_saved;
  bool m_isBusy = false;
  std::map<std::string, std::map<std::string, std::string>>
      m_data;  ///< the notebooks as they were copied last
};

void Report(const std::string& name, const std::string& days) {
  std::cout << "restorable each evening, " << name << ": " << days << "\n";
  testing::Test::RecordProperty("restorable " + name, days);
}

// Without trouble there is something to restore from the first evening on; days off do not take the last one
// away.
TEST(BackupMonth, IsSafeEveryEvening) {
  const std::string quiet = Month({}, 1).Live();
  Report("quiet", quiet);
  EXPECT_EQ(quiet, std::string(31, 'x'));
  const std::string holidays = Month({.dayOff = 40, .busyDay = 20}, 3).Live();
  Report("with days off", holidays);
  EXPECT_EQ(holidays.find('.', holidays.find('x')), std::string::npos);
}

// Whatever ends in between and however often: nothing incomplete is offered, nothing outside is touched, and
// after a day that went through there are two days at most.
TEST(BackupMonth, NeverOffersAnIncompleteBackup) {
  int safeEvenings = 0;
  for (unsigned seed = 1; seed <= 8; ++seed) {
    Month month({.crash = 3, .fail = 8, .dayOff = 15, .busyDay = 10, .forgets = 20}, seed);
    const std::string days = month.Live();
    if (seed <= 3) Report("in trouble, " + std::to_string(seed), days);
    safeEvenings += static_cast<int>(std::ranges::count(days, 'x'));
    if (testing::Test::HasFailure()) FAIL() << "seed " << seed;
  }
  EXPECT_GT(safeEvenings, 8 * 31 / 3) << "the rules must also let backups come about";
}

}  // namespace
}  // namespace quill::files
