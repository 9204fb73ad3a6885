#pragma once
#include <cstddef>
#include <memory>
#include <pugixml.hpp>

namespace quill::tools {

/// How much of a table a preview takes.
struct ExcerptLimits {
  std::size_t rows = 40;
  std::size_t cells = 24;               ///< of each row
  std::size_t nodes = 20'000;           ///< of the whole excerpt, attributes not counted
  std::size_t textBytes = 64u << 10;    ///< of the whole excerpt
  std::size_t pictureBytes = 1u << 20;  ///< a longer picture address is left out
};

/// A copy of the table as a document of its own, whose document element it is, without the addresses of its
/// pictures. O(table).
std::shared_ptr<const pugi::xml_document> CopyTable(pugi::xml_node table);

/// The beginning of the table as such a document: its first rows, inside body and group elements too, with
/// the first cells of each, and their pictures. What exceeds a limit is left out. Without recursion,
/// O(limits).
std::shared_ptr<const pugi::xml_document> CopyTableBeginning(pugi::xml_node table,
                                                             const ExcerptLimits& limits = {});

}  // namespace quill::tools
