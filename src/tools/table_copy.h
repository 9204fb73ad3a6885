#pragma once
#include <cstddef>
#include <memory>
#include <pugixml.hpp>

namespace quill::tools {

/// How much of a table a preview takes.
struct ExcerptLimits {
  std::size_t rows = 40;
  std::size_t cells = 24;              ///< of each row
  std::size_t pictureBytes = 1 << 20;  ///< a longer picture address is left out
};

/// A copy of the table as a document of its own, whose document element it is. O(table).
std::shared_ptr<const pugi::xml_document> CopyTable(pugi::xml_node table);

/// As `CopyTable` for the beginning of the table: its first rows, inside body and group elements too, with
/// the first cells of each. O(excerpt).
std::shared_ptr<const pugi::xml_document> CopyTableBeginning(pugi::xml_node table,
                                                             const ExcerptLimits& limits = {});

}  // namespace quill::tools
