#pragma once
#include <cstddef>
#include <string_view>

namespace quill::content {

/// Whether XML 1.0 allows the character anywhere in a document.
bool IsXmlChar(char32_t code);

/// The byte at which the text stops being UTF-8 made of such characters, or npos. O(text).
std::size_t FindForbiddenChar(std::string_view text);

/// Blank, TAB, LF or CR: all that XML markup calls white space.
inline bool IsXmlSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The end of the XML name that begins at `from`; `from` itself where no name begins. O(name).
std::size_t FindNameEnd(std::string_view text, std::size_t from);

/// Whether a name with colons splits into prefix and local part as libxml2 reads it: after two parts and a
/// second colon the third must begin like a name ("a:b:c" does, "a:b:1" does not).
bool IsQualifiedName(std::string_view name);

/// The end of the XML name that begins at `from` and is qualified as above; `from` itself where none begins.
/// O(name), fastest for ASCII without a colon.
std::size_t FindQualifiedNameEnd(std::string_view text, std::size_t from);

}  // namespace quill::content
