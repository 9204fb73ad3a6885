#pragma once
#include <cstdint>
#include <pugixml.hpp>
#include <string_view>

namespace quill::content {

/// The first direct child element of that exact name, or a null node. O(children).
pugi::xml_node FirstChildElementNamed(pugi::xml_node element, std::string_view name);

/// The first element of that exact name below `element`, depth first, parents before children; the element
/// itself does not count. A null node when there is none. Without recursion, O(subtree).
pugi::xml_node FindElementNamed(pugi::xml_node element, std::string_view name);

/// How many direct child elements have that exact name. O(children).
std::int64_t CountChildElementsNamed(pugi::xml_node element, std::string_view name);

}  // namespace quill::content
