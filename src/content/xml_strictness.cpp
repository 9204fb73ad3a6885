#include "content/xml_strictness.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "content/byte_scan.h"
#include "content/duplicate_names.h"
#include "content/find_text.h"
#include "content/xml_chars.h"
#include "content/xml_declaration.h"

namespace quill::content {
namespace {

using std::string_view;

constexpr string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Reads a document once, from left to right, keeping the names of the open elements. Every step returns
/// whether it went well; the first that does not has noted the fault.
class XmlChecker {
 public:
  explicit XmlChecker(string_view xml) : m_text(xml), m_scanner(xml) {}

  XmlCheck Run() {
    Document();
    return m_check;
  }

 private:
  bool Document();
  bool Miscellany();
  bool Content();
  bool Markup();
  bool StartTag();
  bool Attribute();
  bool AttributeValue();
  bool NoDuplicates();
  bool EndTag();
  bool Reference();
  bool CharacterReference();
  bool Comment();
  bool CDataSection();
  bool ProcessingInstruction();

  bool Fault(string_view what, std::size_t offset) {
    m_check.fault = XmlFault{what, std::min(offset, m_text.size())};
    return false;
  }
  /// The byte at `at`, 0 past the end (the text itself holds no zero byte).
  char Peek(std::size_t at) const { return at < m_text.size() ? m_text[at] : '\0'; }
  bool HasAt(std::size_t at, string_view prefix) const {
    return m_text.size() - at >= prefix.size() && m_text.compare(at, prefix.size(), prefix) == 0;
  }
  /// The same for names, which are too short for the call that comparing texts takes.
  bool HasNameAt(std::size_t at, string_view name) const {
    if (m_text.size() - at < name.size()) return false;
    std::size_t same = 0;
    while (same < name.size() && m_text[at + same] == name[same]) ++same;
    return same == name.size();
  }
  void SkipSpace() {
    while (IsXmlSpace(Peek(m_at))) ++m_at;
  }

  string_view m_text;
  ByteScanner<'<', '&', ']', '"', '\''> m_scanner;
  std::size_t m_at = 0;
  std::vector<string_view> m_open;
  std::vector<string_view> m_attributes;
  XmlCheck m_check;
};

bool XmlChecker::Document() {
  if (const std::size_t bad = FindForbiddenChar(m_text); bad != string_view::npos) {
    return Fault("a character that XML does not allow, or bytes that are not UTF-8", bad);
  }
  if (m_text.starts_with(kByteOrderMark)) m_at = kByteOrderMark.size();
  const std::size_t declaration = FindXmlDeclarationEnd(m_text.substr(m_at));
  if (declaration == string_view::npos) return Fault("a malformed XML declaration", m_at);
  m_at += declaration;
  if (!Miscellany()) return false;
  if (Peek(m_at) != '<') return Fault("no root element", m_at);
  if (!StartTag() || !Content() || !Miscellany()) return false;
  return m_at == m_text.size() || Fault("something after the root element", m_at);
}

/// White space, comments and processing instructions around the root.
bool XmlChecker::Miscellany() {
  for (;;) {
    SkipSpace();
    if (HasAt(m_at, "<!--")) {
      if (!Comment()) return false;
    } else if (HasAt(m_at, "<?")) {
      if (!ProcessingInstruction()) return false;
    } else {
      return true;
    }
  }
}

/// What stands in the root, up to its end tag.
bool XmlChecker::Content() {
  while (!m_open.empty()) {
    m_at = m_scanner.Next(m_at);
    switch (Peek(m_at)) {
      case '\0':
        return Fault("an element that is not closed", m_at);
      case '<':
        if (!Markup()) return false;
        break;
      case '&':
        if (!Reference()) return false;
        break;
      case ']':
        if (HasAt(m_at, "]]>")) return Fault("\"]]>\" in text", m_at);
        ++m_at;
        break;
      default:
        ++m_at;
    }
  }
  return true;
}

bool XmlChecker::Markup() {
  switch (Peek(m_at + 1)) {
    case '/':
      return EndTag();
    case '?':
      return ProcessingInstruction();
    case '!':
      if (HasAt(m_at, "<!--")) return Comment();
      if (HasAt(m_at, "<![CDATA[")) return CDataSection();
      return Fault("\"<!\" that begins neither a comment nor a CDATA section", m_at);
    default:
      return StartTag();
  }
}

bool XmlChecker::StartTag() {
  const std::size_t end = FindQualifiedNameEnd(m_text, m_at + 1);
  const string_view name = m_text.substr(m_at + 1, end - m_at - 1);
  if (name.empty()) return Fault("a \"<\" without an element name", m_at);
  if (m_open.size() >= kMaxElementDepth) return Fault("elements nested too deeply", m_at);
  m_at = end;
  m_attributes.clear();
  for (;;) {
    const std::size_t before = m_at;
    SkipSpace();
    if (Peek(m_at) == '>') {
      ++m_at;
      m_open.push_back(name);
      return NoDuplicates();
    }
    if (Peek(m_at) == '/' && Peek(m_at + 1) == '>') {
      m_at += 2;
      return NoDuplicates();
    }
    if (m_at == before) return Fault("an attribute without white space before it", m_at);
    if (!Attribute()) return false;
  }
}

bool XmlChecker::Attribute() {
  const std::size_t end = FindQualifiedNameEnd(m_text, m_at);
  const string_view name = m_text.substr(m_at, end - m_at);
  if (name.empty()) return Fault("a malformed attribute name", m_at);
  m_attributes.push_back(name);
  m_at = end;
  SkipSpace();
  if (Peek(m_at) != '=') return Fault("an attribute without a value", m_at);
  ++m_at;
  SkipSpace();
  return AttributeValue();
}

bool XmlChecker::AttributeValue() {
  const char quote = Peek(m_at);
  if (quote != '"' && quote != '\'') return Fault("an attribute value without quotes", m_at);
  ++m_at;
  for (;;) {
    m_at = m_scanner.Next(m_at);
    const char c = Peek(m_at);
    if (c == quote) {
      ++m_at;
      return true;
    }
    if (c == '<' || c == '\0') return Fault("\"<\" or the text's end in an attribute value", m_at);
    if (c != '&') {
      ++m_at;
    } else if (!Reference()) {
      return false;
    }
  }
}

bool XmlChecker::NoDuplicates() {
  return m_attributes.size() < 2 || !HasDuplicates(m_attributes) || Fault("an attribute given twice", m_at);
}

bool XmlChecker::EndTag() {
  const string_view name = m_open.back();
  const std::size_t begin = m_at;
  if (!HasNameAt(m_at + 2, name)) return Fault("an end tag that does not match", begin);
  m_at += 2 + name.size();
  SkipSpace();
  if (Peek(m_at) != '>') return Fault("an end tag that does not match", begin);
  ++m_at;
  m_open.pop_back();
  return true;
}

bool XmlChecker::Reference() {
  if (Peek(m_at + 1) == '#') return CharacterReference();
  for (const string_view known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
    if (HasAt(m_at, known)) {
      m_at += known.size();
      return true;
    }
  }
  return Fault("an unknown entity or a bare \"&\"", m_at);
}

bool XmlChecker::CharacterReference() {
  const std::size_t begin = m_at;
  const bool isHex = Peek(m_at + 2) == 'x';
  m_at += isHex ? 3 : 2;
  const std::size_t digits = m_at;
  std::uint32_t code = 0;
  for (int digit; (digit =
                       [&] {
                         const char c = Peek(m_at);
                         if (c >= '0' && c <= '9') return c - '0';
                         const int letter = (c | 0x20) - 'a';
                         return isHex && letter >= 0 && letter < 6 ? letter + 10 : -1;
                       }()) >= 0;
       ++m_at) {
    code = std::min<std::uint32_t>(code * (isHex ? 16 : 10) + static_cast<std::uint32_t>(digit), 0x110000);
  }
  if (m_at == digits || Peek(m_at) != ';' || !IsXmlChar(code))
    return Fault("a malformed character reference", begin);
  ++m_at;
  return true;
}

bool XmlChecker::Comment() {
  const std::size_t dashes = FindText(m_text, "--", m_at + 4);
  if (dashes == string_view::npos || Peek(dashes + 2) != '>') return Fault("a malformed comment", m_at);
  m_at = dashes + 3;
  return true;
}

bool XmlChecker::CDataSection() {
  const std::size_t end = FindText(m_text, "]]>", m_at + 9);
  if (end == string_view::npos) return Fault("a CDATA section that is not closed", m_at);
  m_at = end + 3;
  return true;
}

bool XmlChecker::ProcessingInstruction() {
  const std::size_t nameEnd = FindNameEnd(m_text, m_at + 2);
  const string_view name = m_text.substr(m_at + 2, nameEnd - m_at - 2);
  const bool isXml = name.size() == 3 && FindIgnoringAsciiCase(name, "xml") == 0;
  const std::size_t end = FindText(m_text, "?>", nameEnd);
  const bool isSeparated = end == nameEnd || IsXmlSpace(Peek(nameEnd));
  if (name.empty() || isXml || end == string_view::npos || !isSeparated) {
    return Fault("a malformed processing instruction", m_at);
  }
  m_at = end + 2;
  m_check.hasInstruction = true;
  return true;
}

}  // namespace

std::optional<XmlFault> FindXmlFault(std::string_view xml) {
  return CheckXml(xml).fault;
}

XmlCheck CheckXml(std::string_view xml) {
  return XmlChecker(xml).Run();
}

}  // namespace quill::content
