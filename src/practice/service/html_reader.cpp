#include "practice/service/html_reader.h"

#include <gumbo.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "practice/service/page_elements.h"

namespace quill::practice {
namespace {

using std::string_view;

constexpr int kDeepest = 500;
/// The parser frees its tree by recursion; a thread's stack holds several times as many levels.
constexpr int kMostOpen = 20'000;

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// More levels than the HTML can have: paragraphs and items are often left open, and count.
int MostLevels(string_view html) {
  int open = 0;
  int most = 0;
  for (std::size_t at = html.find('<'); at != string_view::npos; at = html.find('<', at + 1)) {
    const string_view tag = html.substr(at + 1, 3);
    if (tag.starts_with('/')) {
      open = std::max(0, open - 1);
    } else if (!tag.empty() && IsLetter(tag[0]) && !tag.starts_with("br") && tag != "img") {
      most = std::max(most, ++open);
    }
  }
  return most;
}

struct Destroy {
  void operator()(GumboOutput* output) const { gumbo_destroy_output(&kGumboDefaultOptions, output); }
};

std::string NameOf(const GumboElement& element) {
  if (element.tag != GUMBO_TAG_UNKNOWN) return gumbo_normalized_tagname(element.tag);
  GumboStringPiece name = element.original_tag;
  gumbo_tag_from_original_text(&name);
  return {name.data, name.length};
}

bool HasOwnId(const GumboElement& element) {
  const GumboAttribute* id = gumbo_get_attribute(&element.attributes, "data-id");
  return id != nullptr && KeepsAttribute("div", "data-id", id->value);
}

/// A row of nodes that is being appended, and how far that has come.
struct Row {
  const GumboVector* nodes;
  pugi::xml_node parent;
  int level;
  unsigned next = 0;
};

/// Appends the element, if it is kept. The row of what it holds; none when that is not wanted.
Row AppendElement(const Row& row, const GumboElement& element) {
  const std::string name = NameOf(element);
  const ElementUse use = UseOf(name);
  if (use == ElementUse::Drop) return {nullptr, row.parent, row.level};
  const bool isPlainDiv = name == "div" && !HasOwnId(element);
  if (use == ElementUse::Unwrap || isPlainDiv || row.level > kDeepest) {
    return {&element.children, row.parent, row.level};
  }
  pugi::xml_node parent = row.parent;
  pugi::xml_node kept = parent.append_child(name.c_str());
  for (unsigned i = 0; i < element.attributes.length; ++i) {
    const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[i]);
    if (!KeepsAttribute(name, attribute->name, attribute->value)) continue;
    kept.append_attribute(attribute->name).set_value(attribute->value);
  }
  return {IsVoidElement(name) ? nullptr : &element.children, kept, row.level + 1};
}

/// Without recursion: unwrapped elements may lie deeper than a stack reaches.
void AppendAll(pugi::xml_node parent, const GumboVector& nodes) {
  std::vector<Row> open{{&nodes, parent, 1}};
  while (!open.empty()) {
    Row& row = open.back();
    if (row.next == row.nodes->length) {
      open.pop_back();
      continue;
    }
    const auto* node = static_cast<const GumboNode*>(row.nodes->data[row.next++]);
    if (node->type == GUMBO_NODE_ELEMENT) {
      const Row inside = AppendElement(row, node->v.element);
      if (inside.nodes != nullptr) open.push_back(inside);
    } else if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE ||
               node->type == GUMBO_NODE_CDATA) {
      row.parent.append_child(pugi::node_pcdata).set_value(node->v.text.text);
    }
  }
}

}  // namespace

Status<> AppendHtml(pugi::xml_node parent, string_view html) {
  if (MostLevels(html) > kMostOpen) return Failure{std::string("the HTML is nested too deeply")};
  GumboOptions options = kGumboDefaultOptions;
  options.fragment_context = GUMBO_TAG_BODY;
  options.max_errors = 0;
  const std::unique_ptr<GumboOutput, Destroy> output(
      gumbo_parse_with_options(&options, html.data(), html.size()));
  AppendAll(parent, output->root->v.element.children);
  return Done();
}

}  // namespace quill::practice
