#include "practice/service/graph_routes.h"

#include <fmt/format.h>

#include <algorithm>

#include "content/unicode_text.h"
#include "practice/service/graph_ids.h"
#include "practice/service/identity_routes.h"
#include "practice/service/list_replies.h"
#include "practice/service/online_page.h"

namespace quill::practice {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kRecent = "getRecentNotebooks(includePersonalNotebooks=";

WebAnswer NoSuchAddress(std::string_view part) {
  return ProblemAnswer({400, "BadRequest", fmt::format("Resource not found for the segment '{}'.", part)});
}

WebAnswer NoSuchThing() {
  return ProblemAnswer({404, "20102", "The specified resource ID does not exist."});
}

WebAnswer MalformedId() {
  return ProblemAnswer({400, "20112", "The ID value contains invalid characters or is malformed."});
}

WebAnswer CountAnswer(std::size_t count) {
  WebAnswer answer;
  answer.body = std::to_string(count);
  return answer;
}

std::string TokenOf(const WebRequest& request) {
  constexpr std::string_view kScheme = "bearer ";
  if (content::ToLower(request.authorization.substr(0, kScheme.size())) != kScheme) return {};
  return std::string(content::TrimWhite(std::string_view(request.authorization).substr(kScheme.size())));
}

}  // namespace

GraphRoutes::GraphRoutes(ServiceAddresses addresses, NotebookLibrary& library, TokenBook& tokens)
    : m_addresses(std::move(addresses)), m_library(library), m_tokens(tokens) {}

WebAnswer GraphRoutes::Answer(const WebRequest& request, std::optional<FaultKind> fault) {
  if (!m_tokens.IsGood(TokenOf(request))) return NoTokenAnswer(true);
  const std::vector<std::string>& parts = request.segments;
  const bool isMe = parts.size() >= 2 && parts[1] == "me";
  const bool isUser = parts.size() >= 3 && parts[1] == "users";
  if (!isMe && !isUser) return NoSuchAddress(parts.size() < 2 ? "" : parts[1]);
  const std::size_t at = isMe ? 2 : 3;
  const std::lock_guard lock(m_mutex);
  if (parts.size() == at) return Me();
  if (parts[at] != "onenote" || parts.size() == at + 1) return NoSuchAddress(parts[at]);
  return OneNote(request, at + 1, fault);
}

/// Personal accounts have one number for the user and for the links of the notebooks.
const std::string& GraphRoutes::UserId() {
  if (!m_userId.empty()) return m_userId;
  const std::vector<LibraryNotebook> notebooks = m_library.Notebooks();
  const auto own = std::find_if(notebooks.begin(), notebooks.end(),
                                [](const LibraryNotebook& notebook) { return !notebook.isShared; });
  m_userId = own == notebooks.end() ? "0000000000000000" : own->accountId;
  return m_userId;
}

WebAnswer GraphRoutes::Me() {
  return JsonAnswer({{"@odata.context", m_addresses.base + "/v1.0/$metadata#users/$entity"},
                     {"userPrincipalName", kPracticeUser},
                     {"id", UserId()},
                     {"displayName", "Practice"},
                     {"surname", nullptr},
                     {"givenName", "Practice"},
                     {"preferredLanguage", "en-US"},
                     {"mail", kPracticeUser},
                     {"mobilePhone", nullptr},
                     {"jobTitle", nullptr},
                     {"officeLocation", nullptr},
                     {"businessPhones", Json::array()}});
}

WebAnswer GraphRoutes::OneNote(const WebRequest& request, std::size_t at, std::optional<FaultKind> fault) {
  const std::vector<std::string> parts(request.segments.begin() + static_cast<std::ptrdiff_t>(at),
                                       request.segments.end());
  const std::size_t depth = parts.size();
  if (depth == 3 && parts[0] == "pages" && parts[2] == "content") return Content(request, parts[1]);
  if (request.method != "GET" && request.method != "HEAD")
    return ProblemAnswer({405, "BadRequest", "The method is not allowed for this address."});
  Result<ListQuery, GraphProblem> query = ReadListQuery(request.query);
  if (!query.ok()) return ProblemAnswer(query.error());
  if (fault == FaultKind::IgnoredSkip) query->skip = 0;
  const bool isCount = depth > 1 && parts.back() == "$count";
  if (parts[0] == "notebooks" && depth == 1) return Notebooks(request, *query);
  if (parts[0] == "notebooks" && depth == 2 && parts[1].starts_with(kRecent))
    return RecentNotebooks(parts[1] == std::string(kRecent) + "true)");
  if (parts[0] == "sections" && depth == 1) return Sections(request, *query);
  if (parts[0] == "sections" && depth == (isCount ? 4 : 3) && parts[2] == "pages")
    return SectionPages(request, *query, parts[1], isCount, fault == FaultKind::PageMoves);
  if (parts[0] == "pages" && depth == (isCount ? 2 : 1)) return Pages(request, *query, isCount);
  return NoSuchAddress(parts.back());
}

WebAnswer GraphRoutes::Notebooks(const WebRequest& request, const ListQuery& query) {
  const std::vector<LibraryNotebook> notebooks = m_library.Notebooks();
  return ListAnswer(m_addresses, request, query, NotebookRows(notebooks));
}

/// The first notebook was open last; each other one a day before.
WebAnswer GraphRoutes::RecentNotebooks(bool hasPersonal) {
  Json entries = Json::array();
  int day = 28;
  if (hasPersonal) {
    for (const LibraryNotebook& notebook : m_library.Notebooks()) {
      entries.push_back(RecentEntryOf(m_addresses, notebook, fmt::format("2024-02-{:02}T08:30:00Z", day)));
      day = std::max(1, day - 1);
    }
  }
  return JsonAnswer(
      {{"@odata.context", m_addresses.base + "/v1.0/$metadata#Collection(microsoft.graph.recentNotebook)"},
       {"value", entries}});
}

WebAnswer GraphRoutes::Sections(const WebRequest& request, const ListQuery& query) {
  const std::vector<LibraryNotebook> notebooks = m_library.Notebooks();
  return ListAnswer(m_addresses, request, query, SectionRows(notebooks));
}

WebAnswer GraphRoutes::Pages(const WebRequest& request, const ListQuery& query, bool isCount) {
  const std::vector<LibraryNotebook> notebooks = m_library.Notebooks();
  std::vector<ListRow> rows = PageRows(notebooks, m_moved);
  return isCount ? CountAnswer(rows.size()) : ListAnswer(m_addresses, request, query, std::move(rows));
}

WebAnswer GraphRoutes::SectionPages(const WebRequest& request, const ListQuery& query, const std::string& id,
                                    bool isCount, bool isMoving) {
  const std::optional<std::string> guid = GuidOfGraphId(IdKind::Section, id);
  if (!guid) return MalformedId();
  const std::vector<LibraryNotebook> notebooks = m_library.Notebooks();
  const std::vector<ListRow> sections = SectionRows(notebooks);
  const auto section = std::find_if(sections.begin(), sections.end(),
                                    [&guid](const ListRow& row) { return row.section->guid == *guid; });
  if (section == sections.end()) return NoSuchThing();
  std::vector<ListRow> rows = PageRows(*section, m_moved);
  if (isMoving) ++m_moved[*guid];
  return isCount ? CountAnswer(rows.size()) : ListAnswer(m_addresses, request, query, std::move(rows));
}

WebAnswer GraphRoutes::Content(const WebRequest& request, const std::string& id) {
  const std::optional<std::string> guid = GuidOfGraphId(IdKind::Page, id);
  if (!guid) return MalformedId();
  if (request.method == "PATCH") return Change(request, *guid);
  if (request.method != "GET" && request.method != "HEAD")
    return ProblemAnswer({405, "BadRequest", "The method is not allowed for this address."});
  const Result<LibraryContent> content = m_library.Load(*guid);
  if (!content.ok()) return NoSuchThing();
  const bool hasIds = std::any_of(request.query.begin(), request.query.end(), [](const auto& field) {
    return content::ToLower(field.first) == "includeids" && content::ToLower(field.second) == "true";
  });
  WebAnswer answer;
  answer.type = "text/html; charset=utf-8";
  answer.body = OnlinePageHtml(*content, *guid, hasIds);
  return answer;
}

WebAnswer GraphRoutes::Change(const WebRequest& request, const std::string& pageGuid) {
  const Result<LibraryContent> content = m_library.Load(pageGuid);
  if (!content.ok()) return NoSuchThing();
  const Result<LibraryContent, ChangeProblem> changed = ApplyChanges(*content, pageGuid, request.body);
  if (!changed.ok())
    return ProblemAnswer({changed.error().status, changed.error().code, changed.error().message});
  if (const Status<> saved = m_library.Save(pageGuid, *changed); !saved.ok())
    return ProblemAnswer({500, "19999", "The page could not be saved."});
  WebAnswer answer;
  answer.status = 204;
  return answer;
}

}  // namespace quill::practice
