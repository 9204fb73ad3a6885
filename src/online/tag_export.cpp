#include "online/tag_export.h"

#include <fmt/format.h>

#include <iterator>

#include "content/find_text.h"
#include "online/link_conversions.h"
#include "online/paragraph_link.h"
#include "online/protected_ampersands.h"

namespace quill::online {
namespace {

struct TagLine {
  char complete;
  std::string name;
  std::string text;
  std::string link;
};

TagLine ReadTag(pugi::xml_node element, std::string_view text, std::string_view pageLink) {
  const std::string_view tags = AttributeText(element, "data-tag");
  const std::size_t completed = content::FindText(tags, ":completed");
  return {completed == std::string_view::npos ? '0' : '1', RestoreAmpersands(tags.substr(0, completed)),
          RestoreAmpersands(text), ParagraphLink(pageLink, AttributeText(element, "id"))};
}

void AppendLine(std::string& out, TagFormat format, const TagLine& line) {
  if (!out.empty()) out += '\n';
  if (format == TagFormat::Csv) {
    fmt::format_to(std::back_inserter(out), "{},{},\"{}\",{}", line.complete, line.name, line.text,
                   line.link);
  } else {
    fmt::format_to(std::back_inserter(out),
                   "<tag complete=\"{}\" name=\"{}\" href=\"{}\"><![CDATA[{}]]></tag>", line.complete,
                   line.name, content::ReplaceAll(line.link, "&", "&amp;"), line.text);
  }
}

}  // namespace

Result<std::string, PageProblem> GenerateTags2Content(TagFormat format, std::string_view pageHtml,
                                                      std::string_view pageLink) {
  const auto page = ParsePageHtml(pageHtml);
  if (!page) return Failure{PageProblem::NotXml};
  const std::string link = ConvertJsonClientUrl2OldClientUrl(pageLink);
  std::string lines;
  const ElementTest isTagged = [](pugi::xml_node element) -> bool { return element.attribute("data-tag"); };
  VisitElements(*page, isTagged, [&](pugi::xml_node element, std::string_view text) {
    AppendLine(lines, format, ReadTag(element, text, link));
  });
  if (lines.empty()) return Failure{PageProblem::NothingFound};
  if (format == TagFormat::Csv) return lines;
  return fmt::format("<?xml version=\"1.0\" ?><tags>{}</tags>", lines);
}

}  // namespace quill::online
