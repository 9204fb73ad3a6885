#include "shell/page_watch.h"

#include "shell/online_session.h"
#include "shell/window_requests.h"
#include "tools/history_time.h"

namespace quill::shell {

PageWatch::PageWatch(Parts parts)
    : m_parts(std::move(parts)),
      m_monitor(
          {OwnSession(m_parts.globals), m_parts.http, m_parts.clock,
           m_parts.globals.folders.PagesNumHistoryFile,
           [](std::chrono::system_clock::time_point moment) { return tools::HistoryTime(moment); },
           [&settings = m_parts.globals.settings] {
             return online::PageRules{settings.MonitorPageTotal, settings.AlertOnDelPageNum};
           },
           [this](const online::LostPages& lost) { Warn(lost); },
           [&log = m_parts.log](const std::string& problem) { log.Write("page history: " + problem); }}) {}

void PageWatch::Tick() {
  const bool isDue = std::exchange(m_isDue, !m_isDue);
  if (!isDue || m_isAsking) return;
  m_isAsking = true;
  m_parts.askForScreen([this](bool isFree) {
    m_isAsking = false;
    if (isFree) m_monitor.TimerRun();
  });
}

void PageWatch::Warn(const online::LostPages& lost) {
  m_parts.ui.ShowWindow(PagesNumberRequest{lost});
  m_parts.ui.ShowWindow(NotifyRequest{
      std::string(m_parts.strings.Text("titlePagesLost")),
      m_parts.strings.Format("msgPagesLost", {std::to_string(lost.before), std::to_string(lost.now)})});
}

}  // namespace quill::shell
