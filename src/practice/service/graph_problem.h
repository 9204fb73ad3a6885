#pragma once
#include <string>

#include "practice/service/web_exchange.h"

namespace quill::practice {

/// Why the OneNote service refuses a request.
struct GraphProblem {
  int status = 400;
  std::string code;     ///< its own, such as "20102"
  std::string message;  ///< in words
};

/// The answer that tells it: JSON with one blank behind each colon, which clients search for literally.
WebAnswer ProblemAnswer(const GraphProblem& problem);

/// As `ProblemAnswer` for a request without a token that is good; with the challenge that belongs to it, or
/// without.
WebAnswer NoTokenAnswer(bool hasChallenge);

}  // namespace quill::practice
