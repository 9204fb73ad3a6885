#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "content/byte_scan.h"

namespace quill::content {

/// Which repairs one walk over a fragment makes. The steps are applied as if each ran alone over the whole
/// text, in this order.
struct RewriteSteps {
  bool protectAlt = false;   ///< a "=" inside alt="…" belongs to the text, not to an attribute
  bool quoteValues = false;  ///< bare values of the known attributes get double quotes
  bool closeVoid = false;    ///< "<br" (unless the first is closed) and "<img" get "/" before their ">"
  bool replaceNbsp = false;  ///< "&nbsp;" becomes U+00A0
};

/// One walk over a fragment that makes several repairs at once.
///
/// It stops at "<", "=" and "&" only, keeps the two places ahead where something must be inserted (the end of
/// the current bare value, the ">" of the current void tag), and copies what lies between in one go.
class FragmentRewriter {
 public:
  FragmentRewriter(std::string_view text, RewriteSteps steps);

  /// `before`, the rewritten text, and `after`. Nothing when `protectAlt` was asked for and the quotes of an
  /// alt text interlock with others, so that the steps have to run one by one. O(text).
  std::optional<std::string> Run(std::string_view before, std::string_view after);

 private:
  enum class BreakState { Unknown, Closed, Open };
  static constexpr std::size_t kNowhere = std::string_view::npos;

  void AtEquals(std::size_t at);
  void AtLess(std::size_t at);
  void AtAmpersand(std::size_t at);

  void ProtectAlt(std::size_t equals);
  bool EnterToken(std::size_t equals);
  bool IsBare(std::size_t equals, int order) const;
  void Quote(std::size_t equals, int order);
  BreakState FirstBreakState(std::size_t at);
  void OpenVoid(bool& isOpen, std::size_t from);

  void FlushBefore(std::size_t at);
  void UpdateNextInsertion();
  void CopyUpTo(std::size_t at);
  bool HasPrefixAt(std::size_t at, std::string_view prefix) const;

  const std::string_view m_text;
  const RewriteSteps m_steps;
  ByteScanner<'<', '=', '&'> m_scanner;
  std::string m_out;
  std::size_t m_copied = 0;  ///< everything before has been written out
  std::size_t m_nextInsertion = kNowhere;

  // The token, a run without white space and ">", in which attribute names were met last.
  std::size_t m_tokenEnd = 0;
  bool m_noTokenEndLeft = false;
  std::uint32_t m_seen = 0;         ///< names met in the token; only the first of each counts
  std::uint32_t m_quoted = 0;       ///< names quoted in the token
  std::size_t m_pendingQuotes = 0;  ///< to be written at the token's end

  // The void tag that waits for its ">".
  BreakState m_breaks = BreakState::Unknown;
  std::size_t m_tagEnd = kNowhere;
  bool m_noTagEndLeft = false;
  bool m_breakOpen = false;
  bool m_imageOpen = false;

  // The alt text met last.
  std::size_t m_altBegin = 0;
  std::size_t m_altEnd = 0;
  bool m_noAltLeft = false;
  bool m_altHasEquals = false;
  bool m_isInterlocked = false;
  bool m_mustGoStepwise = false;
};

/// Whether `value` ends in "alt=", letters in any case: the quote behind it then opens a value of its own.
bool EndsInAlt(std::string_view value);

}  // namespace quill::content
