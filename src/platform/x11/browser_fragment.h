#pragma once
#include <string>
#include <string_view>

namespace quill::platform::x11 {

/// Turns what a browser puts on the clipboard into the form in which OneNote's application puts it there:
/// a document with the fragment markers around the copied part, table rows directly in their table, void
/// elements closed except `br` and `img` (those stay open), and no computed style that says nothing.
///
/// A text that has the markers already passes unchanged. Text, links, pictures and the styles that show
/// are kept as they are. O(text).
std::string BrowserToApplicationHtml(std::string_view html);

}  // namespace quill::platform::x11
