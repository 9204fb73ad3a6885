#include "tools/table_copy.h"

#include <cstring>

#include "tools/table_cells.h"

namespace quill::tools {
namespace {

/// The same element without what is in it.
pugi::xml_node CopyTag(pugi::xml_node into, pugi::xml_node element) {
  pugi::xml_node copy = into.append_child(element.name());
  for (const pugi::xml_attribute attribute : element.attributes()) copy.append_copy(attribute);
  return copy;
}

void DropLargePictures(pugi::xml_node copy, std::size_t most) {
  for (pugi::xml_node node = copy; node;
       node = node.first_child() ? node.first_child() : NextBehind(node, copy)) {
    const pugi::xml_attribute source = node.attribute("src");
    if (std::strlen(source.value()) > most) node.remove_attribute(source);
  }
}

void CopyRow(pugi::xml_node into, pugi::xml_node row, const ExcerptLimits& limits) {
  pugi::xml_node copy = CopyTag(into, row);
  std::size_t cells = 0;
  for (pugi::xml_node child = row.first_child(); child && cells < limits.cells;
       child = child.next_sibling()) {
    cells += child.type() == pugi::node_element ? 1 : 0;
    DropLargePictures(copy.append_copy(child), limits.pictureBytes);
  }
}

}  // namespace

std::shared_ptr<const pugi::xml_document> CopyTable(pugi::xml_node table) {
  auto copy = std::make_shared<pugi::xml_document>();
  copy->append_copy(table);
  return copy;
}

std::shared_ptr<const pugi::xml_document> CopyTableBeginning(pugi::xml_node table,
                                                             const ExcerptLimits& limits) {
  auto copy = std::make_shared<pugi::xml_document>();
  pugi::xml_node into = CopyTag(*copy, table);
  std::size_t rows = 0;
  // Groups of rows are one level deep in any table; deeper ones are left out.
  for (pugi::xml_node child = table.first_child(); child && rows < limits.rows;
       child = child.next_sibling()) {
    if (IsElementNamed(child, "tr")) {
      CopyRow(into, child, limits);
      ++rows;
    } else if (child.type() == pugi::node_element) {
      pugi::xml_node group = CopyTag(into, child);
      for (pugi::xml_node row = ThisOrNextNamed(child.first_child(), "tr"); row && rows < limits.rows;
           row = ThisOrNextNamed(row.next_sibling(), "tr")) {
        CopyRow(group, row, limits);
        ++rows;
      }
    }
  }
  return copy;
}

}  // namespace quill::tools
