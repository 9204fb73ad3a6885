#pragma once
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quill::tools {

inline bool IsElementNamed(pugi::xml_node node, std::string_view name) {
  return node.type() == pugi::node_element && name == node.name();
}

/// The node of this name at or after `node` among its siblings, or a null node: a loop over the direct rows
/// of a table and the direct cells of a row.
inline pugi::xml_node ThisOrNextNamed(pugi::xml_node node, std::string_view name) {
  while (node && !IsElementNamed(node, name)) node = node.next_sibling();
  return node;
}

/// The node that follows `node` and all inside it in document order, without leaving `top`; null at the end.
inline pugi::xml_node NextBehind(pugi::xml_node node, pugi::xml_node top) {
  while (node != top && !node.next_sibling()) node = node.parent();
  return node == top ? pugi::xml_node() : node.next_sibling();
}

/// Appends all text inside the element, CDATA sections included, without its line feeds. Without recursion,
/// O(subtree).
void AppendCellText(std::string& out, pugi::xml_node cell);

}  // namespace quill::tools
