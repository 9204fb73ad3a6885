#include "online/breadcrumb.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "content/find_text.h"
#include "content/unicode_text.h"
#include "online/client_link.h"
#include "online/notebook_of_page.h"

namespace quill::online {
namespace {

constexpr std::string_view kSectionEnd = ".one";

void AppendStep(std::string& line, std::string_view link, std::string_view name) {
  if (!line.empty()) line += " / ";
  fmt::format_to(std::back_inserter(line), "<a href=\"{}\">{}</a>", link, name);
}

/// The section groups on the way from the notebook to the section: every part of the path but the last.
void AppendGroups(std::string& line, std::string_view notebookLink, std::string_view path) {
  std::string link(notebookLink);
  while (link.ends_with('/')) link.pop_back();
  for (std::size_t slash; (slash = path.find('/')) != std::string_view::npos; path.remove_prefix(slash + 1)) {
    if (slash == 0) continue;
    link.append("/").append(path.substr(0, slash));
    AppendStep(line, link, path.substr(0, slash));
  }
}

}  // namespace

std::optional<std::string> GenerateBreadcrumb(std::string_view notebooksBody, std::string_view pageLink) {
  const auto notebook = FindNotebookOfPage(notebooksBody, pageLink);
  if (!notebook) return std::nullopt;
  const std::string page = content::PercentUnescape(pageLink);
  // The notebook's own name may have a ".one" in it.
  const std::size_t inside = std::min(notebook->link.size(), page.size());
  const std::size_t sectionEnd = content::FindText(page, kSectionEnd, inside);
  const std::string_view section =
      std::string_view(page).substr(0, sectionEnd == std::string::npos ? inside : sectionEnd);

  std::string line;
  AppendStep(line, notebook->link, notebook->displayName);
  AppendGroups(line, notebook->link, section.substr(inside));
  AppendStep(line, std::string(section).append(kSectionEnd), SectionNameOfLink(pageLink));
  AppendStep(line, page, PageTitleOfLink(pageLink));
  return fmt::format("&lt;&lt; {} &gt;&gt;", line);
}

}  // namespace quill::online
