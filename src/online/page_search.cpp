#include "online/page_search.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "content/find_text.h"
#include "content/text_between.h"
#include "online/account_id.h"
#include "online/client_link.h"
#include "online/service_addresses.h"
#include "online/token_operations.h"
#include "online/token_requests.h"
#include "online/wildcard_match.h"

namespace quill::online {
namespace {

constexpr int kMostTries = 3;
constexpr int kMostBatches = 10;
constexpr int kBatchSize = 100;
constexpr int kMostTitleRounds = 5;

std::string ClientLinkOf(const nlohmann::json& page) {
  return TextAt(page, {"links", "oneNoteClientUrl", "href"});
}

bool IsPage(const nlohmann::json& page, std::string_view pageClientId) {
  return MatchesWildcards(pageClientId, PageIdOfLink(ClientLinkOf(page)));
}

/// The longest piece between blanks, the first of equal ones.
std::string_view LongestWord(std::string_view title) {
  std::string_view longest;
  while (!title.empty()) {
    const std::size_t blank = std::min(title.find(' '), title.size());
    if (blank > longest.size()) longest = title.substr(0, blank);
    title.remove_prefix(std::min(blank + 1, title.size()));
  }
  return longest;
}

bool DemandsCredentials(const ServiceClient& client, const std::optional<ServiceReply>& reply) {
  if (!reply) return !client.LastFailure() && !client.IsCancelled();
  return reply->body.find("\"code\": \"40001\"") != std::string::npos;
}

}  // namespace

void PageSearch::NoteError(const ServiceReply& reply) {
  m_diagnostics.m_LogErrorMessage = content::TextBetween(reply.body, "\"message\": \"", "\"");
  if (auto error = ErrorOf(reply)) m_diagnostics.error = std::move(error);
}

/// More requests would only make it last longer.
bool PageSearch::IsThrottled() const {
  return m_diagnostics.error && m_diagnostics.error->IsThrottled();
}

std::optional<std::string> PageSearch::SectionPageFilter(std::string_view sectionName,
                                                         std::string_view pageClientId) {
  m_diagnostics = {};
  const Account& account = m_session.account;
  if (account.OnlineOneNoteAccessToken.empty() || account.OnlineOneNoteUserId.empty()) {
    m_diagnostics.m_ErrorCode = 1;
    return std::nullopt;
  }
  // Made once: a try after a refresh still carries the old token, and the next command the new one.
  const platform::HttpRequest request =
      BearerGet(SectionsNamedUrl(GraphBaseUrl(m_session.endpoints, account.OnlineOneNoteUserId), sectionName),
                account.OnlineOneNoteAccessToken, kServiceDeadline);
  for (int tries = 0; tries < kMostTries && !m_client.IsCancelled(); ++tries) {
    const std::optional<ServiceReply> sections = m_client.Send(request);
    if (sections) return SectionPageLoopSections(sections, pageClientId);
    m_diagnostics.failure = m_client.LastFailure();
    m_diagnostics.m_LogTrys = tries + 1;
    m_diagnostics.m_ErrorCode = 3;
    RefreshTokens(m_session, m_client);
  }
  m_diagnostics.m_ErrorCode = 2;
  return std::nullopt;
}

std::optional<std::string> PageSearch::SectionPageLoopSections(const std::optional<ServiceReply>& sections,
                                                               std::string_view pageClientId) {
  if (!sections || sections->body.empty()) {
    m_diagnostics.m_ErrorCode = 10;
    if (sections) NoteError(*sections);
    return std::nullopt;
  }
  const std::optional<nlohmann::json> value = ValueOf(sections->body);
  if (!value) {
    m_diagnostics.m_ErrorCode = 20;
    NoteError(*sections);
    return std::nullopt;
  }
  m_diagnostics.m_LogSections = static_cast<std::int64_t>(value->size());
  if (value->empty()) m_diagnostics.m_ErrorCode = 30;
  for (const nlohmann::json& section : *value) {
    if (m_client.IsCancelled() || IsThrottled()) break;
    if (auto batch = SectionPageGetSectionAllPages(TextAt(section, {"id"}), pageClientId)) return batch;
  }
  return std::nullopt;
}

std::optional<std::string> PageSearch::SectionPageGetSectionAllPages(std::string_view sectionId,
                                                                     std::string_view pageClientId) {
  const Account& account = m_session.account;
  if (account.OnlineOneNoteAccessToken.empty() || account.OnlineOneNoteUserId.empty()) {
    m_diagnostics.m_ErrorCode = 100;
    return std::nullopt;
  }
  const std::string base = GraphBaseUrl(m_session.endpoints, account.OnlineOneNoteUserId);
  for (int batch = 0; batch < kMostBatches && !m_client.IsCancelled(); ++batch) {
    std::optional<ServiceReply> pages =
        m_client.Send(BearerGet(SectionPagesUrl(base, sectionId, batch * kBatchSize),
                                account.OnlineOneNoteAccessToken, kServiceDeadline));
    if (!pages) {
      m_diagnostics.m_ErrorCode = 200;
      m_diagnostics.failure = m_client.LastFailure();
      return std::nullopt;
    }
    const std::optional<nlohmann::json> value = ValueOf(pages->body);
    if (!value) {
      m_diagnostics.m_ErrorCode = pages->body.empty() ? 1000 : 300;
      NoteError(*pages);
      if (IsThrottled()) return std::nullopt;
      continue;
    }
    if (LoopFindPage(*value, pageClientId)) return std::move(pages->body);
    if (value->size() < kBatchSize) return std::nullopt;
  }
  return std::nullopt;
}

bool PageSearch::LoopFindPage(const nlohmann::json& pages, std::string_view pageClientId) {
  m_diagnostics.m_LogPages += static_cast<std::int64_t>(pages.size());
  for (const nlohmann::json& page : pages) {
    if (IsPage(page, pageClientId)) return true;
    m_diagnostics.m_ErrorCode += 10000;
  }
  return false;
}

std::optional<std::string> PageSearch::SearchOnlinePage(std::string_view title) {
  std::string& token = m_session.account.OnlineOneNoteAccessToken;
  const std::string base = GraphBaseUrl(m_session.endpoints, m_session.account.OnlineOneNoteUserId);
  std::optional<ServiceReply> found;
  for (int round = 0; round < kMostTitleRounds && !token.empty(); ++round) {
    found = m_client.Send(BearerGet(PagesTitledUrl(base, title), token, kServiceDeadline));
    if (!DemandsCredentials(m_client, found)) break;
    RefreshTokens(m_session, m_client);
  }
  if (!found) return std::nullopt;
  if (!IsJasonValueEmpty(found->body) && !CanTrySearch(found->body)) return std::move(found->body);
  if (token.empty()) return std::move(found->body);
  found = m_client.Send(BearerGet(PagesContainingUrl(base, LongestWord(title)), token, kServiceDeadline));
  if (!found) return std::nullopt;
  return std::move(found->body);
}

bool FoundAccountInJason(std::string_view batch, std::string_view accountId, std::string_view documentHost) {
  const std::optional<nlohmann::json> pages = ValueOf(batch);
  if (!pages) return false;
  return std::ranges::any_of(*pages, [&](const nlohmann::json& page) {
    return MatchesWildcards(accountId, AccountIdFromClientUrl(ClientLinkOf(page), documentHost));
  });
}

std::optional<OnlinePlace> GetOnlineId(std::string_view batch, std::string_view pageClientId) {
  const std::optional<nlohmann::json> pages = ValueOf(batch);
  if (!pages) return std::nullopt;
  const auto page = std::ranges::find_if(
      *pages, [&](const nlohmann::json& candidate) { return IsPage(candidate, pageClientId); });
  if (page == pages->end()) return std::nullopt;
  return OnlinePlace{TextAt(*page, {"id"}), TextAt(*page, {"parentSection", "id"})};
}

bool IsJasonValueEmpty(std::string_view body) {
  const std::optional<nlohmann::json> value = ValueOf(body);
  return !value || value->empty();
}

bool CanTrySearch(std::string_view body) {
  const nlohmann::json reply = nlohmann::json::parse(body, nullptr, false);
  return reply.is_object() && TextAt(reply, {"code"}) == "20266";
}

}  // namespace quill::online
