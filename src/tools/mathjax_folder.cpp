#include "tools/mathjax_folder.h"

#include <algorithm>
#include <string>

#include "tools/latex_page.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolder2 = "mathjax2";
constexpr const char* kFolder3 = "mathjax3";

bool IsComplete(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / kFolder2 / "MathJax.js", error) &&
         fs::exists(folder / kFolder3 / "es5" / "tex-svg.js", error);
}

/// Letters, digits, "-", "_" and single dots between them, in parts with slashes between: nothing that leads
/// upwards or into hidden files.
bool IsPlainPath(std::string_view path) {
  char before = '/';
  for (const char c : path) {
    const bool isSign = c == '.' || c == '/';
    const bool isWord =
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    if (!isWord && !(isSign && before != '/' && before != '.')) return false;
    before = c;
  }
  return before != '/' && before != '.';
}

}  // namespace

std::vector<fs::path> MathJaxPlaces(const fs::path& programFolder) {
  std::vector<fs::path> places;
  for (const char* place : {"../share/quillmenu/mathjax", "../Resources/mathjax"}) {
    places.push_back((programFolder / place).lexically_normal());
  }
  return places;
}

Result<fs::path> FindMathJax(const fs::path& programFolder) {
  std::string looked;
  for (const fs::path& place : MathJaxPlaces(programFolder)) {
    if (IsComplete(place)) return place;
    looked += (looked.empty() ? "" : ", ") + place.string();
  }
  return Failure{"MathJax was not found in " + looked};
}

std::optional<fs::path> MathJaxFile(const fs::path& folder, std::string_view requestPath) {
  for (const auto& [prefix, edition] : {std::pair{kMathJax2Path, kFolder2}, {kMathJax3Path, kFolder3}}) {
    if (requestPath.substr(0, prefix.size()) != prefix) continue;
    const std::string_view rest = requestPath.substr(prefix.size());
    if (!IsPlainPath(rest)) return std::nullopt;
    return folder / edition / rest;
  }
  return std::nullopt;
}

}  // namespace quill::tools
