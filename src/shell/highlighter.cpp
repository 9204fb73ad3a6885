#include "shell/highlighter.h"

#include <unistd.h>

#include <cstdlib>

#include "platform/processor_name.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;

bool IsProgram(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

tools::HighlighterPlace FindHighlighter(const Settings& settings, platform::ProcessRunner& runner) {
  const bool hasFixed =
      IsProgram(tools::FixedHighlighterPath(false)) || IsProgram(tools::FixedHighlighterPath(true));
  const bool isApple = hasFixed && platform::IsAppleProcessor(platform::ReadProcessorName(runner));
  const char* searchPath = std::getenv("PATH");
  return tools::FindHighlighter(tools::FixedHighlighterPath(isApple), settings.HighlighterPath,
                                searchPath != nullptr ? searchPath : "", IsProgram);
}

}  // namespace quill::shell
