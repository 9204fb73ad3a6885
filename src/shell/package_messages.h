#pragma once
#include <string>
#include <vector>

#include "files/store/notebook_package.h"
#include "files/store/package_restore.h"
#include "shell/string_table.h"

namespace quill::shell {

/// What the user is told after packing: `msgCompletePackage` when all went well, else what could not be
/// packed and why. After a cancelled job what was packed until then; empty when nothing was.
std::string PackagesMessage(const StringTable& strings, const std::vector<files::PackageOutcome>& outcomes);

/// What the user is told after a package was restored into a folder; empty for a cancelled one.
std::string RestoreMessage(const StringTable& strings, const files::UnpackOutcome& outcome);

/// What is worth knowing about files that were unpacked: not all of them, some kept, links removed. One line
/// each; empty when all went well.
std::string UnpackNotes(const StringTable& strings, const files::UnpackOutcome& outcome);

}  // namespace quill::shell
