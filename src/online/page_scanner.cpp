#include "online/page_scanner.h"

#include <algorithm>

#include "content/entities.h"
#include "content/xml_chars.h"
#include "content/xml_strictness.h"
#include "online/protected_ampersands.h"

namespace quill::online {
namespace {

constexpr std::string_view kCommentStart = "<!--";
constexpr std::string_view kSectionStart = "<![CDATA[";

std::size_t SkipSpace(std::string_view html, std::size_t at) {
  while (at < html.size() && content::IsXmlSpace(html[at])) ++at;
  return at;
}

/// The end of a tag's or an attribute's name.
std::size_t EndOfName(std::string_view html, std::size_t from) {
  std::size_t at = from;
  while (at < html.size() && !content::IsXmlSpace(html[at]) && html[at] != '/' && html[at] != '>' &&
         html[at] != '=')
    ++at;
  return at;
}

}  // namespace

Status<> CheckPageHtml(std::string_view html) {
  const auto fault = content::FindXmlFault(ProtectAmpersands(html));
  if (fault) return Failure{std::string(fault->what)};
  return Done();
}

std::size_t PageScanner::EndAfter(std::string_view mark, std::size_t from) const {
  const std::size_t at = m_html.find(mark, from);
  return at == std::string_view::npos ? m_html.size() : at + mark.size();
}

std::size_t PageScanner::EndOfTag(std::size_t from) const {
  for (std::size_t at = from; at < m_html.size();) {
    const char c = m_html[at++];
    if (c == '>') return at;
    if (c == '"' || c == '\'') at = EndAfter(std::string_view(&c, 1), at);
  }
  return m_html.size();
}

PageToken PageScanner::Next() {
  using Kind = PageToken::Kind;
  const std::size_t begin = m_at;
  if (begin >= m_html.size()) return {};
  const std::string_view rest = m_html.substr(begin);
  PageToken token{Kind::Unseen, {begin, begin}, {}};
  if (rest.front() != '<') {
    token.kind = Kind::Text;
    m_at = std::min(m_html.find('<', begin), m_html.size());
  } else if (rest.starts_with(kCommentStart)) {
    m_at = EndAfter("-->", begin + kCommentStart.size());
  } else if (rest.starts_with(kSectionStart)) {
    m_at = EndAfter("]]>", begin + kSectionStart.size());
  } else if (rest.starts_with("<?")) {
    m_at = EndAfter("?>", begin);
  } else {
    const bool isEnd = rest.starts_with("</");
    const std::size_t nameAt = begin + (isEnd ? 2 : 1);
    m_at = EndOfTag(nameAt);
    token.name = m_html.substr(nameAt, EndOfName(m_html, nameAt) - nameAt);
    token.kind = isEnd ? Kind::EndTag : m_html[m_at - 2] == '/' ? Kind::EmptyTag : Kind::StartTag;
  }
  token.where.end = m_at;
  return token;
}

std::optional<IdAttribute> FindId(std::string_view html, const PageToken& tag) {
  std::size_t at = tag.where.begin + 1 + tag.name.size();
  while (at < tag.where.end) {
    const std::size_t before = at;
    const std::size_t nameAt = SkipSpace(html, at);
    const std::size_t nameEnd = EndOfName(html, nameAt);
    if (nameEnd == nameAt) break;
    const std::size_t quoteAt = SkipSpace(html, SkipSpace(html, nameEnd) + 1);
    const std::size_t valueEnd = std::min(html.find(html[quoteAt], quoteAt + 1), tag.where.end);
    at = valueEnd + 1;
    if (html.substr(nameAt, nameEnd - nameAt) != "id") continue;
    const std::string_view value = html.substr(quoteAt + 1, valueEnd - quoteAt - 1);
    return IdAttribute{{before, at}, content::DecodeHtmlEntities(value)};
  }
  return std::nullopt;
}

}  // namespace quill::online
