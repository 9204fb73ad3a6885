#include "online/section_contents.h"

#include <algorithm>
#include <vector>

#include "online/contents_block.h"
#include "online/link_conversions.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

constexpr std::int64_t kDeepestLevel = 100;

using Pages = std::vector<const nlohmann::json*>;

/// The page at each position of the list, then whatever has no position of its own, so that no page is lost.
Pages InOrder(const nlohmann::json& pages) {
  Pages inOrder(pages.size(), nullptr);
  Pages others;
  for (const nlohmann::json& page : pages) {
    const std::int64_t order = NumberAt(page, "order").value_or(-1);
    const bool hasPlace = order >= 0 && static_cast<std::uint64_t>(order) < inOrder.size() &&
                          inOrder[static_cast<std::size_t>(order)] == nullptr;
    if (hasPlace) {
      inOrder[static_cast<std::size_t>(order)] = &page;
    } else {
      others.push_back(&page);
    }
  }
  std::erase(inOrder, nullptr);
  inOrder.insert(inOrder.end(), others.begin(), others.end());
  return inOrder;
}

}  // namespace

std::string GenerateTOCSectionPagesHtml(std::string_view body, std::string_view title) {
  if (body.empty()) return {};
  ContentsList list;
  const auto pages = ValueOf(body).value_or(nlohmann::json::array());
  for (const nlohmann::json* page : InOrder(pages)) {
    const std::int64_t level =
        std::clamp<std::int64_t>(NumberAt(*page, "level").value_or(0), 0, kDeepestLevel);
    list.Add("&nbsp;&nbsp;", static_cast<std::size_t>(level),
             ConvertJsonClientUrl2OldClientUrl(TextAt(*page, {"links", "oneNoteClientUrl", "href"})),
             TextAt(*page, {"title"}));
  }
  return ContentsBlock(title, list);
}

}  // namespace quill::online
