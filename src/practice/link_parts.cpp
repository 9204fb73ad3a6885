#include "practice/link_parts.h"

#include <algorithm>
#include <utility>

#include "content/find_text.h"
#include "online/client_link.h"
#include "practice/guid_hash.h"

namespace quill::practice {
namespace {

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return upper;
}

std::string InBraces(std::string_view id) {
  return id.empty() ? std::string() : "{" + Upper(id) + "}";
}

}  // namespace

std::string NotebookId() {
  return GuidOf({"notebook", kNotebookName});
}

std::string SectionId(std::string_view section) {
  return GuidOf({"section", section});
}

LinkTarget TargetOfLink(std::string_view link) {
  std::string plain(link);
  for (const auto& [escaped, meant] : {std::pair{"%7B", "{"}, {"%7b", "{"}, {"%7D", "}"}, {"%7d", "}"}}) {
    plain = content::ReplaceAll(std::move(plain), escaped, meant);
  }
  plain += "&";  // a bare id at the very end counts too
  std::string object = Upper(online::ObjectIdOfLink(plain));
  if (object.ends_with('&')) object.pop_back();
  return {InBraces(online::SectionIdOfLink(plain)), InBraces(online::PageIdOfLink(plain)), std::move(object)};
}

}  // namespace quill::practice
