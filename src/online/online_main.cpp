#include "online/online_main.h"

#include <fmt/format.h>

#include <vector>

#include "content/unicode_text.h"
#include "online/asking.h"
#include "online/online_messages.h"
#include "online/service_addresses.h"
#include "online/token_operations.h"
#include "online/token_requests.h"

namespace quill::online {
namespace {

bool IsSame(std::string_view a, std::string_view b) {
  return content::ToLower(a) == content::ToLower(b);
}

}  // namespace

MOnlineOneNoteMain::MOnlineOneNoteMain(OnlineHost& host, Session session, platform::Http& http,
                                       const platform::Clock& clock)
    : m_host(host),
      m_session(std::move(session)),
      m_clock(clock),
      m_client(http, [this] { return m_progress != nullptr && m_progress->Cancelled(); }) {}

/// No alert in front of a progress that is over.
void MOnlineOneNoteMain::Tell(std::string_view text) {
  m_progress.reset();
  m_host.Say(text);
}

bool MOnlineOneNoteMain::Say(std::string_view key) {
  Tell(m_host.Text(key));
  return false;
}

/// No window of ours may stand in the way of the keys.
void MOnlineOneNoteMain::Insert(std::string_view fragment) {
  m_progress.reset();
  if (!fragment.empty()) m_host.InsertHtml(fragment);
}

std::string MOnlineOneNoteMain::GraphBase() const {
  return GraphBaseUrl(m_session.endpoints, m_session.account.OnlineOneNoteUserId);
}

void MOnlineOneNoteMain::RetrieveTokensByCode() {
  online::RetrieveTokensByCode(m_session, m_client);
}

void MOnlineOneNoteMain::RefreshTokens() {
  online::RefreshTokens(m_session, m_client);
}

void MOnlineOneNoteMain::RetrieveUserIdByToken() {
  online::RetrieveUserIdByToken(m_session, m_client);
}

void MOnlineOneNoteMain::RunInsert(std::int64_t command) {
  if (command == 0 || command == 1) return ExportTags(command);
  RunOnlineCommand(command, 0, 0, "");
}

void MOnlineOneNoteMain::ExportTags(std::int64_t command) {
  const auto file = m_host.AskExportPath(m_host.Text("titleExportToFile"), command == 0 ? "csv" : "xml");
  if (file) RunOnlineCommand(command, 0, 0, file->string());
}

void MOnlineOneNoteMain::RunOnlineCommand(std::int64_t command, std::int64_t, std::int64_t,
                                          std::string_view str3) {
  const Command* row = FindCommand(command);
  if (row == nullptr) return;
  RunOnPage(row->needsHtml, [this, row, str3](Page& page) { return (this->*row->run)(page, str3); });
}

void MOnlineOneNoteMain::RunOnPage(bool needsHtml, const Operation& operation) {
  Page page;
  if (ReadLink(page) && MakeSureOfAccount(page) && FindPage(page)) RunAndRetry(needsHtml, operation, page);
}

/// A remembered place may be out of date: the page is then searched for and the operation tried once more.
void MOnlineOneNoteMain::RunAndRetry(bool needsHtml, const Operation& operation, Page& page) {
  Outcome outcome = RunOnce(needsHtml, operation, page);
  if (outcome && outcome->mayBeStale && page.isRemembered && !m_client.IsCancelled()) {
    m_host.Explain("page: not where it was");
    m_session.memory.resolvedPages.Forget(m_session.account.OnlineOneNoteUserId, page.link.pageId);
    if (!SearchPage(page)) return;
    outcome = RunOnce(needsHtml, operation, page);
  }
  if (outcome && !outcome->text.empty()) Tell(outcome->text);
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::RunOnce(bool needsHtml, const Operation& operation,
                                                        Page& page) {
  const Asking asking(m_progress, m_host);
  if (needsHtml) {
    if (Outcome outcome = FetchHtml(page)) return outcome;
  }
  return operation(page);
}

/// Nothing is told when it was the user who ended the request.
MOnlineOneNoteMain::Trouble MOnlineOneNoteMain::TroubleOf(const std::optional<ServiceReply>& reply,
                                                          std::string_view key) {
  if (m_client.IsCancelled()) return {};
  const std::optional<ServiceError> error = reply ? ErrorOf(*reply) : std::nullopt;
  if (error) return {ServiceErrorText(m_host, *error), !error->IsThrottled()};
  return {m_host.Text(key), true};
}

bool MOnlineOneNoteMain::ReadLink(Page& page) {
  const std::string text = m_host.PageLink();
  if (!IsClientLink(text)) return Say("errGetPageLink");
  page.link = ReadClientLink(text, m_session.endpoints.documentHost);
  if (page.link.sectionName.empty() || page.link.pageTitle.empty()) return Say("errPageTitleEmpty");
  if (page.link.pageId.empty()) return Say("errGetPagesIDError");
  return true;
}

void MOnlineOneNoteMain::ExchangePendingCode() {
  const Asking asking(m_progress, m_host);
  RetrieveTokensByCode();
  RetrieveUserIdByToken();
}

/// The command ends in any case: the user runs it again, now signed in.
bool MOnlineOneNoteMain::SignInForCommand() {
  if (SignIn(SignInMode::Login)) Say("msgSignedInRunAgain");
  return false;
}

bool MOnlineOneNoteMain::MakeSureOfAccount(const Page& page) {
  const Account& account = m_session.account;
  const std::string& pending = m_session.memory.PendingAuthCode;
  if (account.OnlineOneNoteAccessToken.empty() && pending.empty()) return SignInForCommand();
  if (!IsSame(account.ClientUrlAccountId, page.link.accountId)) {
    return m_host.Ask(m_host.Text("askAccountsDifference")) && SignInForCommand();
  }
  if (account.OnlineOneNoteAccessToken.empty()) ExchangePendingCode();
  return true;
}

bool MOnlineOneNoteMain::FindPage(Page& page) {
  const auto known =
      m_session.memory.resolvedPages.Find(m_session.account.OnlineOneNoteUserId, page.link.pageId);
  if (!known) return SearchPage(page);
  m_host.Explain("page: known from an earlier command");
  page.place = *known;
  page.isRemembered = true;
  return true;
}

bool MOnlineOneNoteMain::SearchPage(Page& page) {
  const Asking asking(m_progress, m_host);
  page.isRemembered = false;
  PageSearch search(m_session, m_client);
  const auto batch = search.SectionPageFilter(page.link.sectionName, page.link.pageId);
  const SearchDiagnostics& seen = search.Diagnostics();
  m_host.Explain(fmt::format("page: searched {} sections, {} pages, {} requests", seen.m_LogSections,
                             seen.m_LogPages, m_client.RequestCount()));
  if (m_client.IsCancelled()) return false;
  if (!batch) {
    Tell(SearchFailureText(m_host, seen, !m_session.account.OnlineOneNoteAccessToken.empty()));
    return false;
  }
  const Account& account = m_session.account;
  if (!FoundAccountInJason(*batch, account.ClientUrlAccountId, m_session.endpoints.documentHost)) {
    return Say("errAccountDiff");
  }
  const std::optional<OnlinePlace> place = GetOnlineId(*batch, page.link.pageId);
  if (!place || place->pageId.empty()) return Say("errGetContentError");
  page.place = *place;
  m_session.memory.resolvedPages.Remember(account.OnlineOneNoteUserId, page.link.pageId, *place);
  return true;
}

std::optional<ServiceReply> MOnlineOneNoteMain::FetchContent(std::string_view pageOnlineId) {
  const std::string& token = m_session.account.OnlineOneNoteAccessToken;
  if (token.empty() || pageOnlineId.empty()) return std::nullopt;
  const std::optional<std::string> url = PageContentUrl(GraphBase(), pageOnlineId);
  if (!url) return std::nullopt;
  std::optional<ServiceReply> reply = m_client.Send(BearerGet(*url, token, kServiceDeadline));
  if (reply) m_host.LogContent("page", reply->body);
  return reply;
}

std::string MOnlineOneNoteMain::GetPageContent(std::string_view pageOnlineId) {
  std::optional<ServiceReply> reply = FetchContent(pageOnlineId);
  return reply ? std::move(reply->body) : std::string();
}

MOnlineOneNoteMain::Outcome MOnlineOneNoteMain::FetchHtml(Page& page) {
  std::optional<ServiceReply> reply = FetchContent(page.place.pageId);
  if (!reply || reply->status >= 400 || reply->body.empty()) return TroubleOf(reply, "errGetContentFailure");
  page.html = std::move(reply->body);
  return std::nullopt;
}

std::optional<ServiceReply> MOnlineOneNoteMain::UpdatePageContent(std::string_view pageOnlineId,
                                                                  std::string_view json) {
  const std::string& token = m_session.account.OnlineOneNoteAccessToken;
  const std::optional<std::string> url = PageChangeUrl(GraphBase(), pageOnlineId);
  if (token.empty() || json.empty() || !url) return std::nullopt;
  const Asking asking(m_progress, m_host);
  platform::HttpRequest request = BearerGet(*url, token, kServiceDeadline);
  request.method = platform::HttpMethod::Patch;
  request.headers.push_back({"Content-Type", "application/json"});
  request.headers.push_back({"Content-Length", std::to_string(json.size())});
  request.body = json;
  std::optional<ServiceReply> reply = m_client.Send(std::move(request));
  if (!reply && !m_client.IsCancelled()) RefreshTokens();
  return reply;
}

bool MOnlineOneNoteMain::SignIn(SignInMode mode) {
  if (!HasClientId(m_session.endpoints)) return Say("errNoClientId");
  if (mode == SignInMode::LogoutThenLogin) {
    if (const Status<> saved = BeginLogout(m_session); !saved.ok()) {
      Tell(m_host.Text("errSaveSettings", {saved.error()}));
    }
  }
  const Account before = m_session.account;
  BeginLogin(m_session);
  const std::optional<SignInResult> result = m_host.ShowSignIn(mode);
  if (!result) {
    m_session.account = before;
    return false;
  }
  std::vector<SignInProblem> problems;
  const Asking asking(m_progress, m_host);
  const Status<> saved = FinishSignIn(m_session, m_client, *result, m_clock.Now(),
                                      [&problems](SignInProblem problem) { problems.push_back(problem); });
  if (m_client.IsCancelled()) problems.clear();
  for (const SignInProblem problem : problems) Tell(SignInProblemText(problem));
  if (!saved.ok()) Tell(m_host.Text("errSaveSettings", {saved.error()}));
  return !m_session.account.OnlineOneNoteAccessToken.empty();
}

}  // namespace quill::online
