#include "tools/table_cells.h"

namespace quill::tools {
namespace {

void AppendWithoutLineFeeds(std::string& out, std::string_view text) {
  for (std::size_t end; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1))
    out += text.substr(0, end);
  out += text;
}

}  // namespace

void AppendCellText(std::string& out, pugi::xml_node cell) {
  for (pugi::xml_node node = cell.first_child(); node;) {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
      AppendWithoutLineFeeds(out, node.value());
    node = node.first_child() ? node.first_child() : NextBehind(node, cell);
  }
}

}  // namespace quill::tools
