#include "online/service_list.h"

#include "content/unicode_text.h"

namespace quill::online {
namespace {

constexpr std::size_t kLongestMessage = 300;

/// The JSON object in a body; `null` when there is none.
nlohmann::json ObjectIn(std::string_view body) {
  nlohmann::json json = nlohmann::json::parse(body, nullptr, false);
  return json.is_object() ? json : nlohmann::json();
}

/// The member of an object; null when there is none.
const nlohmann::json* MemberAt(const nlohmann::json& entry, std::string_view name) {
  if (!entry.is_object()) return nullptr;
  const auto found = entry.find(name);
  return found == entry.end() ? nullptr : &*found;
}

/// The beginning of a text, cut between two characters.
std::string Shortened(std::string text, std::size_t limit) {
  if (text.size() <= limit) return text;
  text.resize(limit);
  while (!content::IsValidUtf8(text)) text.pop_back();
  return text;
}

}  // namespace

std::optional<nlohmann::json> ValueOf(std::string_view body) {
  nlohmann::json object = ObjectIn(body);
  const auto value = object.find("value");
  if (value == object.end() || !value->is_array()) return std::nullopt;
  return std::move(*value);
}

std::string TextAt(const nlohmann::json& entry, std::initializer_list<std::string_view> path) {
  const nlohmann::json* at = &entry;
  for (const std::string_view name : path) {
    at = MemberAt(*at, name);
    if (at == nullptr) return {};
  }
  if (at->is_string()) return at->get<std::string>();
  return at->is_number() ? at->dump() : std::string();
}

std::optional<std::int64_t> NumberAt(const nlohmann::json& entry, std::string_view name) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  const nlohmann::json* number = MemberAt(entry, name);
  if (number == nullptr || !number->is_number()) return std::nullopt;
  const double rough = number->get<double>();
  if (!(rough >= -kLimit && rough < kLimit)) return std::nullopt;
  return number->get<std::int64_t>();
}

bool IsTrueAt(const nlohmann::json& entry, std::string_view name) {
  const nlohmann::json* value = MemberAt(entry, name);
  if (value == nullptr) return false;
  return value->is_boolean() ? value->get<bool>() : value->is_number() && value->get<double>() != 0;
}

bool ServiceError::IsThrottled() const {
  constexpr int kTooManyRequests = 429;
  return status == kTooManyRequests || code == "20166";
}

std::optional<ServiceError> ErrorOf(const ServiceReply& reply) {
  constexpr int kFirstError = 400;
  if (reply.status < kFirstError) return std::nullopt;
  const nlohmann::json object = ObjectIn(reply.body);
  return ServiceError{reply.status, TextAt(object, {"error", "code"}),
                      Shortened(TextAt(object, {"error", "message"}), kLongestMessage)};
}

}  // namespace quill::online
