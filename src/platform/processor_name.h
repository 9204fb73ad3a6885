#pragma once
#include <string>
#include <string_view>

#include "platform/process_runner.h"

namespace quill::platform {

/// The name in the last line with "Processor Name:" of the system profiler's hardware report; empty when
/// there is none (Apple's own processors are reported under another label).
std::string ProcessorNameIn(std::string_view report);

/// Runs the system profiler. Empty where it does not exist; where the system cannot start it, standard error
/// is told.
std::string ReadProcessorName(ProcessRunner& runner);

/// Whether a processor's name speaks of Apple, in exactly this case.
bool IsAppleProcessor(std::string_view name);

}  // namespace quill::platform
