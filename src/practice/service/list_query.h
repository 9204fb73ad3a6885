#pragma once
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "practice/service/graph_problem.h"
#include "practice/service/list_filter.h"
#include "practice/service/web_exchange.h"

namespace quill::practice {

/// What a request wants of a list. Each option may be written with a "$" in front or without.
struct ListQuery {
  std::optional<std::size_t> top;
  std::size_t skip = 0;
  bool hasCount = false;
  bool hasLevels = false;
  std::string orderField;  ///< empty: as they are
  bool isDescending = false;
  std::vector<std::string> select;  ///< empty: all
  std::optional<ListFilter> filter;

  /// As many entries as one answer holds.
  std::size_t PageSize() const;
};

/// Refuses as the service does: a "top" above 100 (20129), numbers that are none and malformed filters
/// (20100).
Result<ListQuery, GraphProblem> ReadListQuery(const Fields& query);

}  // namespace quill::practice
