#include "shell/housekeeping.h"

#include <gtest/gtest.h>

#include "platform/recording/recording.h"

namespace quill::shell {
namespace {

/// A housekeeping with work in every slot that writes down its turn.
struct Keeper {
  Globals globals;
  platform::recording::Recording desktop;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
  Housekeeping housekeeping{globals, desktop, clock};
  std::string done;

  Keeper() {
    Add(HousekeepingSlot::UpdateNotice, "notice ");
    Add(HousekeepingSlot::Backup, "backup ");
    Add(HousekeepingSlot::UpdateDownload, "download ");
  }
  void Add(HousekeepingSlot slot, const char* name) {
    housekeeping.AddJob(slot, [this, name](Globals&, auto) {
      done += name;
      housekeeping.Tick();
    });
  }
  std::string TickAfter(std::int64_t idleSeconds) {
    desktop.SetIdleSeconds(idleSeconds);
    done.clear();
    housekeeping.Tick();
    return done;
  }
};

// A backup that begins under the user's hands slows typing down; each job also ticks from within, as a
// window that it opens does.
TEST(Housekeeping, WorksInOrderOnlyWhileTheUserIsAway) {
  Keeper keeper;
  const std::pair<std::int64_t, const char*> cases[] = {{-1, ""},
                                                        {9, ""},
                                                        {10, "backup "},
                                                        {19, "backup "},
                                                        {20, "backup download "},
                                                        {29, "backup download "},
                                                        {30, "backup download notice "}};
  for (const auto& [idle, expected] : cases) EXPECT_EQ(keeper.TickAfter(idle), expected) << idle;
  keeper.globals.settings.OneAppBackup_Enable = false;
  EXPECT_EQ(keeper.TickAfter(30), "download notice ");
}

}  // namespace
}  // namespace quill::shell
