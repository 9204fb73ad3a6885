#include "platform/x11/browser_style.h"

#include <algorithm>

namespace quill::platform::x11 {
namespace {

struct InitialValue {
  std::string_view property;
  std::string_view value;
};

constexpr InitialValue kSaysNothing[] = {
    {"font-variant-ligatures", "normal"},
    {"font-variant-caps", "normal"},
    {"font-variant-alternates", "normal"},
    {"font-variant-numeric", "normal"},
    {"font-variant-east-asian", "normal"},
    {"font-variant-emoji", "normal"},
    {"font-variant-position", "normal"},
    {"letter-spacing", "normal"},
    {"word-spacing", "0px"},
    {"text-indent", "0px"},
    {"text-transform", "none"},
    {"text-decoration-thickness", "initial"},
    {"text-decoration-style", "initial"},
    {"text-decoration-color", "initial"},
    {"text-wrap-mode", "wrap"},
    {"text-wrap-style", "initial"},
    {"white-space", "normal"},
    {"white-space-collapse", "collapse"},
    {"display", "inline !important"},
    {"float", "none"},
};

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlank = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

bool SaysNothing(std::string_view declaration) {
  const std::size_t colon = declaration.find(':');
  if (colon == std::string_view::npos) return Trim(declaration).empty();
  const std::string_view property = Trim(declaration.substr(0, colon));
  const std::string_view value = Trim(declaration.substr(colon + 1));
  if (property.substr(0, 8) == "-webkit-" || property.substr(0, 5) == "-moz-") return true;
  if (property == "orphans" || property == "widows") return true;
  return std::any_of(std::begin(kSaysNothing), std::end(kSaysNothing),
                     [&](const InitialValue& i) { return i.property == property && i.value == value; });
}

/// The length of the declaration at the start: up to a semicolon that is not part of an entity, a string
/// or brackets (a picture's data address holds one).
std::size_t DeclarationLength(std::string_view style) {
  constexpr std::string_view kQuote = "&quot;";
  bool quoted = false;
  char open = 0;
  int brackets = 0;
  for (std::size_t i = 0; i < style.size(); ++i) {
    const char c = style[i];
    if (style.substr(i, kQuote.size()) == kQuote) {
      quoted = !quoted;
      i += kQuote.size() - 1;
    } else if (c == '&') {
      const std::size_t end = style.substr(i, 10).find(';');
      if (end != std::string_view::npos) i += end;
    } else if (open != 0) {
      if (c == open) open = 0;
    } else if (c == '\'' || c == '"') {
      open = c;
    } else if (c == '(') {
      ++brackets;
    } else if (c == ')') {
      --brackets;
    } else if (c == ';' && !quoted && brackets <= 0) {
      return i;
    }
  }
  return style.size();
}

}  // namespace

std::string DropSilentProperties(std::string_view style) {
  std::string kept;
  while (!style.empty()) {
    const std::string_view declaration = style.substr(0, DeclarationLength(style));
    style.remove_prefix(std::min(style.size(), declaration.size() + 1));
    if (SaysNothing(declaration)) continue;
    if (!kept.empty()) kept += "; ";
    kept += Trim(declaration);
  }
  return kept;
}

}  // namespace quill::platform::x11
