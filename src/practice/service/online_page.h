#pragma once
#include <string>
#include <string_view>

#include "base/result.h"
#include "practice/service/notebook_library.h"

namespace quill::practice {

/// The page as the OneNote service sends it: an XHTML-like document with the title in its head and the
/// content in one absolutely positioned `div` with the data-id "_default".
///
/// With identifiers every element has an "id" such as "p:{GUID}{40}". They are made from the page's content,
/// so any change of the page makes all of them new, and the same content gives the same ones.
std::string OnlinePageHtml(const LibraryContent& content, std::string_view pageGuid, bool hasIds);

/// Why an array of changes was refused; nothing of it is applied then.
struct ChangeProblem {
  int status = 400;     ///< of HTTP
  std::string code;     ///< the service's own, such as "20120"
  std::string message;  ///< in words
};

/// Applies an array of changes as a PATCH of the page's content sends it
/// ([{"target": …, "action": …, "position": …, "content": …}]): all of them, or none.
///
/// Targets are "body", "title", a generated id as `OnlinePageHtml` gave it for this very content, or "#" with
/// a data-id. What the service cannot change is refused as it refuses it: a replaced td, tr, span, a or body.
Result<LibraryContent, ChangeProblem> ApplyChanges(const LibraryContent& content, std::string_view pageGuid,
                                                   std::string_view json);

}  // namespace quill::practice
