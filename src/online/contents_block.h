#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// The entries of a table of contents as they become HTML: a paragraph each, every one on a line of its own.
/// Names and links go in as they are.
class ContentsList {
 public:
  /// "- " and the linked name, behind `depth` times `indent`.
  void Add(std::string_view indent, std::size_t depth, std::string_view link, std::string_view name);

  bool IsEmpty() const { return m_html.empty(); }
  std::string_view Html() const { return m_html; }

 private:
  std::string m_html;
};

/// The table that a contents list is inserted in, with a heading above the list.
std::string ContentsBlock(std::string_view title, const ContentsList& list);

}  // namespace quill::online
