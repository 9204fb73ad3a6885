#pragma once
#include <string>
#include <string_view>

namespace quill::files {

/// What kind of link to a file in OneDrive a page holds.
enum class CloudAttachType {
  None = 0,
  PersonalEmbed = 1,  ///< of a personal account, with the file's name in it
  BusinessShort = 2   ///< of work or school; its text is the file's name
};

/// The kind of a link. `embedAddress` is what OneDrive's embed links begin with; a short link carries the
/// type of its document, one or two characters, as in "/:w:/". O(link).
CloudAttachType GetCloudAttachType(std::string_view link, std::string_view embedAddress);

/// The name of the file behind a link: its parameter "filename", which counts only when another follows it,
/// or the link's text as a page shows it, with a blank in place of line breaks and other white space. ""
/// without one.
std::string CloudFileName(std::string_view link, std::string_view linkText, CloudAttachType kind);

}  // namespace quill::files
