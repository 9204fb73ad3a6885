#include "online/headings.h"

#include "online/contents_block.h"
#include "online/link_conversions.h"
#include "online/paragraph_link.h"
#include "online/protected_ampersands.h"

namespace quill::online {

bool MSBug(pugi::xml_node element) {
  return std::string_view(element.parent().name()) == "ul";
}

int GetHtmlHeadingNum(std::string_view tagName) {
  const bool isHeading = tagName.size() == 2 && tagName[0] == 'h' && tagName[1] >= '1' && tagName[1] <= '6';
  return isHeading ? tagName[1] - '0' : 0;
}

bool IsListedHeading(pugi::xml_node element) {
  return GetHtmlHeadingNum(element.name()) > 0 && !MSBug(element);
}

Result<std::string, PageProblem> GenerateTOCHeadingsHtml(std::string_view pageHtml, std::string_view pageLink,
                                                         std::string_view title) {
  const auto page = ParsePageHtml(pageHtml);
  if (!page) return Failure{PageProblem::NotXml};
  const std::string link = ConvertJsonClientUrl2OldClientUrl(pageLink);
  ContentsList list;
  VisitElements(*page, IsListedHeading, [&](pugi::xml_node heading, std::string_view text) {
    const auto level = static_cast<std::size_t>(GetHtmlHeadingNum(heading.name()));
    list.Add("&nbsp;&nbsp;&nbsp;&nbsp;", level, ParagraphLink(link, AttributeText(heading, "id")),
             RestoreAmpersands(text));
  });
  if (list.IsEmpty()) return Failure{PageProblem::NothingFound};
  return ContentsBlock(title, list);
}

}  // namespace quill::online
