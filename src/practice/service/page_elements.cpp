#include "practice/service/page_elements.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

#include "content/find_text.h"

namespace quill::practice {
namespace {

using std::string_view;

// Rows stand directly in their table, so the groups of rows are not among them.
constexpr string_view kKept[] = {"p",      "h1",     "h2",  "h3",  "h4",  "h5",    "h6",         "pre",
                                 "span",   "a",      "img", "br",  "hr",  "table", "tr",         "td",
                                 "th",     "ul",     "ol",  "li",  "b",   "i",     "u",          "s",
                                 "strike", "strong", "em",  "sub", "sup", "code",  "blockquote", "div"};
constexpr string_view kDropped[] = {
    "script", "style",    "iframe", "frame", "frameset", "object", "embed",  "applet", "template", "noscript",
    "svg",    "math",     "video",  "audio", "source",   "track",  "canvas", "form",   "input",    "button",
    "select", "textarea", "link",   "meta",  "base",     "title",  "head",   "dialog", "portal",   "slot"};
constexpr string_view kAttributes[] = {
    "style",  "data-tag", "data-id", "href",    "src",         "alt",         "width",
    "height", "title",    "summary", "border",  "cellpadding", "cellspacing", "valign",
    "type",   "lang",     "rowspan", "colspan", "align",       "bgcolor",     "start"};
constexpr string_view kLinkSchemes[] = {"http:", "https:", "onenote:", "mailto:", "qvar:", "file:", "tel:"};
constexpr string_view kPictureSources[] = {"data:image/png;",
                                           "data:image/jpg;",
                                           "data:image/jpeg;",
                                           "data:image/gif;",
                                           "data:image/webp;",
                                           "data:image/bmp;",
                                           "file:",
                                           "http:",
                                           "https:"};
constexpr string_view kActiveStyles[] = {"\\",        "/*",         "url(", "image(",
                                         "image-set", "expression", "@",    "position:"};
constexpr string_view kVoid[] = {"br", "hr", "img"};
constexpr string_view kBlocks[] = {"p",  "h1", "h2", "h3", "h4", "h5",    "h6", "pre", "li",
                                   "td", "th", "ul", "ol", "tr", "table", "hr", "div", "blockquote"};
constexpr string_view kHolders[] = {"body", "div", "td", "th", "li", "blockquote"};

template <class Names>
bool Has(const Names& names, string_view name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/// Without blanks and control characters, in lower case: neither keeps an address or a style from being
/// understood.
std::string Bare(string_view text) {
  std::string bare;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20) bare += byte < 0x80 ? static_cast<char>(std::tolower(byte)) : c;
  }
  return bare;
}

template <class Starts>
bool StartsWithOne(string_view value, const Starts& starts) {
  const std::string bare = Bare(value.substr(0, 256));
  return std::any_of(std::begin(starts), std::end(starts),
                     [&](string_view start) { return bare.starts_with(start); });
}

bool IsActiveStyle(string_view value) {
  const std::string bare = Bare(value);
  return std::any_of(std::begin(kActiveStyles), std::end(kActiveStyles), [&](string_view active) {
    return content::FindText(bare, active) != string_view::npos;
  });
}

}  // namespace

ElementUse UseOf(string_view name) {
  if (Has(kKept, name)) return ElementUse::Keep;
  return Has(kDropped, name) ? ElementUse::Drop : ElementUse::Unwrap;
}

bool KeepsAttribute(string_view element, string_view name, string_view value) {
  if (!Has(kAttributes, name)) return false;
  if (name == "href") return element == "a" && StartsWithOne(value, kLinkSchemes);
  if (name == "src") return element == "img" && StartsWithOne(value, kPictureSources);
  if (name == "style") return !IsActiveStyle(value);
  return name != "data-id" || value != "_default";
}

bool IsVoidElement(string_view name) {
  return Has(kVoid, name);
}

bool IsBlockElement(string_view name) {
  return Has(kBlocks, name);
}

bool HoldsBlocks(string_view name) {
  return Has(kHolders, name);
}

}  // namespace quill::practice
