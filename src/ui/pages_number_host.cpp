#include "ui/pages_number_host.h"

#include <QDateTime>

#include "base/atomic_file.h"
#include "content/unicode_text.h"
#include "online/page_monitor.h"
#include "ui/kit/background.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/window_place.h"
#include "ui/windows/monitor/page_words.h"
#include "ui/windows/monitor/win_a_day_pages.h"

namespace quill::ui {
namespace {

constexpr int kDays = 14;

using History = std::vector<online::PageHistoryEntry>;

History ReadHistory(const std::filesystem::path& file, std::int64_t tolerated,
                    std::chrono::local_seconds now) {
  constexpr std::uintmax_t kLargest = 4u << 20;  // the program itself keeps it below 50 kB
  return online::ParsePageHistory(ReadFile(file, kLargest).ValueOr(""), tolerated, now);
}

std::chrono::local_seconds NowOnTheClock() {
  return ClockSeconds(QDateTime::currentDateTime());
}

std::optional<std::filesystem::file_time_type> ChangedAt(const std::filesystem::path& file) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file, error);
  return error ? std::nullopt : std::optional(time);
}

}  // namespace

QWidget* PagesNumberHost::Open(const shell::PagesNumberRequest& request) {
  if (m_window == nullptr) {
    m_isAsking = false;
    m_parts.application.Post([this](shell::Globals&) { m_seen.reset(); });
    m_window =
        new MWinPagesNumber(m_parts.strings, {[this] { AskFacts(); },
                                              [this] {
                                                m_parts.application.Post([](shell::Globals& globals) {
                                                  online::PageMonitor::WantPageCount(globals.onlineMemory);
                                                });
                                              },
                                              [this] { OpenHistory(); }});
  }
  if (request.lost) m_window->Warn(*request.lost);
  BringToFront(*m_window);
  return m_window;
}

void PagesNumberHost::AskFacts() {
  if (m_isAsking) return;
  m_isAsking = true;
  m_parts.application.Post([this](shell::Globals& globals) {
    PagesFacts facts;
    facts.pages = globals.onlineMemory.pages;
    facts.isWatched = globals.settings.MonitorPageTotal;
    facts.isSignedIn = !globals.settings.OnlineOneNoteAccessToken.empty() ||
                       !globals.settings.OnlineOneNoteRefreshToken.empty();
    facts.now = NowOnTheClock();
    const Seen seen{ChangedAt(m_parts.historyFile), globals.settings.AlertOnDelPageNum};
    facts.hasHistoryFile = seen.changedAt.has_value();
    if (m_seen != seen) {
      m_seen = seen;
      facts.history =
          std::make_shared<const History>(ReadHistory(m_parts.historyFile, seen.tolerated, facts.now));
    }
    OnGui([this, facts = std::move(facts)] {
      m_isAsking = false;
      if (m_window != nullptr) m_window->Update(facts);
    });
  });
}

void PagesNumberHost::OpenHistory() {
  // Off this thread: the system may take its time to find the program.
  m_parts.application.Post([this](shell::Globals&) {
    const Status<> opened = m_parts.workspace.OpenFile(m_parts.historyFile);
    if (opened.ok()) return;
    OnGui([this, problem = m_parts.strings.Format("errOpen", {opened.error()})] { m_parts.tell(problem); });
  });
}

void PagesNumberHost::OpenDays() {
  using Days = std::vector<online::DayPages>;
  const std::chrono::local_seconds now = NowOnTheClock();
  const auto today = std::chrono::floor<std::chrono::days>(now);
  RunInBackground<Days>(
      QCoreApplication::instance(),
      [file = m_parts.historyFile, now, today] {
        return online::PagesByDay(ReadHistory(file, 0, now), today, kDays);
      },
      [this, today](const Days& days) {
        BringToFront(*new MWinADayPages(m_parts.strings, days, today, [](std::optional<std::monostate>) {}));
      });
}

}  // namespace quill::ui
