#pragma once
#include <string>
#include <string_view>

/// The rules of the content room read word by word: one step after the other over the whole text, slow and
/// obvious. The fast code must not differ from them on any input.
namespace quill::oracle {

std::string TextBetween(const std::string& text, const std::string& start, const std::string& end);
std::string HtmlToXml(const std::string& fragment);
std::string XmlToHtml(const std::string& xml);
std::string DecodeHtmlEntities(const std::string& text);
std::string EscapeXmlText(const std::string& text);
std::string DecodeBasicEntities(const std::string& text);
std::string StripTags(const std::string& html);
std::string PercentUnescape(const std::string& text);

/// libxml2's verdict on a document, as the tree needs it: no recovery, no network, no size limits.
bool IsWellFormed(std::string_view xml);

}  // namespace quill::oracle
