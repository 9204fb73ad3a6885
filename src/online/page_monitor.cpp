#include "online/page_monitor.h"

#include <charconv>
#include <limits>

#include "content/log_file.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "online/page_history.h"
#include "online/service_addresses.h"
#include "online/token_requests.h"

namespace quill::online {
namespace {

using ChainEnd = MOnlineOneNoteMain_Asyn::ChainEnd;

constexpr std::int64_t kSecondsBetweenCounts = 1800;
constexpr std::chrono::seconds kDeadline{30};

/// The number at the beginning of a text, after white space; 0 without one, the nearest when it is too large.
std::int64_t IntegerValue(std::string_view text) {
  text = content::TrimWhite(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  using Limits = std::numeric_limits<std::int64_t>;
  return text.starts_with('-') ? Limits::min() : Limits::max();
}

}  // namespace

PageMonitor::PageMonitor(Parts parts)
    : m_parts(std::move(parts)),
      m_worker(m_parts.session, m_parts.http, m_parts.clock, [this] { GetPageCount(); }) {}

std::int64_t PageMonitor::Now() const {
  return std::chrono::floor<std::chrono::seconds>(m_parts.clock.Now()).time_since_epoch().count();
}

void PageMonitor::TimerRun() {
  ShowLostPageAlert();
  const Account& account = m_parts.session.account;
  SessionMemory& memory = m_parts.session.memory;
  if (totals().isWanted) m_worker.ForgetFailure();
  if (!m_worker.MayStart(m_parts.clock.Now())) return;
  totals().isWanted = false;
  if (account.OnlineOneNoteAccessToken.empty() && !memory.PendingAuthCode.empty()) {
    memory.LastCountCheckTime = 0;
    memory.pages = {};  // the code may be another user's, whose pages are no fewer or more than these
    m_worker.RetrieveTokensByCode();
  } else if (account.OnlineOneNoteUserId.empty()) {
    memory.LastCountCheckTime = 0;
    m_worker.RetrieveUserIdByToken();
  } else {
    GetPageCount();
  }
}

void PageMonitor::GetPageCount() {
  const Account& account = m_parts.session.account;
  SessionMemory& memory = m_parts.session.memory;
  if (!m_parts.rules().isOn) return m_worker.EndChain(ChainEnd::Done);
  // A clock that was set back must not stop the counting until it is the old time again.
  const std::int64_t passed = Now() - memory.LastCountCheckTime;
  if (passed >= 0 && passed < kSecondsBetweenCounts) return m_worker.EndChain(ChainEnd::Done);
  memory.LastCountCheckTime = Now();
  if (account.OnlineOneNoteAccessToken.empty()) return m_worker.EndChain(ChainEnd::Done);
  totals().askedAt = memory.LastCountCheckTime;
  const std::string base = GraphBaseUrl(m_parts.session.endpoints, account.OnlineOneNoteUserId);
  m_worker.Ask(BearerGet(PageCountUrl(base), account.OnlineOneNoteAccessToken, kDeadline),
               [this](const auto& reply) { TakePageCount(reply); });
}

void PageMonitor::TakePageCount(const std::optional<ServiceReply>& reply) {
  PageTotals& pages = totals();
  if (!reply) {
    pages.failedAt = Now();
    return m_worker.RefreshTokens();
  }
  const std::string& user = m_parts.session.account.OnlineOneNoteUserId;
  if (pages.userId != user) pages.previous = 0;  // another user's pages are not to be compared with
  pages.userId = user;
  pages.current = IntegerValue(content::TextBetween(reply->body, "\"@odata.count\":", ","));
  pages.countedAt = Now();
  m_worker.EndChain(ChainEnd::Done);
}

void PageMonitor::ShowLostPageAlert() {
  PageTotals& pages = totals();
  if (pages.current == 0 && pages.previous == 0) return;
  if (IsPageDrop(pages.previous, pages.current, m_parts.rules().tolerated))
    m_parts.warn({pages.previous, pages.current});
  SavePagesNumToHistory();
  pages.previous = pages.current;
}

void PageMonitor::SavePagesNumToHistory() {
  const PageTotals& pages = totals();
  if (pages.current == pages.previous || pages.current == 0) return;
  const std::string line = PageHistoryLine(m_parts.timeText(m_parts.clock.Now()), pages.current);
  const Status<> written = content::AppendLogLine(m_parts.historyFile, line);
  if (!written.ok()) m_parts.onProblem(written.error());
}

void PageMonitor::WantPageCount(SessionMemory& memory) {
  memory.LastCountCheckTime = 0;
  memory.pages.isWanted = true;
}

}  // namespace quill::online
