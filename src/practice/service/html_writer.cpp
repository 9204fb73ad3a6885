#include "practice/service/html_writer.h"

#include <algorithm>

#include "content/unicode_text.h"
#include "content/xml_chars.h"
#include "practice/service/page_elements.h"

namespace quill::practice {
namespace {

using std::string_view;

/// How a character is written where that is not itself.
string_view Escape(char32_t code, bool inAttribute) {
  switch (code) {
    case U'&':
      return "&amp;";
    case U'<':
      return "&lt;";
    case U'>':
      return "&gt;";
    case U'"':
      return inAttribute ? "&quot;" : "";
    case U'\n':
      return inAttribute ? "&#10;" : "";
    case U'\t':
      return inAttribute ? "&#9;" : "";
    case U'\r':
      return "&#13;";
    case U'\u00A0':
      return "&nbsp;";
    default:
      return "";
  }
}

void AppendEscaped(std::string& out, string_view text, bool inAttribute) {
  for (std::size_t at = 0; at < text.size();) {
    const content::DecodedChar character = content::DecodeUtf8(text, at);
    const std::size_t length = std::max<std::size_t>(character.length, 1);
    if (const string_view escape = Escape(character.code, inAttribute); !escape.empty()) {
      out += escape;
    } else if (character.length == 0) {
      out += "\xEF\xBF\xBD";
    } else if (content::IsXmlChar(character.code)) {
      out += text.substr(at, length);
    }
    at += length;
  }
}

void AppendNode(std::string& out, pugi::xml_node node) {
  if (node.type() == pugi::node_pcdata) return AppendText(out, node.value());
  out.append("<").append(node.name());
  for (const pugi::xml_attribute attribute : node.attributes()) {
    AppendAttribute(out, attribute.name(), attribute.value());
  }
  out += '>';
  if (IsVoidElement(node.name())) return;
  for (const pugi::xml_node child : node.children()) AppendNode(out, child);
  out.append("</").append(node.name()).append(">");
}

}  // namespace

void AppendText(std::string& out, string_view text) {
  AppendEscaped(out, text, false);
}

void AppendAttribute(std::string& out, string_view name, string_view value) {
  out.append(" ").append(name).append("=\"");
  AppendEscaped(out, value, true);
  out += '"';
}

std::string PageHtml(pugi::xml_node parent) {
  std::string html;
  for (const pugi::xml_node child : parent.children()) AppendNode(html, child);
  return html;
}

}  // namespace quill::practice
