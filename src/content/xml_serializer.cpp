#include "content/xml_serializer.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "content/byte_scan.h"
#include "content/find_text.h"
#include "content/text_sink.h"

namespace quill::content {
namespace {

constexpr std::string_view kVoidElements[] = {"area",  "base", "br",   "col",   "embed",  "hr",    "img",
                                              "input", "link", "meta", "param", "source", "track", "wbr"};

bool IsVoid(std::string_view name) {
  return std::any_of(std::begin(kVoidElements), std::end(kVoidElements), [name](std::string_view element) {
    return element.size() == name.size() && FindIgnoringAsciiCase(name, element) == 0;
  });
}

std::string_view ReferenceFor(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return "&#13;";
  }
}

template <char... kEscaped>
void AppendEscaped(TextSink& out, std::string_view value) {
  std::size_t copied = 0;
  for (;;) {
    const std::size_t at = FindByte<kEscaped...>(value, copied);
    out.Append(value.substr(copied, at - copied));
    if (at == value.size()) return;
    out.Append(ReferenceFor(value[at]));
    copied = at + 1;
  }
}

void AppendAttributes(TextSink& out, pugi::xml_node node) {
  for (pugi::xml_attribute attribute = node.first_attribute(); !attribute.empty();
       attribute = attribute.next_attribute()) {
    out.Append(' ');
    out.AppendShort(attribute.name());
    out.Append("=\"");
    AppendEscaped<'&', '<', '"', '\t', '\n', '\r'>(out, attribute.value());
    out.Append('"');
  }
}

void AppendEndTag(TextSink& out, const char* name) {
  out.Append("</");
  out.AppendShort(name);
  out.Append('>');
}

/// The start tag, and the end as well when there is nothing between.
void AppendElement(TextSink& out, pugi::xml_node node, bool isEmpty) {
  const char* const name = node.name();
  out.Append('<');
  out.AppendShort(name);
  AppendAttributes(out, node);
  if (isEmpty && IsVoid(name)) {
    out.Append("/>");
    return;
  }
  out.Append('>');
  if (isEmpty) AppendEndTag(out, name);
}

void AppendInstruction(TextSink& out, pugi::xml_node node) {
  const std::string_view value = node.value();
  out.Append("<?");
  out.Append(node.name());
  if (!value.empty()) out.Append(' ');
  out.Append(value);
  out.Append("?>");
}

void AppendEnclosed(TextSink& out, std::string_view before, std::string_view value, std::string_view after) {
  out.Append(before);
  out.Append(value);
  out.Append(after);
}

/// What comes before a node's children; all of it when there are none.
void AppendOpening(TextSink& out, pugi::xml_node node, bool isEmpty) {
  switch (node.type()) {
    case pugi::node_element:
      AppendElement(out, node, isEmpty);
      break;
    case pugi::node_pcdata:
      AppendEscaped<'&', '<', '>', '\r'>(out, node.value());
      break;
    case pugi::node_cdata:
      AppendEnclosed(out, "<![CDATA[", node.value(), "]]>");
      break;
    case pugi::node_comment:
      AppendEnclosed(out, "<!--", node.value(), "-->");
      break;
    case pugi::node_pi:
      AppendInstruction(out, node);
      break;
    default:
      break;
  }
}

void AppendTree(TextSink& out, pugi::xml_node top) {
  pugi::xml_node node = top;
  for (std::size_t depth = 0;;) {
    const pugi::xml_node child = node.first_child();
    const bool isEmpty = child.empty();
    AppendOpening(out, node, isEmpty);
    if (!isEmpty) {
      node = child;
      ++depth;
      continue;
    }
    pugi::xml_node next;
    while (depth > 0 && (next = node.next_sibling()).empty()) {
      node = node.parent();
      --depth;
      if (node.type() == pugi::node_element) AppendEndTag(out, node.name());
    }
    if (depth == 0) return;
    node = next;
  }
}

}  // namespace

void AppendXml(std::string& out, pugi::xml_node node) {
  constexpr std::size_t kUsual = 256;
  TextSink sink(out, kUsual);
  AppendTree(sink, node);
}

std::string SerializeDocument(const pugi::xml_document& document, std::size_t expectedSize) {
  std::string xml = "<?xml version=\"1.0\"?>";
  {
    TextSink sink(xml, expectedSize);
    AppendTree(sink, document);
  }
  return xml;
}

}  // namespace quill::content
