#include "online/account_id.h"

#include "content/text_between.h"

namespace quill::online {
namespace {

/// Cuts the part before the next slash, or all of it, off the text.
std::string_view TakePart(std::string_view& text) {
  const std::size_t slash = text.find('/');
  const std::string_view part = text.substr(0, slash);
  text.remove_prefix(slash == std::string_view::npos ? text.size() : slash + 1);
  return part;
}

}  // namespace

std::string_view AccountIdFromClientUrl(std::string_view link, std::string_view personalHost) {
  std::string_view rest = content::TextBetween(link, "https://", "");
  const bool isDeepEnough = rest.find('/') != std::string_view::npos;
  const std::string_view host = TakePart(rest);
  const std::string_view first = TakePart(rest);
  return isDeepEnough && host == personalHost ? first : TakePart(rest);
}

bool HasNoUnderscore(std::string_view text) {
  return !text.empty() && text.find('_') == std::string_view::npos;
}

bool HasNoHyphen(std::string_view text) {
  return text.find('-') == std::string_view::npos;
}

}  // namespace quill::online
