#pragma once
#include <array>
#include <string>
#include <string_view>

namespace quill::test {

/// Pieces of documents, right and wrong ones, that stand close together in meaningful inputs.
// clang-format off
inline constexpr std::array<std::string_view, 96> kXmlPieces = {
    "<p>", "</p>", "<br/>", "<a b='c'>", "</a>", "<a:b>", "</a:b>", "<x:y:z>", "</x:y:z>", "<a:b:1>",
    " a='1'", " a=\"2\"", " b = 'x'", " c='1'd='2'", " xmlns:o='u'", " xmlns=''", " o:p='q'", " :a=''",
    " a:=''", " a::b=''", "&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&nbsp;", "&", "&;", "&#65;",
    "&#x41;", "&#X41;", "&#0;", "&#xD800;", "&#xFFFE;", "&#x10FFFF;", "&#x110000;", "&#99999999999;", "&#;",
    "&#x;", "&#9;", "<!--", "-->", "--", "--->", "<!-- c -->", "<![CDATA[", "]]>", "]]", "]", ">", "<",
    "/>", "/", "'", "\"", "=", " ", "\t", "\n", "\r\n", "<?", "?>", "<?pi x?>", "<?a:b?>",
    "<?xml version='1.0'?>", "<?xml-s?>", "<?XML?>", "text", "\xC2\xA0", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80",
    "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xED\xA0\x80", "\xC0\x80", "\xFF", "\x01", "\x7F", "\xC2\x85",
    "\xEF\xBB\xBF", "\xCC\x80", "\xC3\x97", "\xC3\xA9", "<\xC3\xA9>", "</\xC3\xA9>", "<_.-9>", "</_.-9>",
    "<9>", "<!DOCTYPE p>", "<p/>", "<a b=c>", "</p >", "<p\n>", "</ p>", "<-", " encoding='utf-8'"};
// clang-format on

/// The same for clipboard fragments: what the normaliser looks for, whole and in parts.
// clang-format off
inline constexpr std::array<std::string_view, 64> kHtmlPieces = {
    "<br", "<BR", "<br>", "<br/>", "<br />", "<br\xC2\xA0/>", "<img", "<Img", "<img width=5>", "alt=",
    "ALT=", "alt=\"", "Alt=\"\"", "alt", "lt=\"", "type=", "border=", "cellpadding=", "cellspacing=",
    "valign=", "xml:lang=", "WIDTH=", "height=", "value=", "cols=", "rowspan=", "colspan=", "style='",
    "&=;", "&=", ";", "&nbsp;", "&nb", "sp;", "\xC2\xA0", "\xE3\x80\x80", "\xE4\xB8\xAD", "<![if ", "<![i",
    "f ", "<![endif]>", "!supportLists]>", "endif]>", ">", ">", "<", "/", "/>", "=", "\"", "\"", "'", " ",
    " ", "\t", "\r\n", "\v", "x", "5", "\"a=b\"", "<p>", "</p>", "<td width=50 valign=top>", "</quillText>"};
// clang-format on

/// Text grown from bytes: a byte below the number of pieces is one of them, others stand for themselves.
template <std::size_t kCount>
std::string Grow(std::string_view seed, const std::array<std::string_view, kCount>& pieces) {
  std::string text;
  for (const char c : seed) {
    const auto index = static_cast<unsigned char>(c);
    if (index < kCount) {
      text += pieces[index];
    } else {
      text += static_cast<char>(index < 0xC0 ? index & 0x7F : index);
    }
  }
  return text;
}

inline std::string GrowFragment(std::string_view seed) {
  return Grow(seed, kHtmlPieces);
}

/// The first byte chooses whether the document is wrapped in a root element.
inline std::string GrowDocument(std::string_view seed) {
  const bool isWrapped = !seed.empty() && (static_cast<unsigned char>(seed.front()) & 3) != 0;
  const std::string body = Grow(seed.substr(seed.empty() ? 0 : 1), kXmlPieces);
  return isWrapped ? "<?xml version=\"1.0\"?><quillText>" + body + "</quillText>" : body;
}

}  // namespace quill::test
