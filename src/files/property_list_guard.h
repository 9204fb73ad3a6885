#pragma once
#include <string_view>

#include "base/result.h"

namespace quill::files {

/// How deeply lists and dictionaries may be nested. The property-list library frees a tree by recursion
/// (and reads the binary form so): 100,000 levels, a file of 1.5 MB, overflow an 8 MB stack. The
/// program's own files have one level.
inline constexpr int kPropertyListDepth = 64;

/// Refuses an XML property list that would be too deep for the library, before the library sees it, and
/// one with zero bytes, after which the library's texts go on with whatever the memory held.
/// Whatever could make this scan and the library's reader count differently (an embedded DTD, quotes or
/// angle brackets inside a tag) is refused too: none of it occurs in a property list. One pass.
Status<> CheckXmlPropertyList(std::string_view bytes);

/// Refuses a binary property list that is too deep, contains itself, or whose shared objects would unfold
/// into more than 64 MB: thirty lists that name their successor twice are a billion values.
Status<> CheckBinaryPropertyList(std::string_view bytes);

}  // namespace quill::files
