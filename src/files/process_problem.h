#pragma once
#include <string>

#include "platform/process_runner.h"

namespace quill::files {

/// Why a program did not do its work, in its own words where it has some; empty when it did. `program` names
/// it where it has none.
std::string ProcessProblem(const std::string& program, const platform::ProcessResult& result);

}  // namespace quill::files
