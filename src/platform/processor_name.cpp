#include "platform/processor_name.h"

#include <cstdio>

#include "content/unicode_text.h"

namespace quill::platform {
namespace {

constexpr std::string_view kLabel = "Processor Name:";
constexpr std::size_t kNameColumn = 21;  ///< behind six blanks and the label

}  // namespace

std::string ProcessorNameIn(std::string_view report) {
  std::string_view last;
  while (!report.empty()) {
    const std::size_t end = std::min(report.find('\n'), report.size());
    const std::string_view line = report.substr(0, end);
    if (line.find(kLabel) != std::string_view::npos) last = line;
    report.remove_prefix(std::min(end + 1, report.size()));
  }
  if (last.size() <= kNameColumn) return {};
  return std::string(content::TrimWhite(last.substr(kNameColumn)));
}

std::string ReadProcessorName(ProcessRunner& runner) {
  ProcessRequest request;
  request.command = {"/usr/sbin/system_profiler", "SPHardwareDataType"};
  const ProcessResult result = runner.Run(request);
  if (result.end == ProcessEnd::NotStarted)
    std::fprintf(stderr, "Failed to run system_profiler: %s\n", result.reason.c_str());
  return ProcessorNameIn(result.output);
}

bool IsAppleProcessor(std::string_view name) {
  return name.find("Apple") != std::string_view::npos;
}

}  // namespace quill::platform
