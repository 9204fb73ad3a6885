#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "practice/service/online_page.h"

namespace quill::practice {

/// All ids of the page as the service sends it, in the order of the text; the outline's is the first.
inline std::vector<std::string> IdsOf(const LibraryContent& content, std::string_view pageGuid) {
  constexpr std::string_view kStart = " id=\"";
  const std::string html = OnlinePageHtml(content, pageGuid, true);
  std::vector<std::string> ids;
  for (std::size_t at = html.find(kStart); at != std::string::npos; at = html.find(kStart, at)) {
    at += kStart.size();
    ids.push_back(html.substr(at, html.find('"', at) - at));
  }
  return ids;
}

}  // namespace quill::practice
