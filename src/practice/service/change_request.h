#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "practice/service/online_page.h"

namespace quill::practice {

enum class ChangeAction { Replace, Append, Insert };

/// One change of a page as it was asked for.
struct Change {
  std::string target;
  ChangeAction action = ChangeAction::Replace;
  bool before = false;  ///< append as the first child, insert before the target
  std::string content;  ///< HTML
};

/// The service's codes for what it refuses.
inline constexpr std::string_view kBadRequest = "20112";  ///< not an array of changes
inline constexpr std::string_view kTargetNotFound = "20120";
inline constexpr std::string_view kNotForThisTarget = "20124";  ///< an action that the element does not know

ChangeProblem Refusal(std::string_view code, std::string message);

/// Reads the array of changes that a PATCH sends. "prepend" is an append before. A position other than
/// "before" and "after", an unknown action, a missing target or content, and an array without changes are
/// refused.
Result<std::vector<Change>, ChangeProblem> ParseChanges(std::string_view json);

}  // namespace quill::practice
