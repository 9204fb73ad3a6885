#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::online {

// Finding and replacing in a page as the service keeps it, without a screen. The page's script (Find.js) does
// the same in the window; both keep to these rules:
//
// - Text is looked for block by block: a match never runs from one paragraph, heading, list item or cell into
//   another, but across spans and links within one. A line break (br) and a picture or other object ends a
//   block's text, too.
// - Runs of white space in the HTML are one blank, as they are shown, and nothing at the beginning and the
//   end of a block's text; a no-break space is found by a blank.
// - Without the case, letters are the same when the simple lower-case forms of their code points are (U+0130
//   only equals itself).
// - Matches do not overlap: the search goes on behind a match, and in a changed page behind the replacement.
// - A replacement takes the place of the match in the formatting of the match's first character.
// - What the service cannot change is not found: text in no element that it can replace.

/// A page's text with "find" replaced, and what has to be sent for it.
struct PageEdit {
  std::size_t matchCount = 0;
  std::size_t changeCount = 0;  ///< elements that are sent
  std::string json;             ///< the array of changes; "" when there are none
};

/// Replaces every occurrence. An empty `find` finds nothing. What is sent is the source as it came, but for
/// the matches and without ids. Fails, with words for a log, when the page is no well-formed XHTML.
/// O(page + result).
Result<PageEdit> ReplaceInPage(std::string_view pageHtml, std::string_view find, std::string_view replacement,
                               bool matchesCase);

/// The changes that put a page back: `changes` is what was sent to the page `before`, and `now` is the page
/// as it is since then. What is in no changed element has to be the same in both, but for ids and white space
/// between elements. Fails, with words for a log, when it is not. O(pages).
Result<std::string> UndoChanges(std::string_view before, std::string_view changes, std::string_view now);

}  // namespace quill::online
