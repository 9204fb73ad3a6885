#pragma once
#include <string>
#include <string_view>

#include "practice/service/notebook_library.h"

namespace quill::practice {

// The client links of lists, as the service writes them: names and titles percent-escaped, ids without
// braces.

std::string NotebookClientLink(std::string_view documentHost, const LibraryNotebook& notebook);
std::string SectionClientLink(std::string_view documentHost, const LibraryNotebook& notebook,
                              const LibrarySection& section);
/// A page without a title has its section's id right behind the "#".
std::string PageClientLink(std::string_view documentHost, const LibraryNotebook& notebook,
                           const LibrarySection& section, const LibraryPage& page);

}  // namespace quill::practice
