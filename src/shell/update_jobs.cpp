#include "shell/update_jobs.h"

#include <fmt/format.h>

#include "base/version.h"
#include "files/update/update_check.h"
#include "shell/window_requests.h"

namespace quill::shell {

using Moment = Housekeeping::Moment;

UpdateJobs::UpdateJobs(Parts parts)
    : m_parts(parts),
      m_lastAttempt(parts.globals.settings.OneAppUpdate_Last),
      m_lastComparison(LocalDay(parts.globals.oneDayBack)) {}

void UpdateJobs::AddTo(Housekeeping& housekeeping) {
  housekeeping.AddJob(
      HousekeepingSlot::UpdateDownload, [this](Globals&, Moment now) { DownloadUpdateInfo(LocalDay(now)); },
      [this](const Globals& globals, Moment now) {
        return m_lastAttempt != LocalDay(now) && files::IsUpdateAddress(globals.endpoints.update);
      });
  housekeeping.AddJob(
      HousekeepingSlot::UpdateNotice, [this](Globals&, Moment now) { CheckUpdateVersion(LocalDay(now)); },
      [this](const Globals& globals, Moment now) {
        std::error_code error;
        return m_lastComparison != LocalDay(now) &&
               std::filesystem::exists(globals.folders.UpdateInfoFile, error);
      });
}

void UpdateJobs::DownloadUpdateInfo(Day today) {
  m_lastAttempt = today;
  m_parts.http.Send(files::UpdateInfoRequest(m_parts.globals.endpoints.update), [this, today](auto answer) {
    const Status<> taken = files::UpdateInfoDownloaded(answer, m_parts.globals.folders.UpdateInfoFile);
    if (!taken.ok()) return m_parts.log.Write(taken.error());
    m_parts.globals.settings.OneAppUpdate_Last = today;
    Save("OneAppUpdate_Last");
  });
}

void UpdateJobs::CheckUpdateVersion(Day today) {
  m_lastComparison = today;
  const std::string version = files::ReadUpdateInfo(m_parts.globals.folders.UpdateInfoFile);
  const std::string& announced = m_parts.globals.settings.CheckedUpdateVersion_Last;
  if (files::IsWorthAnnouncing(version, announced, kVersion)) Announce(version);
}

void UpdateJobs::Announce(const std::string& version) {
  m_parts.globals.settings.CheckedUpdateVersion_Last = version;
  Save("CheckedUpdateVersion_Last");
  // Nobody waits for it: the user is away, and no command is to be refused until they are back.
  m_parts.ui.ShowWindow(
      NoticeRequest{fmt::format("Found Quill Menu for Mac OneNote new version {}", version)});
  const std::string& page = m_parts.globals.endpoints.product;
  if (!files::IsUpdateAddress(page)) return;
  const Status<> opened = m_parts.workspace.OpenUrl(page);
  if (!opened.ok()) m_parts.log.Write(opened.error());
}

void UpdateJobs::Save(std::string_view key) {
  const Status<> saved = SaveSettingRows(m_parts.globals, {key});
  if (!saved.ok()) m_parts.log.Write(saved.error());
}

}  // namespace quill::shell
