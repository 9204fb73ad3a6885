#include "files/store/extractor.h"

#include <unistd.h>

#include "content/unicode_text.h"
#include "platform/processor_name.h"

namespace quill::files {
namespace {

constexpr const char* kAppleExtractor = "/usr/local/bin/cex";
constexpr const char* kOtherExtractor = "/usr/local/bin/cex_x86";

bool IsProgramFile(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

const std::string& ProcessorReader::Name(platform::ProcessRunner& runner) {
  std::call_once(m_once, [&] { m_name = platform::ReadProcessorName(runner); });
  return m_name;
}

bool IsAppleProcessor(std::string_view name) {
  return content::ToLower(name).find("apple") != std::string::npos;
}

std::vector<std::string> ExtractorPrograms(
    ProcessorReader& processor, platform::ProcessRunner& runner,
    const std::function<bool(const std::filesystem::path&)>& isProgram) {
  const auto isThere = isProgram ? isProgram : IsProgramFile;
  if (!isThere(kAppleExtractor) && !isThere(kOtherExtractor)) return {"cabextract"};
  const std::string own = IsAppleProcessor(processor.Name(runner)) ? kAppleExtractor : kOtherExtractor;
  return {own, "cabextract"};
}

}  // namespace quill::files
