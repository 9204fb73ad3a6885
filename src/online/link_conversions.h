#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// Turns a link of the service into one of the desktop application: bare section and page ids get braces.
///
/// An id counts when it stands between "&section-id=" or "&page-id=" and the next "&", so a section id right
/// behind
/// "#" (no title) and an id at the very end stay as they are. All places with that same id change; ids with a
/// part in braces are left alone. A second conversion changes nothing. O(link).
std::string ConvertJsonClientUrl2OldClientUrl(std::string_view link);

/// Turns the id of an element of the online page, without the kind in front ("{GUID}{62}…"), into the object
/// id of a client link ("{GUID}&3E"). The number is taken in 32 bits; a missing GUID is empty, a missing
/// number 0. O(id).
std::string ConvertOnlineHtmlObjId2ClientUrlObjId(std::string_view id);

}  // namespace quill::online
