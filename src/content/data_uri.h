#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// Writes the Base64 payload of a `data:` URI to `folder`/`name`.extension and returns that path.
///
/// The extension is the media type's subtype without a "+…" suffix ("svg+xml" is "svg"; "text/plain" is
/// "txt"). A name that ends in it already does not get it twice. Returns "" and writes nothing when
/// the type, "base64," or the payload is missing or malformed, and when `name` is not a plain file name;
/// returns "" also when the file cannot be written. O(uri).
std::string SaveDataUri(std::string_view uri, const std::string& folder, std::string_view name);

}  // namespace quill::content
