#pragma once
#include <string_view>

namespace quill::practice {

/// What a practice page does with an element of some HTML, as the page's own script does when it shows it.
enum class ElementUse {
  Keep,
  Unwrap,  ///< what it holds takes its place
  Drop     ///< goes with all that it holds
};
ElementUse UseOf(std::string_view name);

/// Whether a practice page keeps an attribute: nothing that runs, loads something unasked, or leaves the
/// page's flow.
bool KeepsAttribute(std::string_view element, std::string_view name, std::string_view value);

/// Elements without content.
bool IsVoidElement(std::string_view name);

/// Elements that stand below each other, not in a line of text.
bool IsBlockElement(std::string_view name);

/// Blocks that may hold other blocks, as a paragraph may not.
bool HoldsBlocks(std::string_view name);

}  // namespace quill::practice
