#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace quill::tools {

/// Where the highlighter came from.
enum class HighlighterOrigin { Setting, FixedPath, SearchPath, NotFound };

struct HighlighterPlace {
  std::string path;  ///< absolute; empty when nothing was found
  HighlighterOrigin origin = HighlighterOrigin::NotFound;
  bool isSettingUseless = false;  ///< a path was set, but there is no program
};

/// The fixed path: of its own on Apple's processors.
std::string_view FixedHighlighterPath(bool isAppleProcessor);

/// Whether a file is there and may be run.
using IsProgram = std::function<bool(const std::filesystem::path&)>;

/// The fixed path, then the one that was set, then "highlight" in the folders of `searchPath` (as PATH lists
/// them). Paths that are not absolute are passed over: what they mean depends on where the process stands.
HighlighterPlace FindHighlighter(std::string_view fixedPath, std::string_view setting,
                                 std::string_view searchPath, const IsProgram& isProgram);

}  // namespace quill::tools
