#pragma once
#include <string>
#include <string_view>

namespace quill::tools {

/// A text as a text view gives it back: every line end is one line feed, a no-break space is a blank.
/// O(text).
std::string ShownText(std::string_view text);

/// `text` with the change that turned its `ShownText` into `edited`. What the user did not touch keeps its
/// line ends and no-break spaces; new line ends are CR LF when the text has a CR. O(text + edited).
std::string CarryEditOver(std::string_view text, std::string_view edited);

}  // namespace quill::tools
