#include "tools/table_copy.h"

#include <cstring>
#include <limits>

#include "tools/table_cells.h"

namespace quill::tools {
namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// Copies node by node until a limit is reached.
class Copier {
 public:
  explicit Copier(const ExcerptLimits& limits) : m_limits(limits) {}

  bool IsFull() const { return m_nodes >= m_limits.nodes || m_textBytes >= m_limits.textBytes; }

  /// The same element without what is in it.
  pugi::xml_node CopyTag(pugi::xml_node into, pugi::xml_node element) {
    ++m_nodes;
    pugi::xml_node copy = into.append_child(element.name());
    for (const pugi::xml_attribute attribute : element.attributes()) {
      const bool isPicture = std::strcmp(attribute.name(), "src") == 0;
      if (!isPicture || std::strlen(attribute.value()) <= m_limits.pictureBytes) copy.append_copy(attribute);
    }
    return copy;
  }

  /// A node with all inside it.
  void CopyTree(pugi::xml_node into, pugi::xml_node top) {
    pugi::xml_node node = top;
    while (node && !IsFull()) {
      const pugi::xml_node copy = CopyNode(into, node);
      if (node.first_child()) {
        into = copy;
        node = node.first_child();
        continue;
      }
      while (node != top && !node.next_sibling()) {
        node = node.parent();
        into = into.parent();
      }
      node = node == top ? pugi::xml_node() : node.next_sibling();
    }
  }

  void CopyRow(pugi::xml_node into, pugi::xml_node row) {
    const pugi::xml_node copy = CopyTag(into, row);
    std::size_t cells = 0;
    for (pugi::xml_node child = row.first_child(); child && cells < m_limits.cells && !IsFull();
         child = child.next_sibling()) {
      cells += child.type() == pugi::node_element ? 1 : 0;
      CopyTree(copy, child);
    }
  }

 private:
  pugi::xml_node CopyNode(pugi::xml_node into, pugi::xml_node node) {
    if (node.type() == pugi::node_element) return CopyTag(into, node);
    ++m_nodes;
    m_textBytes += std::strlen(node.value());
    return into.append_copy(node);
  }

  ExcerptLimits m_limits;
  std::size_t m_nodes = 0;
  std::size_t m_textBytes = 0;
};

}  // namespace

std::shared_ptr<const pugi::xml_document> CopyTable(pugi::xml_node table) {
  auto copy = std::make_shared<pugi::xml_document>();
  Copier({kNoLimit, kNoLimit, kNoLimit, kNoLimit, 0}).CopyTree(*copy, table);
  return copy;
}

std::shared_ptr<const pugi::xml_document> CopyTableBeginning(pugi::xml_node table,
                                                             const ExcerptLimits& limits) {
  auto copy = std::make_shared<pugi::xml_document>();
  Copier copier(limits);
  const pugi::xml_node into = copier.CopyTag(*copy, table);
  std::size_t rows = 0;
  // Groups of rows are one level deep in any table; deeper ones are left out.
  for (pugi::xml_node child = table.first_child(); child && rows < limits.rows && !copier.IsFull();
       child = child.next_sibling()) {
    if (IsElementNamed(child, "tr")) {
      copier.CopyRow(into, child);
      ++rows;
    } else if (child.type() == pugi::node_element) {
      const pugi::xml_node group = copier.CopyTag(into, child);
      for (pugi::xml_node row = ThisOrNextNamed(child.first_child(), "tr");
           row && rows < limits.rows && !copier.IsFull(); row = ThisOrNextNamed(row.next_sibling(), "tr")) {
        copier.CopyRow(group, row);
        ++rows;
      }
    }
  }
  return copy;
}

}  // namespace quill::tools
