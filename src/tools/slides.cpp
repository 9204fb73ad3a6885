#include "tools/slides.h"

#include <fmt/format.h>

#include "content/element_lookup.h"
#include "content/entities.h"
#include "content/find_text.h"
#include "content/strip_tags.h"
#include "content/unicode_text.h"
#include "content/xml_serializer.h"

namespace quill::tools {
namespace {

constexpr std::string_view kAddSlide =
    "set oSlide = ActivePresentation.Slides.AddSlide %d, "
    "ActivePresentation.SlideMaster.CustomLayouts.Item(6)";

std::string HtmlOf(pugi::xml_node node) {
  std::string html;
  content::AppendXml(html, node);
  return html;
}

bool HasContent(pugi::xml_node paragraph) {
  if (content::FindElementNamed(paragraph, "img")) return true;
  const std::string text = MConvert2Ppt::GetPlainTextForPPT(HtmlOf(paragraph));
  return !MConvert2Ppt::IsEmptyParagraph(content::TrimWhite(text));
}

/// Comments, instructions and the white space between elements.
bool IsBetweenBlocks(pugi::xml_node node) {
  if (node.type() == pugi::node_element) return false;
  if (node.type() != pugi::node_pcdata && node.type() != pugi::node_cdata) return true;
  return content::TrimWhite(node.value()).empty();
}

}  // namespace

SlidesStep MConvert2Ppt::Run(const content::WorkingDocument& document) {
  m_SlideIndex = 1;
  if (content::FindText(document.Xml(), "<h1") == std::string::npos) return SlidesStep::SayNoHeading;
  return content::FindElementNamed(document.tree(), "h1") ? SlidesStep::RunScript : SlidesStep::Nothing;
}

std::optional<SlideHeading> MConvert2Ppt::Run_Heading1(pugi::xml_node element) {
  const pugi::xml_node heading = content::FirstChildElementNamed(element, "h1");
  if (!heading) return std::nullopt;
  SlideHeading slide{GetPlainTextForPPT(HtmlOf(heading)), CountBlocks(heading)};
  AppendScriptF(kAddSlide, ++m_SlideIndex);
  return slide;
}

std::int64_t MConvert2Ppt::CountBlocks(pugi::xml_node heading) {
  std::int64_t blocks = 0;
  bool isRunOpen = false;
  for (pugi::xml_node node = heading.next_sibling(); node && !IsHeading1(node); node = node.next_sibling()) {
    if (IsBetweenBlocks(node)) continue;
    if (std::string_view(node.name()) != "p") {
      ++blocks;
    } else if (HasContent(node)) {
      isRunOpen = true;
    } else if (isRunOpen) {
      ++blocks;
      isRunOpen = false;
    }
  }
  return isRunOpen ? blocks + 1 : blocks;
}

bool MConvert2Ppt::IsHeading1(pugi::xml_node node) {
  return node.type() == pugi::node_element && std::string_view(node.name()) == "h1";
}

std::string MConvert2Ppt::GetPlainTextForPPT(std::string_view html) {
  std::string text = content::DecodeBasicEntities(content::StripTags(html));
  content::ReplaceAllWithin(text, "    ", "");
  content::ReplaceAllWithin(text, "\n", "");
  return text;
}

void MConvert2Ppt::AppendScript(std::string_view line) {
  if (!m_PPTScript.empty()) m_PPTScript += '\n';
  m_PPTScript += line;
}

void MConvert2Ppt::AppendScriptF(std::string_view format, std::int64_t value) {
  const std::size_t at = format.find("%d");
  if (at == std::string_view::npos) return AppendScript(format);
  AppendScript(fmt::format("{}{}{}", format.substr(0, at), value, format.substr(at + 2)));
}

}  // namespace quill::tools
