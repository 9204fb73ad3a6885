#include "online/notebook_export.h"

#include <algorithm>

#include "content/find_text.h"
#include "content/unicode_text.h"
#include "online/notebook_of_page.h"

namespace quill::online {
namespace {

/// Escaped also where a "&" or "+" would end the name or mean a blank.
std::string QueryValue(std::string_view text) {
  return content::ReplaceAll(content::ReplaceAll(content::PercentEscape(text), "&", "%26"), "+", "%2B");
}

}  // namespace

std::optional<std::string> NotebookExportAddress(std::string_view notebooksBody, std::string_view pageLink,
                                                 std::string_view webApp) {
  auto notebook = FindNotebookOfPage(notebooksBody, pageLink);
  if (!notebook) return std::nullopt;
  std::ranges::replace(notebook->id, '-', '|');
  return content::PercentEscape(webApp)
      .append("/notebooks/exportimport?auth=1&notebookId=")
      .append(QueryValue(notebook->id))
      .append("&notebookName=")
      .append(QueryValue(notebook->displayName));
}

}  // namespace quill::online
