#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::practice {

enum class IdKind { Notebook, Section, Page };

/// The id under which the service names something: made from its GUID and its account, and not to be found in
/// any client link ("0-cadfb407915b42c9ab7aa73af7ba8341!248-F4873BF54ECA028!s6f57").
std::string GraphId(IdKind kind, std::string_view guid, std::string_view accountId);

/// The GUID, "{…}" in upper case, behind an id of that kind; nothing when it is none.
std::optional<std::string> GuidOfGraphId(IdKind kind, std::string_view id);

/// "{8-4-4-4-12}" without its braces.
std::string_view BareGuid(std::string_view guid);

}  // namespace quill::practice
