#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// What every client link begins with.
inline constexpr std::string_view kClientLinkStart = "onenote:https://";

// A client link is, in this order: the start, the document host, the escaped path of the section's file, "#",
// the escaped title, "&section-id=", "&page-id=" and "&end"; a link to a paragraph has "&object-id=" before
// that or in place of it. Links copied in OneNote carry their ids in braces, those that the service returns
// may carry them bare.
//
// Each function below takes one part out of a link and yields "" where that part is missing. They trust
// nothing: any text may be given. Each is O(link).

/// Whether there is a client link in the text, at its beginning or behind something else.
bool IsClientLink(std::string_view text);

/// The link in the text, from its start to the end of the text, without blanks around what follows the start.
/// Line breaks stay. "" when nothing but blanks follows.
std::string NormalizeClientLink(std::string_view text);

/// The server that holds the notebook.
std::string_view DocumentHostOfLink(std::string_view link);

/// The section's file name without ".one", unescaped. The first ".one" of the link counts, wherever it
/// stands.
std::string SectionNameOfLink(std::string_view link);

/// The page's title, unescaped; "" also for a link that has its section id in the title's place.
std::string PageTitleOfLink(std::string_view link);

/// The ids as they are written, without braces. A bare one must be followed by "&".
std::string_view PageIdOfLink(std::string_view link);
std::string_view SectionIdOfLink(std::string_view link);

/// The id of the paragraph, "{GUID}&HEX", without the "&end" that may follow.
std::string_view ObjectIdOfLink(std::string_view link);

/// A client link with all its parts, "" for those that are missing.
struct PageClientLink {
  std::string link;  ///< normalised
  std::string documentHost;
  std::string accountId;
  std::string sectionName;
  std::string pageTitle;
  std::string sectionId;
  std::string pageId;
  std::string objectId;
};

/// Takes a text with a client link apart; every part is "" when there is none. `personalHost` is the document
/// host of personal accounts. O(text).
PageClientLink ReadClientLink(std::string_view text, std::string_view personalHost);

}  // namespace quill::online
