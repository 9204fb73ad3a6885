#pragma once
#include <filesystem>

#include "base/result.h"

namespace quill::platform {

/// Makes a folder for this user alone (0700; folders above it with the system's default), or takes one
/// that is there: it must belong to this user, and others lose their rights to it. Succeeds only after a
/// file could be made in it, since rights alone do not tell (read-only volumes, the superuser).
Status<> MakePrivateFolder(const std::filesystem::path& folder);

/// Whether `MakePrivateFolder` can be expected to succeed. Changes nothing.
Status<> CanMakePrivateFolder(const std::filesystem::path& folder);

}  // namespace quill::platform
