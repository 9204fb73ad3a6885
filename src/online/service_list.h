#pragma once
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "online/service_client.h"

namespace quill::online {

/// The entries of "value" in a list that the service sent; nothing when the body has none. `null` and what is
/// no array count as missing. O(body).
std::optional<nlohmann::json> ValueOf(std::string_view body);

/// A text in an entry by the names on the way to it ("links", "oneNoteClientUrl", "href"); "" when something
/// on the way is missing or `null`. Numbers come as their digits.
std::string TextAt(const nlohmann::json& entry, std::initializer_list<std::string_view> path);

/// A number in an entry; nothing when it is missing or is not one.
std::optional<std::int64_t> NumberAt(const nlohmann::json& entry, std::string_view name);

/// YES only for a `true`, or a number other than 0.
bool IsTrueAt(const nlohmann::json& entry, std::string_view name);

/// What an answer says against a request.
struct ServiceError {
  int status = 0;
  std::string code;     ///< such as "20166"; may be empty
  std::string message;  ///< the service's words, at most 300 bytes; may be empty

  /// Whether it says that there were too many requests (status 429, code 20166).
  bool IsThrottled() const;
};

/// The error in an answer: any of status 400 and above, with or without JSON in its body.
std::optional<ServiceError> ErrorOf(const ServiceReply& reply);

}  // namespace quill::online
