#pragma once
#include <cstdint>
#include <string_view>

namespace quill::shell {

struct TransformContext;

/// Told when the OneDrive client has no settings on this machine.
inline constexpr std::string_view kNoOneDriveFolder =
    "Can't find local OneDrive folder! Maybe you have not active the OneDrive client!";

/// Opens the local copy of the file behind the selection's first link, a cloud attachment; of several the one
/// that the user chooses. 1 when a copy was looked for.
std::int64_t OpenCloudFileAttachmentLink(TransformContext& context);

}  // namespace quill::shell
