#pragma once
#include <string>
#include <string_view>

namespace quill::platform {

/// True where programs are found for links through desktop entries (freedesktop.org), false on macOS.
bool UsesDesktopEntries();

/// The desktop entry that opens links of this scheme, such as "quillmenu.desktop": the first that the
/// freedesktop.org MIME applications files name for "x-scheme-handler/SCHEME", in their order of precedence.
/// Empty when there is none.
std::string DesktopEntryForScheme(std::string_view scheme);

}  // namespace quill::platform
