#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "online/resolved_pages.h"
#include "online/service_client.h"
#include "online/service_list.h"
#include "online/session.h"

namespace quill::online {

/// How far a search came: shown to the user when it found nothing.
struct SearchDiagnostics {
  std::int64_t m_ErrorCode = 0;  ///< the stage it ended in, plus 10000 for every page that was another one
  std::int64_t m_LogTrys = 0;    ///< tries of the section search that failed
  std::int64_t m_LogSections = 0;
  std::int64_t m_LogPages = 0;                   ///< looked at, over all sections and batches
  std::string m_LogErrorMessage;                 ///< the service's own words
  std::optional<ServiceError> error;             ///< the last answer that was an error
  std::optional<platform::HttpFailure> failure;  ///< why the last request that failed had no answer
};

/// Finds the online copy of a page. Sections are searched for by name, then their pages by the page id of the
/// client link: at most three tries for the sections and ten batches of a hundred pages for each. One object
/// serves one command. Command thread.
class PageSearch {
 public:
  PageSearch(Session& session, ServiceClient& client) : m_session(session), m_client(client) {}

  // A "batch" below is the body of an answer that lists pages. Each of these yields the batch that holds the
  // page, or nothing.
  std::optional<std::string> SectionPageFilter(std::string_view sectionName, std::string_view pageClientId);
  std::optional<std::string> SectionPageLoopSections(const std::optional<ServiceReply>& sections,
                                                     std::string_view pageClientId);
  std::optional<std::string> SectionPageGetSectionAllPages(std::string_view sectionId,
                                                           std::string_view pageClientId);

  /// Searches by the page's title instead, and by its longest word when that yields nothing: the body of the
  /// last answer. Refreshes the tokens up to four times.
  std::optional<std::string> SearchOnlinePage(std::string_view title);

  const SearchDiagnostics& Diagnostics() const { return m_diagnostics; }

 private:
  bool LoopFindPage(const nlohmann::json& pages, std::string_view pageClientId);
  void NoteError(const ServiceReply& reply);
  bool IsThrottled() const;

  Session& m_session;
  ServiceClient& m_client;
  SearchDiagnostics m_diagnostics;
};

/// Whether some page of a batch has a client link of this account.
bool FoundAccountInJason(std::string_view batch, std::string_view accountId, std::string_view documentHost);

/// The place of the page with this client id in a batch; nothing when it is not there.
std::optional<OnlinePlace> GetOnlineId(std::string_view batch, std::string_view pageClientId);

/// Whether a body lists nothing.
bool IsJasonValueEmpty(std::string_view body);

/// Whether the service refuses to search all sections of an account with so many ("code" 20266).
bool CanTrySearch(std::string_view body);

}  // namespace quill::online
