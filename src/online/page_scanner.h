#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::online {

/// A part of a page's source, in bytes.
struct SourceRange {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A tag, a text, or something that nobody sees (a comment, a CDATA section, an instruction).
struct PageToken {
  enum class Kind { StartTag, EmptyTag, EndTag, Text, Unseen, PageEnd };
  Kind kind = Kind::PageEnd;
  SourceRange where;
  std::string_view name;  ///< of a tag, as it is written

  bool IsElement() const { return kind == Kind::StartTag || kind == Kind::EmptyTag; }
};

/// Fails, with words for a log, for what is not well-formed, references left aside: a page may hold any.
/// O(html).
Status<> CheckPageHtml(std::string_view html);

/// Reads a page's source piece by piece and leaves it as it is, so that parts of it can be sent again byte
/// for byte. The source is one that `CheckPageHtml` has passed, and outlives the scanner. O(html) for all
/// pieces.
class PageScanner {
 public:
  explicit PageScanner(std::string_view html) : m_html(html) {}

  /// The piece that follows; `PageEnd` from the end on.
  PageToken Next();

  std::string_view SourceOf(SourceRange range) const {
    return m_html.substr(range.begin, range.end - range.begin);
  }

 private:
  std::size_t EndAfter(std::string_view mark, std::size_t from) const;
  std::size_t EndOfTag(std::size_t from) const;

  std::string_view m_html;
  std::size_t m_at = 0;
};

/// Where an element's "id" stands in the source, with the white space before it, and what it says.
struct IdAttribute {
  SourceRange where;
  std::string value;
};

/// The "id" of a tag; nothing without one. O(tag).
std::optional<IdAttribute> FindId(std::string_view html, const PageToken& tag);

}  // namespace quill::online
