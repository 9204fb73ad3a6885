#pragma once
#include <string_view>

namespace quill::online {

/// The account that a client link's notebook belongs to: the first folder on the document host of personal
/// accounts
/// (`personalHost`, compared exactly), the second on any other server. "" when the link is not that deep.
/// O(link).
std::string_view AccountIdFromClientUrl(std::string_view link, std::string_view personalHost);

/// Whether the text is there and without "_", which names of business accounts contain. O(text).
bool HasNoUnderscore(std::string_view text);

/// Whether the text is without "-", which user ids of business accounts contain; "" is. O(text).
bool HasNoHyphen(std::string_view text);

}  // namespace quill::online
