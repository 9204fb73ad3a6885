#include "online/notebook_contents.h"

#include "online/contents_block.h"
#include "online/service_list.h"

namespace quill::online {

std::string GenerateTOCNotebooksHtml(std::string_view body, std::string_view title) {
  if (body.empty()) return {};
  ContentsList list;
  const auto notebooks = ValueOf(body).value_or(nlohmann::json::array());
  for (const nlohmann::json& notebook : notebooks) {
    list.Add("", 0, TextAt(notebook, {"links", "oneNoteClientUrl", "href"}),
             TextAt(notebook, {"displayName"}));
  }
  return ContentsBlock(title, list);
}

}  // namespace quill::online
