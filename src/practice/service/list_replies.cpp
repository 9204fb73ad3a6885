#include "practice/service/list_replies.h"

#include <algorithm>
#include <utility>

#include "practice/service/html_text.h"

namespace quill::practice {
namespace {

using Json = nlohmann::ordered_json;

/// Leaves those that meet the filter; false when it names a field that they do not have.
bool Filter(const ListQuery& query, std::vector<ListRow>& rows) {
  if (!query.filter) return true;
  bool hasFields = true;
  std::erase_if(rows, [&](const ListRow& row) {
    const auto meets = query.filter->Matches([&row](std::string_view name) { return FieldOfRow(row, name); });
    hasFields = hasFields && meets.has_value();
    return !meets.value_or(false);
  });
  return hasFields;
}

bool Sort(const ListQuery& query, std::vector<ListRow>& rows) {
  if (query.orderField.empty() || rows.empty()) return true;
  const bool isByPlace = query.orderField == "order" && rows.front().page != nullptr;
  if (!isByPlace && !FieldOfRow(rows.front(), query.orderField)) return false;
  const auto isBefore = [&](const ListRow& a, const ListRow& b) {
    if (isByPlace) return a.order < b.order;
    return FieldOfRow(a, query.orderField) < FieldOfRow(b, query.orderField);
  };
  std::stable_sort(rows.begin(), rows.end(), [&](const ListRow& a, const ListRow& b) {
    return query.isDescending ? isBefore(b, a) : isBefore(a, b);
  });
  return true;
}

Json Selected(const ListQuery& query, Json entry) {
  if (query.select.empty()) return entry;
  Json selected = Json::object();
  for (auto& [name, value] : entry.items()) {
    if (std::find(query.select.begin(), query.select.end(), name) != query.select.end())
      selected[name] = std::move(value);
  }
  return selected;
}

/// The same request with another "skip".
std::string NextLink(const ServiceAddresses& addresses, const WebRequest& request, std::size_t skip) {
  std::string link = addresses.base + request.target.substr(0, request.target.find('?')) + "?";
  for (const auto& [name, value] : request.query) {
    if (name != "skip" && name != "$skip") link += EscapeUrlPart(name) + "=" + EscapeUrlPart(value) + "&";
  }
  return link + "$skip=" + std::to_string(skip);
}

std::string Context(const ServiceAddresses& addresses, const WebRequest& request) {
  const std::string_view list = request.segments.empty() ? "" : std::string_view(request.segments.back());
  return addresses.base + "/v1.0/$metadata#users('me')/onenote/" + std::string(list);
}

}  // namespace

WebAnswer JsonAnswer(const Json& json) {
  WebAnswer answer;
  answer.type = "application/json; odata.metadata=minimal; charset=utf-8";
  answer.body = json.dump(-1, ' ', false, Json::error_handler_t::replace);
  return answer;
}

WebAnswer ListAnswer(const ServiceAddresses& addresses, const WebRequest& request, const ListQuery& query,
                     std::vector<ListRow> rows) {
  if (!Filter(query, rows) || !Sort(query, rows))
    return ProblemAnswer({400, "20100", "The OData query is invalid: there is no such property."});
  const std::size_t from = std::min(query.skip, rows.size());
  const std::size_t to = std::min(rows.size(), from + query.PageSize());
  Json list = {{"@odata.context", Context(addresses, request)}};
  if (query.hasCount) list["@odata.count"] = rows.size();
  Json& entries = list["value"] = Json::array();
  for (std::size_t i = from; i < to; ++i)
    entries.push_back(Selected(query, EntryOf(addresses, rows[i], query.hasLevels)));
  if (!query.top && to < rows.size()) list["@odata.nextLink"] = NextLink(addresses, request, to);
  return JsonAnswer(list);
}

}  // namespace quill::practice
