#include "content/fragment_rewriter.h"

#include "content/bare_attributes.h"
#include "content/find_text.h"
#include "content/unicode_text.h"

namespace quill::content {
namespace {

constexpr std::string_view kNbsp = "&nbsp;";
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
constexpr std::string_view kAltMark = "&=;";

/// Whether the tag whose name has just been read is closed at once, blanks aside.
bool IsClosedAtOnce(std::string_view rest) {
  for (DecodedChar c; (c = DecodeUtf8(rest, 0)).length != 0 && IsBlank(c.code);) rest.remove_prefix(c.length);
  return rest.starts_with("/>");
}

}  // namespace

bool EndsInAlt(std::string_view value) {
  return value.ends_with('=') && BareAttributeBefore(value, value.size() - 1) == kAltOrder;
}

FragmentRewriter::FragmentRewriter(std::string_view text, RewriteSteps steps)
    : m_text(text), m_steps(steps), m_scanner(text) {}

std::optional<std::string> FragmentRewriter::Run(std::string_view before, std::string_view after) {
  m_out.reserve(before.size() + m_text.size() + m_text.size() / 16 + after.size());
  m_out.append(before);
  for (std::size_t at = m_scanner.Next(0); at < m_text.size(); at = m_scanner.Next(at + 1)) {
    if (at > m_nextInsertion) FlushBefore(at);
    switch (m_text[at]) {
      case '<':
        AtLess(at);
        break;
      case '=':
        AtEquals(at);
        break;
      default:
        AtAmpersand(at);
        break;
    }
    if (m_mustGoStepwise) return std::nullopt;
  }
  FlushBefore(m_text.size());
  if (m_isInterlocked && m_altHasEquals) return std::nullopt;
  CopyUpTo(m_text.size());
  m_out.append(after);
  return std::move(m_out);
}

void FragmentRewriter::AtEquals(std::size_t at) {
  if (at < m_altEnd) {
    m_altHasEquals = true;
    return;
  }
  const int order = BareAttributeBefore(m_text, at);
  if (order < 0) return;
  if (order == kAltOrder && m_steps.protectAlt) ProtectAlt(at);
  if (!m_steps.quoteValues || !EnterToken(at)) return;
  const std::uint32_t bit = 1u << order;
  if ((m_seen & bit) != 0) return;
  m_seen |= bit;
  if (IsBare(at, order)) Quote(at, order);
}

void FragmentRewriter::ProtectAlt(std::size_t equals) {
  if (m_noAltLeft || !HasPrefixAt(equals + 1, "\"")) return;
  const std::size_t end = m_text.find('"', equals + 2);
  m_noAltLeft = end == kNowhere;
  if (m_noAltLeft) return;
  m_altBegin = equals + 2;
  m_altEnd = end;
  if (EndsInAlt(m_text.substr(m_altBegin, m_altEnd - m_altBegin))) m_isInterlocked = true;
}

/// Makes the token around `equals` the current one; false when it has no end and nothing in it is quoted.
bool FragmentRewriter::EnterToken(std::size_t equals) {
  if (equals < m_tokenEnd) return true;
  if (m_noTokenEndLeft) return false;
  const std::size_t end = FindValueEnd(m_text, equals + 1);
  m_noTokenEndLeft = end == kNowhere;
  if (m_noTokenEndLeft) return false;
  m_tokenEnd = end;
  m_seen = 0;
  m_quoted = 0;
  return true;
}

bool FragmentRewriter::IsBare(std::size_t equals, int order) const {
  std::string_view value = m_text.substr(equals + 1, m_tokenEnd - equals - 1);
  if (value.empty() || static_cast<unsigned char>(value.front()) >= 0x80) value = TrimBlanks(value);
  if (!value.empty()) return value.front() != '"' && value.front() != '\'';
  // What an earlier name of the order has put at the token's end is then the value's first character.
  return (m_quoted & ((1u << order) - 1)) == 0;
}

void FragmentRewriter::Quote(std::size_t equals, int order) {
  CopyUpTo(equals + 1);
  m_out += '"';
  ++m_pendingQuotes;
  m_quoted |= 1u << order;
  UpdateNextInsertion();
}

void FragmentRewriter::AtLess(std::size_t at) {
  if (!m_steps.closeVoid || m_text.size() - at < 3) return;
  const auto letter = [&](std::size_t i) { return m_text[at + i] | 0x20; };
  if (letter(1) == 'b' && letter(2) == 'r') {
    if (m_breaks == BreakState::Unknown) m_breaks = FirstBreakState(at);
    if (m_breaks == BreakState::Open) OpenVoid(m_breakOpen, at + 3);
  } else if (letter(1) == 'i' && letter(2) == 'm' && m_text.size() - at > 3 && letter(3) == 'g') {
    OpenVoid(m_imageOpen, at + 4);
  }
}

/// What the first "<br" in lower case says about all of them, `at` being the first in any case.
FragmentRewriter::BreakState FragmentRewriter::FirstBreakState(std::size_t at) {
  std::size_t first = at;
  if (!HasPrefixAt(at, "<br")) {
    if (m_steps.quoteValues) {
      // Whether a quote will be put behind a later "<br" is not known yet.
      m_mustGoStepwise = true;
      return BreakState::Unknown;
    }
    first = FindText(m_text, "<br", at);
    if (first == kNowhere) return BreakState::Open;
  }
  const bool quoteFollows = m_pendingQuotes > 0 && first < m_tokenEnd;
  return !quoteFollows && IsClosedAtOnce(m_text.substr(first + 3)) ? BreakState::Closed : BreakState::Open;
}

void FragmentRewriter::OpenVoid(bool& isOpen, std::size_t from) {
  if (m_noTagEndLeft || isOpen) return;
  if (!m_breakOpen && !m_imageOpen) {
    m_tagEnd = m_text.find('>', from);
    m_noTagEndLeft = m_tagEnd == kNowhere;
    if (m_noTagEndLeft) return;
  }
  isOpen = true;
  UpdateNextInsertion();
}

void FragmentRewriter::AtAmpersand(std::size_t at) {
  if (m_steps.replaceNbsp && HasPrefixAt(at, kNbsp)) {
    CopyUpTo(at);
    m_out.append(kNoBreakSpace);
    m_copied = at + kNbsp.size();
  } else if (m_steps.protectAlt && HasPrefixAt(at, kAltMark)) {
    m_mustGoStepwise = true;
  }
}

/// Writes the quotes and slashes that belong before `at`; quotes first where both meet at a ">".
void FragmentRewriter::FlushBefore(std::size_t at) {
  while (m_nextInsertion < at) {
    CopyUpTo(m_nextInsertion);
    if (m_pendingQuotes > 0 && m_tokenEnd == m_nextInsertion) {
      if (m_tokenEnd >= m_altBegin && m_tokenEnd < m_altEnd) m_isInterlocked = true;
      m_out.append(m_pendingQuotes, '"');
      m_pendingQuotes = 0;
    }
    if (m_tagEnd == m_nextInsertion) {
      m_out.append(static_cast<std::size_t>(m_breakOpen) + static_cast<std::size_t>(m_imageOpen), '/');
      m_breakOpen = m_imageOpen = false;
      m_tagEnd = kNowhere;
    }
    UpdateNextInsertion();
  }
}

void FragmentRewriter::UpdateNextInsertion() {
  m_nextInsertion = m_tagEnd;
  if (m_pendingQuotes > 0 && m_tokenEnd < m_nextInsertion) m_nextInsertion = m_tokenEnd;
}

void FragmentRewriter::CopyUpTo(std::size_t at) {
  m_out.append(m_text.data() + m_copied, at - m_copied);
  m_copied = at;
}

bool FragmentRewriter::HasPrefixAt(std::size_t at, std::string_view prefix) const {
  return m_text.substr(at < m_text.size() ? at : m_text.size()).starts_with(prefix);
}

}  // namespace quill::content
