#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quill::files {

/// What every variable link begins with.
inline constexpr std::string_view kVariableScheme = "qvar://";

/// The variables that stand for folders of the machine a link is used on.
inline constexpr std::string_view kOneDrive = "%ONEDRIVE%";
inline constexpr std::string_view kOneDriveForBusiness = "%ONEDRIVEFORBUSINESS%";
inline constexpr std::string_view kUserProfile = "%USERPROFILE%";

/// The folders of this machine behind the variables.
struct VariableRoots {
  std::string personal;               ///< the library of the personal account listed last; "" without one
  std::vector<std::string> business;  ///< the libraries of work and school, in their order
  std::string home;
  bool hasOneDrive = true;  ///< false when the OneDrive client has no settings here
};

/// Reads the OneDrive client's settings below the user's Library folder.
VariableRoots FindVariableRoots(const std::filesystem::path& userLibrary, const std::filesystem::path& home);

/// A full path with its root replaced by the variable, the OneDrive roots first, since they mostly lie in the
/// home folder. A path under none of them stays as it is. Comparison is exact.
std::string ConvertFullNameToQVarPath(std::string_view path, const VariableRoots& roots);

/// A variable path in which what a click would misread is escaped: an apostrophe, at which the link would
/// end, and in a path with something like "%41" or "&amp;" each "%" and "&". Other paths stay as they are.
std::string EscapeWhereMisread(std::string_view variablePath);

/// The full path that a variable path means here; of several libraries of work and school the first in which
/// it exists. "" for a plain path, and for a variable without a root.
std::string ConvertQVarPathToFullName(std::string_view variablePath, const VariableRoots& roots);

/// What a link leads to.
enum class LinkState {
  Found,
  Missing,     ///< there is nothing at its path
  NoVariable,  ///< it begins with none of the variables
  NoRoot,      ///< nothing here stands for its variable
  Refused      ///< it would lead out of its root
};
struct VariableTarget {
  LinkState state = LinkState::NoVariable;
  std::string path;  ///< full; for `Missing` where it was looked for first; else ""
};

/// What the text of a clicked link means, with or without its scheme: entities and percent escapes, which
/// other programs add on the way, are undone first. Looks at the disk.
VariableTarget FindVariableTarget(std::string_view url, const VariableRoots& roots);

}  // namespace quill::files
