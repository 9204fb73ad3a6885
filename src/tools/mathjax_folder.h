#pragma once
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::tools {

/// Where MathJax's files are looked for, given the folder of the running program: ../share/quillmenu/mathjax
/// (as installed and as built) and ../Resources/mathjax (inside a bundle).
std::vector<std::filesystem::path> MathJaxPlaces(const std::filesystem::path& programFolder);

/// The first of these places that holds both editions of MathJax. The failure is an English text that names
/// the places.
Result<std::filesystem::path> FindMathJax(const std::filesystem::path& programFolder);

/// The file below `folder` that answers the path of a request ("/npm/mathjax@3/es5/tex-svg.js"), or none for
/// every other path, in particular one that leaves the folder. Whether the file exists is not looked at.
std::optional<std::filesystem::path> MathJaxFile(const std::filesystem::path& folder,
                                                 std::string_view requestPath);

}  // namespace quill::tools
