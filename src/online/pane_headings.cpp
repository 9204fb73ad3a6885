#include "online/pane_headings.h"

#include "online/headings.h"
#include "online/link_conversions.h"
#include "online/page_html.h"
#include "online/paragraph_link.h"

namespace quill::online {

Result<std::vector<PaneHeading>> ListTOCHeadingsHtml(std::string_view pageHtml, std::string_view pageLink) {
  const auto page = ParsePageHtml(pageHtml);
  if (!page) return Failure{page.error()};
  const std::string link = ConvertJsonClientUrl2OldClientUrl(pageLink);
  std::vector<PaneHeading> headings;
  const ElementTest isListed = [](pugi::xml_node element) {
    return IsListedHeading(element) && element.attribute("id");
  };
  VisitElements(*page, isListed, [&](pugi::xml_node heading, std::string_view text) {
    headings.push_back({GetHtmlHeadingNum(heading.name()), std::string(text),
                        PaneParagraphLink(link, AttributeText(heading, "id"))});
  });
  return headings;
}

}  // namespace quill::online
