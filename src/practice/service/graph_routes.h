#pragma once
#include <mutex>
#include <optional>
#include <string>

#include "practice/service/faults.h"
#include "practice/service/list_query.h"
#include "practice/service/list_rows.h"
#include "practice/service/token_book.h"
#include "practice/service/web_exchange.h"

namespace quill::practice {

/// The OneNote service: the user, lists of notebooks, sections and pages, and pages with their content.
/// Addresses by user are answered for any user id. Thread-safe.
class GraphRoutes {
 public:
  GraphRoutes(ServiceAddresses addresses, NotebookLibrary& library, TokenBook& tokens);

  /// The answer to any request below "/v1.0". Of the faults only those count that lists of pages can have.
  WebAnswer Answer(const WebRequest& request, std::optional<FaultKind> fault);

 private:
  const std::string& UserId();
  WebAnswer Me();
  WebAnswer OneNote(const WebRequest& request, std::size_t at, std::optional<FaultKind> fault);
  WebAnswer Notebooks(const WebRequest& request, const ListQuery& query);
  WebAnswer RecentNotebooks(bool hasPersonal);
  WebAnswer Sections(const WebRequest& request, const ListQuery& query);
  WebAnswer Pages(const WebRequest& request, const ListQuery& query, bool isCount);
  WebAnswer SectionPages(const WebRequest& request, const ListQuery& query, const std::string& id,
                         bool isCount, bool isMoving);
  WebAnswer Content(const WebRequest& request, const std::string& id);
  WebAnswer Change(const WebRequest& request, const std::string& pageGuid);

  const ServiceAddresses m_addresses;
  NotebookLibrary& m_library;
  TokenBook& m_tokens;
  std::mutex m_mutex;  ///< for the library and for what follows
  MovedPages m_moved;
  std::string m_userId;  ///< once it is known
};

}  // namespace quill::practice
