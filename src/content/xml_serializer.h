#pragma once
#include <cstddef>
#include <pugixml.hpp>
#include <string>

namespace quill::content {

/// Appends `node` with all that it holds as XML that is also safe to paste as HTML.
///
/// Empty void elements (`br`, `img`, `hr`, … in any case) are self-closed, every other empty element gets
/// its end tag, because `<p/>` pasted as HTML swallows what follows. In text "&", "<", ">" and CR are
/// escaped; in attributes "&", "<", the double quote, TAB, LF and CR. Comments, CDATA sections and processing
/// instructions go out verbatim; other characters as raw UTF-8. A document node writes its children. Without
/// recursion, O(result).
void AppendXml(std::string& out, pugi::xml_node node);

/// "<?xml version="1.0"?>" and the nodes of the document. `expectedSize` is the room to begin with.
std::string SerializeDocument(const pugi::xml_document& document, std::size_t expectedSize);

}  // namespace quill::content
