#include "tools/find_highlighter.h"

#include <algorithm>

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgram = "highlight";

bool IsUsable(const fs::path& path, const IsProgram& isProgram) {
  return path.is_absolute() && isProgram(path);
}

}  // namespace

std::string_view FixedHighlighterPath(bool isAppleProcessor) {
  return isAppleProcessor ? "/usr/local/Cellar/highlight/4.20/bin/highlight"
                          : "/usr/local/Cellar/highlight/4.20/bin/highlight_x86";
}

HighlighterPlace FindHighlighter(std::string_view fixedPath, std::string_view setting,
                                 std::string_view searchPath, const IsProgram& isProgram) {
  HighlighterPlace place;
  if (IsUsable(fixedPath, isProgram)) return {std::string(fixedPath), HighlighterOrigin::FixedPath, false};
  if (!setting.empty()) {
    if (IsUsable(setting, isProgram)) return {std::string(setting), HighlighterOrigin::Setting, false};
    place.isSettingUseless = true;
  }
  while (!searchPath.empty()) {
    const std::size_t end = std::min(searchPath.find(':'), searchPath.size());
    const fs::path candidate = fs::path(searchPath.substr(0, end)) / kProgram;
    if (IsUsable(candidate, isProgram)) {
      place.path = candidate.string();
      place.origin = HighlighterOrigin::SearchPath;
      return place;
    }
    searchPath.remove_prefix(std::min(end + 1, searchPath.size()));
  }
  return place;
}

}  // namespace quill::tools
