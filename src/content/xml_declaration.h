#pragma once
#include <cstddef>
#include <string_view>

namespace quill::content {

/// The end of the XML declaration at the beginning of `text`, 0 when there is none, npos when what begins
/// like one is malformed or names another encoding than UTF-8. O(declaration).
std::size_t FindXmlDeclarationEnd(std::string_view text);

}  // namespace quill::content
