#pragma once
#include "platform/background_http.h"
#include "platform/user_interface.h"
#include "platform/workspace.h"
#include "shell/globals.h"
#include "shell/housekeeping.h"
#include "shell/log.h"

namespace quill::shell {

/// Looks for a newer version of the program once a day: the update information is downloaded into the support
/// folder, and later its version compared with the running one. Does nothing while the program knows no
/// address to ask. Command thread.
class UpdateJobs {
 public:
  struct Parts {
    Globals& globals;
    platform::BackgroundHttp& http;
    platform::UserInterface& ui;
    platform::Workspace& workspace;
    Log& log;
  };

  explicit UpdateJobs(Parts parts);

  void AddTo(Housekeeping& housekeeping);

 private:
  using Day = std::chrono::year_month_day;
  void DownloadUpdateInfo(Day today);
  void CheckUpdateVersion(Day today);
  void Announce(const std::string& version);
  void Save(std::string_view key);

  Parts m_parts;
  StoredDate m_lastAttempt;  ///< of a download, successful or not
  StoredDate m_lastComparison;
};

}  // namespace quill::shell
