#pragma once
#include <string>
#include <vector>

namespace quill::shell {

/// An equation to be put into the page.
struct EquationChoice {
  std::string html;        ///< a fragment for the page: the equation itself, or its picture
  std::string formula;     ///< what the field held, for the recent formulas
  bool asPicture = false;  ///< which of the two it is
};

/// `MWinLaTeX`: asks for a formula.
struct EquationRequest {
  using Answer = EquationChoice;
  std::string formula = {};  ///< what the field begins with; empty for an empty pair of delimiters
  std::vector<std::string> recent = {};  ///< formulas to choose from, the latest first
  bool asPicture = false;                ///< what is chosen at first
  std::string mathJaxAddress = {};       ///< the setting of that name
};

}  // namespace quill::shell
