#pragma once
#include <string>
#include <string_view>

namespace quill::practice {

// What the links to the practice notebook's pages are made of, for the notebook's window and for its service.

inline constexpr std::string_view kAccount = "7c1f0a93b2d84e65";
inline constexpr std::string_view kNotebookName = "Practice";

/// "{8-4-4-4-12}" in upper case; a section's id is the same for the same name, everywhere.
std::string NotebookId();
std::string SectionId(std::string_view section);

/// Where a client link leads to. Ids in braces and upper case, "" for those that are missing.
struct LinkTarget {
  std::string sectionId;
  std::string pageId;
  std::string objectId;  ///< of a paragraph, "{GUID}&HEX"
};

/// Reads a client link; the ids may stand in braces, in escaped braces, or bare.
LinkTarget TargetOfLink(std::string_view link);

}  // namespace quill::practice
