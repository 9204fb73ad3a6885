#include "online/contents_block.h"

#include <fmt/format.h>

#include <iterator>

namespace quill::online {

void ContentsList::Add(std::string_view indent, std::size_t depth, std::string_view link,
                       std::string_view name) {
  m_html += "\n<p>";
  for (; depth > 0; --depth) m_html += indent;
  fmt::format_to(std::back_inserter(m_html), "- <a href=\"{}\">{}</a></p>", link, name);
}

std::string ContentsBlock(std::string_view title, const ContentsList& list) {
  return fmt::format("<table border='0'><tr><td><h1>{}</h1></td></tr><tr><td>{}</td></tr></table>", title,
                     list.Html());
}

}  // namespace quill::online
