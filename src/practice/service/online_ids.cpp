#include "practice/service/online_ids.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

#include "content/text_between.h"
#include "practice/guid_hash.h"
#include "practice/service/html_reader.h"

namespace quill::practice {
namespace {

using std::string_view;

constexpr std::pair<string_view, string_view> kNames[] = {
    {"p", "p"},   {"pre", "p"}, {"h1", "h1"}, {"h2", "h2"},   {"h3", "h3"},  {"h4", "h4"},
    {"h5", "h5"}, {"h6", "h6"}, {"ul", "ul"}, {"ol", "ol"},   {"li", "li"},  {"table", "table"},
    {"tr", "tr"}, {"td", "td"}, {"th", "td"}, {"img", "img"}, {"div", "div"}};

/// The next node in document order below `root`; null at the end.
pugi::xml_node NextNode(pugi::xml_node node, pugi::xml_node root) {
  if (node.first_child()) return node.first_child();
  while (node != root && !node.next_sibling()) node = node.parent();
  return node == root ? pugi::xml_node() : node.next_sibling();
}

/// Appends a text without its spacing, of which editors change the kind and the amount.
void AppendBare(std::string& out, string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isNoBreakSpace = text.substr(i).starts_with("\xC2\xA0");
    if (byte > ' ' && !isNoBreakSpace) out += text[i];
    if (isNoBreakSpace) ++i;
  }
}

std::string BareText(pugi::xml_node element) {
  std::string text;
  for (pugi::xml_node node = element; node; node = NextNode(node, element)) {
    if (node.type() == pugi::node_pcdata) AppendBare(text, node.value());
    if (string_view(node.name()) == "img")
      text.append("\n").append(node.attribute("src").value()).append("\n");
  }
  return text;
}

std::string UpperCase(string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return upper;
}

}  // namespace

string_view OnlineName(string_view name) {
  const auto* const row = std::find_if(std::begin(kNames), std::end(kNames),
                                       [&](const auto& entry) { return entry.first == name; });
  return row == std::end(kNames) ? string_view() : row->second;
}

OnlineIds::OnlineIds(const LibraryContent& content, string_view pageGuid, pugi::xml_node body)
    : m_guidOfAll(GuidOf({pageGuid, "all"})),
      m_number(std::to_string(HashOf({content.title, content.body}).low & 0x7FFFFFFF)) {
  std::map<std::string, int> seen;
  for (pugi::xml_node node = body; node; node = NextNode(node, body)) {
    const string_view kind = OnlineName(node.name());
    if (kind.empty()) continue;
    const std::string first = GuidOf({pageGuid, kind, BareText(node)});
    const int before = seen[first]++;
    m_elements.push_back({node, before == 0 ? first : GuidOf({first, std::to_string(before)})});
  }
}

std::string OnlineIds::WithNumber(string_view kind, string_view guid) const {
  return fmt::format("{}:{}{{{}}}", kind, guid, m_number);
}

std::string OnlineIds::IdOf(const ElementWithId& element) const {
  return WithNumber(OnlineName(element.element.name()), element.guid);
}

std::string OnlineIds::IdOfAll() const {
  return WithNumber("div", m_guidOfAll);
}

std::optional<std::size_t> ParagraphOfObjectId(const LibraryContent& content, string_view pageGuid,
                                               string_view objectId) {
  pugi::xml_document document;
  const pugi::xml_node body = document.append_child("body");
  if (!AppendHtml(body, content.body).ok()) return std::nullopt;
  const OnlineIds ids(content, pageGuid, body);
  const std::string wanted = UpperCase("{" + std::string(content::TextBetween(objectId, "{", "}")) + "}");
  const auto found = std::find_if(ids.Elements().begin(), ids.Elements().end(),
                                  [&](const ElementWithId& element) { return element.guid == wanted; });
  if (found == ids.Elements().end()) return std::nullopt;
  return static_cast<std::size_t>(found - ids.Elements().begin());
}

}  // namespace quill::practice
