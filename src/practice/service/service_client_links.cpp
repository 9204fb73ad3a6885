#include "practice/service/service_client_links.h"

#include <fmt/format.h>

#include "practice/service/graph_ids.h"
#include "practice/service/html_text.h"

namespace quill::practice {

std::string NotebookClientLink(std::string_view documentHost, const LibraryNotebook& notebook) {
  return fmt::format("onenote:https://{}/{}/Documents/{}", documentHost, EscapeUrlPart(notebook.accountId),
                     EscapeUrlPart(notebook.name));
}

std::string SectionClientLink(std::string_view documentHost, const LibraryNotebook& notebook,
                              const LibrarySection& section) {
  std::string link = NotebookClientLink(documentHost, notebook);
  for (const std::string& group : section.groups) link += "/" + EscapeUrlPart(group);
  return link + "/" + EscapeUrlPart(section.name) + ".one";
}

std::string PageClientLink(std::string_view documentHost, const LibraryNotebook& notebook,
                           const LibrarySection& section, const LibraryPage& page) {
  const std::string title = page.title.empty() ? "" : EscapeUrlPart(page.title) + "&";
  return fmt::format("{}#{}section-id={}&page-id={}&end", SectionClientLink(documentHost, notebook, section),
                     title, BareGuid(section.guid), BareGuid(page.guid));
}

}  // namespace quill::practice
