#pragma once
#include <stdexcept>
#include <string>

#include "content/element_lookup.h"
#include "content/working_document.h"

namespace quill::test {

/// A selection that holds these nodes.
inline content::WorkingDocument Parse(const std::string& inner) {
  auto document = content::WorkingDocument::Parse("<quillText>" + inner + "</quillText>");
  if (!document) throw std::runtime_error(document.error() + ": " + inner);
  return std::move(*document);
}

inline pugi::xml_node FirstTable(content::WorkingDocument& document) {
  return content::FindElementNamed(document.tree(), "table");
}

}  // namespace quill::test
