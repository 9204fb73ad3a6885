#pragma once
#include <string>
#include <string_view>

namespace quill::online {

// Links to a paragraph, made of the page's link and the "id" of the paragraph's element on the online page
// ("p:{GUID}{62}", see link_conversions.h). An element without an id has the object id "{}&00". O(link + id).

/// As tables of contents and tag exports have them: every "&end" goes, an object id goes with all behind it,
/// and the paragraph's object id is the end of the link, whatever that was before.
std::string ParagraphLink(std::string_view pageLink, std::string_view elementId);

/// As the navigation pane has them: every "&end" becomes the object id. In a link that has one already, every
/// occurrence of it, with all that follows it to the end, is replaced; a link with neither stays as it is.
std::string PaneParagraphLink(std::string_view pageLink, std::string_view elementId);

}  // namespace quill::online
