#include "practice/service/list_query.h"

#include <algorithm>
#include <charconv>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

constexpr std::size_t kDefaultTop = 20;
constexpr std::size_t kLargestTop = 100;

bool Has(const Fields& query, const std::string& name) {
  return HasField(query, name) || HasField(query, "$" + name);
}

std::string Option(const Fields& query, const std::string& name) {
  return HasField(query, name) ? FieldOf(query, name) : FieldOf(query, "$" + name);
}

bool IsTrue(const Fields& query, const std::string& name) {
  return content::ToLower(Option(query, name)) == "true";
}

/// A number of its own; nothing when the text is anything else.
std::optional<std::size_t> Number(const std::string& text) {
  std::size_t number = 0;
  const char* end = text.data() + text.size();
  const auto [last, problem] = std::from_chars(text.data(), end, number);
  if (problem != std::errc() || last != end) return std::nullopt;
  return number;
}

Failure<GraphProblem> Invalid(const std::string& option) {
  return Failure{GraphProblem{400, "20100", "The OData query is invalid: " + option + "."}};
}

std::vector<std::string> Names(std::string_view list) {
  std::vector<std::string> names;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    names.emplace_back(content::TrimBlanks(list.substr(0, comma)));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return names;
}

void ReadOrder(std::string_view text, ListQuery& query) {
  text = content::TrimBlanks(text);
  const std::size_t blank = std::min(text.find(' '), text.size());
  query.orderField = text.substr(0, blank);
  query.isDescending = content::TrimBlanks(text.substr(blank)) == "desc";
}

}  // namespace

std::size_t ListQuery::PageSize() const {
  return top.value_or(kDefaultTop);
}

Result<ListQuery, GraphProblem> ReadListQuery(const Fields& fields) {
  ListQuery query;
  if (Has(fields, "top")) {
    query.top = Number(Option(fields, "top"));
    if (!query.top) return Invalid("top");
    if (*query.top > kLargestTop)
      return Failure{GraphProblem{400, "20129", "The top query option must not be greater than 100."}};
  }
  if (Has(fields, "skip")) {
    const auto skip = Number(Option(fields, "skip"));
    if (!skip) return Invalid("skip");
    query.skip = *skip;
  }
  if (Has(fields, "filter")) {
    query.filter = ListFilter::Parse(Option(fields, "filter"));
    if (!query.filter) return Invalid("filter");
  }
  query.hasCount = IsTrue(fields, "count");
  query.hasLevels = IsTrue(fields, "pagelevel");
  ReadOrder(Option(fields, "orderby"), query);
  query.select = Names(Option(fields, "select"));
  return query;
}

}  // namespace quill::practice
