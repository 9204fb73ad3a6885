#pragma once
#include <span>
#include <string>
#include <string_view>

namespace quill::tools {

/// Stands in a construct where something is to be written; the first one takes what was selected.
inline constexpr std::string_view kPlaceholder = "□";

/// One construct that can be put into a formula.
struct EquationConstruct {
  std::string_view glyph;  ///< what it looks like, for a button; plain Unicode
  std::string_view latex;  ///< with `kPlaceholder` where something belongs; also what a screen reader says
};

/// Constructs that belong together, under a title from the string table.
struct EquationGroup {
  std::string_view titleKey;
  std::span<const EquationConstruct> constructs;
};

/// All groups, the most used first.
std::span<const EquationGroup> EquationPalette();

/// A construct put in: the text before, the text to be selected then, and the text behind it.
struct PlacedConstruct {
  std::string before;
  std::string selected;  ///< the next placeholder, or "" when the caret just goes there
  std::string after;
};

/// Puts `selection` into the construct's first placeholder; what is selected then is the next placeholder,
/// or, with an empty selection, the first. A construct without a placeholder replaces the selection, and a
/// blank follows a command that ends in a letter so that a letter typed next does not become part of its
/// name.
PlacedConstruct Place(const EquationConstruct& construct, std::string_view selection);

}  // namespace quill::tools
