#include "practice/service/web_exchange.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

std::string FieldText(std::string_view escaped) {
  std::string text(escaped);
  std::replace(text.begin(), text.end(), '+', ' ');
  return content::PercentUnescape(text);
}

/// Calls `take` with each piece between the separators.
template <class Take>
void Split(std::string_view text, char separator, Take take) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) take(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

auto Find(const Fields& fields, std::string_view name) {
  return std::find_if(fields.begin(), fields.end(),
                      [name](const auto& field) { return field.first == name; });
}

}  // namespace

Fields ParseFields(std::string_view text) {
  Fields fields;
  Split(text, '&', [&fields](std::string_view piece) {
    const std::size_t equals = std::min(piece.find('='), piece.size());
    const std::string_view value = piece.substr(std::min(equals + 1, piece.size()));
    fields.emplace_back(FieldText(piece.substr(0, equals)), FieldText(value));
  });
  return fields;
}

std::string FieldOf(const Fields& fields, std::string_view name) {
  const auto field = Find(fields, name);
  return field == fields.end() ? std::string() : field->second;
}

bool HasField(const Fields& fields, std::string_view name) {
  return Find(fields, name) != fields.end();
}

void SetTarget(WebRequest& request, std::string_view target) {
  request.target = target;
  const std::size_t mark = std::min(target.find('?'), target.size());
  Split(target.substr(0, mark), '/',
        [&request](std::string_view piece) { request.segments.push_back(content::PercentUnescape(piece)); });
  if (mark < target.size()) request.query = ParseFields(target.substr(mark + 1));
}

}  // namespace quill::practice
