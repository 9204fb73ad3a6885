#include "practice/service/graph_problem.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace quill::practice {

WebAnswer ProblemAnswer(const GraphProblem& problem) {
  WebAnswer answer;
  answer.status = problem.status;
  answer.type = "application/json";
  answer.body =
      fmt::format(R"({{"error": {{"code": {}, "message": {}, "innerError": {{"request-id": "practice"}}}}}})",
                  nlohmann::json(problem.code).dump(), nlohmann::json(problem.message).dump());
  return answer;
}

WebAnswer NoTokenAnswer(bool hasChallenge) {
  WebAnswer answer =
      ProblemAnswer({401, "40001", "The request does not contain a valid authentication token."});
  if (hasChallenge) {
    answer.headers = {
        {"WWW-Authenticate",
         R"(Bearer realm="practice", error="invalid_token", error_description="The token is expired")"}};
  }
  return answer;
}

}  // namespace quill::practice
