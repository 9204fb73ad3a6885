#include "content/element_lookup.h"

namespace quill::content {
namespace {

bool IsElementNamed(pugi::xml_node node, std::string_view name) {
  return node.type() == pugi::node_element && name == node.name();
}

/// The node after `node` in document order without leaving `top`, or a null node.
pugi::xml_node NextInSubtree(pugi::xml_node node, pugi::xml_node top) {
  if (node.first_child()) return node.first_child();
  while (node != top && !node.next_sibling()) node = node.parent();
  return node == top ? pugi::xml_node() : node.next_sibling();
}

}  // namespace

pugi::xml_node FirstChildElementNamed(pugi::xml_node element, std::string_view name) {
  for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
    if (IsElementNamed(child, name)) return child;
  }
  return {};
}

pugi::xml_node FindElementNamed(pugi::xml_node element, std::string_view name) {
  if (!element) return {};
  for (pugi::xml_node node = NextInSubtree(element, element); node; node = NextInSubtree(node, element)) {
    if (IsElementNamed(node, name)) return node;
  }
  return {};
}

std::int64_t CountChildElementsNamed(pugi::xml_node element, std::string_view name) {
  std::int64_t count = 0;
  for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
    count += IsElementNamed(child, name) ? 1 : 0;
  }
  return count;
}

}  // namespace quill::content
