#include "online/block_text.h"

#include <algorithm>

#include "content/latin1_names.h"
#include "content/unicode_text.h"
#include "content/xml_chars.h"

namespace quill::online {
namespace {

struct NamedChar {
  std::string_view name;
  char32_t code;
};

constexpr NamedChar kNames[] = {
    {"amp", U'&'},      {"lt", U'<'},       {"gt", U'>'},       {"quot", U'"'},     {"apos", U'\''},
    {"ndash", 0x2013},  {"mdash", 0x2014},  {"lsquo", 0x2018},  {"rsquo", 0x2019},  {"sbquo", 0x201A},
    {"ldquo", 0x201C},  {"rdquo", 0x201D},  {"bdquo", 0x201E},  {"bull", 0x2022},   {"hellip", 0x2026},
    {"dagger", 0x2020}, {"permil", 0x2030}, {"prime", 0x2032},  {"Prime", 0x2033},  {"lsaquo", 0x2039},
    {"rsaquo", 0x203A}, {"euro", 0x20AC},   {"trade", 0x2122},  {"larr", 0x2190},   {"uarr", 0x2191},
    {"rarr", 0x2192},   {"darr", 0x2193},   {"harr", 0x2194},   {"minus", 0x2212},  {"ne", 0x2260},
    {"le", 0x2264},     {"ge", 0x2265},     {"asymp", 0x2248},  {"infin", 0x221E},  {"ensp", 0x2002},
    {"emsp", 0x2003},   {"thinsp", 0x2009}, {"zwnj", 0x200C},   {"zwj", 0x200D},    {"check", 0x2713},
    {"OElig", 0x0152},  {"oelig", 0x0153},  {"Scaron", 0x0160}, {"scaron", 0x0161}, {"Yuml", 0x0178},
};

bool IsDigit(char c, bool isHex) {
  return (c >= '0' && c <= '9') || (isHex && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F')));
}

bool IsNameChar(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

unsigned DigitValue(char c) {
  return static_cast<unsigned>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
}

/// What browsers read as a number of another character set is left alone like what is no character.
bool IsPlainCode(char32_t code) {
  return content::IsXmlChar(code) && !(code >= 0x80 && code < 0xA0);
}

/// From "&#" on.
PageReference ReadNumber(std::string_view text) {
  const bool isHex = text.size() > 2 && (text[2] | 0x20) == 'x';
  const std::size_t digits = isHex ? 3 : 2;
  std::size_t at = digits;
  char32_t code = 0;
  for (; at < text.size() && IsDigit(text[at], isHex); ++at)
    code = std::min<char32_t>(code * (isHex ? 16 : 10) + DigitValue(text[at]), kUnknownChar);
  if (at == digits) return {U'&', 1};
  if (at == text.size() || text[at] != ';') return {kUnknownChar, at};
  return {IsPlainCode(code) ? code : kUnknownChar, at + 1};
}

}  // namespace

PageReference ReadReference(std::string_view text) {
  if (text.size() > 1 && text[1] == '#') return ReadNumber(text);
  const content::Latin1Match match = content::MatchLatin1Name(text.substr(1));
  if (match.length > 0) return {match.code, match.length + 1};
  std::size_t end = 1;
  while (end < text.size() && IsNameChar(text[end])) ++end;
  if (end == 1 || end == text.size() || text[end] != ';') return {U'&', 1};
  const auto* row = std::ranges::find(kNames, text.substr(1, end - 1), &NamedChar::name);
  return {row == std::end(kNames) ? kUnknownChar : row->code, end + 1};
}

void BlockText::Append(std::string_view html, SourceRange range) {
  const std::string_view text = html.substr(0, range.end);
  for (std::size_t at = range.begin; at < range.end;) {
    PageReference read;
    if (text[at] == '&') {
      read = ReadReference(text.substr(at));
    } else {
      const content::DecodedChar c = content::DecodeUtf8(text, at);
      read = c.length == 0 ? PageReference{kUnknownChar, 1} : PageReference{c.code, c.length};
    }
    const SourceRange where = {at, at + read.length};
    const bool isSpace = read.code < 0x80 && content::IsXmlSpace(static_cast<char>(read.code));
    if (isSpace) {
      AddSpace(where);
    } else {
      AddChar(read.code, where);
    }
    at = where.end;
  }
}

void BlockText::AddChar(char32_t code, SourceRange where) {
  m_codes += code;
  m_firstRange.push_back(m_ranges.size());
  m_ranges.push_back(where);
}

/// White space behind a blank is a part of that blank: it must not come to light when the blank goes.
void BlockText::AddSpace(SourceRange where) {
  if (m_codes.empty()) return;
  if (m_codes.back() != U' ') {
    AddChar(U' ', where);
  } else if (m_ranges.back().end == where.begin) {
    m_ranges.back().end = where.end;
  } else {
    m_ranges.push_back(where);
  }
}

void BlockText::Finish() {
  if (m_codes.empty() || m_codes.back() != U' ') return;
  m_ranges.resize(m_firstRange.back());
  m_firstRange.pop_back();
  m_codes.pop_back();
}

void BlockText::Clear() {
  m_codes.clear();
  m_firstRange.clear();
  m_ranges.clear();
}

std::vector<SourceRange> BlockText::RangesOf(std::size_t first, std::size_t last) const {
  const std::size_t end = last < m_firstRange.size() ? m_firstRange[last] : m_ranges.size();
  std::vector<SourceRange> joined;
  for (std::size_t i = m_firstRange[first]; i < end; ++i) {
    if (!joined.empty() && joined.back().end == m_ranges[i].begin) {
      joined.back().end = m_ranges[i].end;
    } else {
      joined.push_back(m_ranges[i]);
    }
  }
  return joined;
}

}  // namespace quill::online
