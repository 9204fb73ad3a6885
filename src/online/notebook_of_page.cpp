#include "online/notebook_of_page.h"

#include "content/unicode_text.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

bool LiesIn(std::string_view page, std::string_view notebook) {
  while (notebook.ends_with('/')) notebook.remove_suffix(1);
  if (notebook.empty() || !page.starts_with(notebook)) return false;
  return page.size() == notebook.size() || page[notebook.size()] == '/';
}

}  // namespace

std::optional<NotebookOfPage> FindNotebookOfPage(std::string_view notebooksBody, std::string_view pageLink) {
  const std::string page = content::PercentUnescape(pageLink);
  const auto notebooks = ValueOf(notebooksBody).value_or(nlohmann::json::array());
  for (const nlohmann::json& notebook : notebooks) {
    std::string link = content::PercentUnescape(TextAt(notebook, {"links", "oneNoteClientUrl", "href"}));
    if (LiesIn(page, link)) {
      return NotebookOfPage{std::move(link), TextAt(notebook, {"displayName"}), TextAt(notebook, {"id"})};
    }
  }
  return std::nullopt;
}

}  // namespace quill::online
