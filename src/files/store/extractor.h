#pragma once
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process_runner.h"

namespace quill::files {

/// The processor's name, asked of the system once: that takes seconds. Any thread.
class ProcessorReader {
 public:
  const std::string& Name(platform::ProcessRunner& runner);

 private:
  std::once_flag m_once;
  std::string m_name;
};

/// Whether a processor's name speaks of Apple, in any case.
bool IsAppleProcessor(std::string_view name);

/// The programs that can extract a .onepkg file, the first to be tried first: the extractor at the fixed path
/// of this processor where it is installed, then "cabextract" on PATH; both take "-d", the folder and the
/// package. The processor is asked for only when there is a program at a fixed path. `isProgram` stands for a
/// look at the disk in a test.
std::vector<std::string> ExtractorPrograms(
    ProcessorReader& processor, platform::ProcessRunner& runner,
    const std::function<bool(const std::filesystem::path&)>& isProgram = {});

}  // namespace quill::files
