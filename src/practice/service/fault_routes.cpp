#include "practice/service/fault_routes.h"

#include <nlohmann/json.hpp>

#include "practice/service/graph_problem.h"
#include "practice/service/html_text.h"

namespace quill::practice {
namespace {

constexpr std::size_t kHuge = std::size_t{50} << 20;
constexpr int kLongestLatency = 600'000;

WebAnswer NotJson() {
  WebAnswer answer;
  answer.type = "text/html; charset=utf-8";
  answer.body = SmallPage("Welcome to the network", "<p>Accept the terms of use to go on.</p>");
  return answer;
}

WebAnswer Huge() {
  WebAnswer answer;
  answer.type = "application/json";
  answer.filler = kHuge;
  return answer;
}

WebAnswer Throttled(bool hasRetryAfter) {
  WebAnswer answer = ProblemAnswer(
      {429, "20166", "The app has exceeded the maximum number of requests that is allowed in this time."});
  if (hasRetryAfter) answer.headers = {{"Retry-After", "1"}};
  return answer;
}

/// What breaks off when there is no real answer that may: the request must not have an effect.
WebAnswer SomeAnswer() {
  WebAnswer answer;
  answer.type = "application/json";
  answer.body = R"({"@odata.context":"practice","value":[]})";
  return answer;
}

WebAnswer Told(int status, const std::string& words) {
  WebAnswer answer;
  answer.status = status;
  answer.body = words + "\n";
  return answer;
}

WebAnswer ShowPlan(const FaultPlan& plan) {
  nlohmann::ordered_json shown = {{"faults", nlohmann::ordered_json::array()},
                                  {"latencyMs", plan.Latency().count()}};
  for (const Fault& fault : plan.Waiting()) shown["faults"].push_back(FaultText(fault));
  WebAnswer answer;
  answer.type = "application/json";
  answer.body = shown.dump();
  return answer;
}

WebAnswer TakePlan(const nlohmann::json& texts, FaultPlan& plan) {
  std::vector<Fault> faults;
  for (const nlohmann::json& text : texts) {
    if (!text.is_string()) return Told(400, "a fault is a text: NAME[@PATH][+SKIP][xCOUNT]");
    Result<Fault> fault = ParseFault(text.get<std::string>());
    if (!fault.ok()) return Told(400, fault.error());
    faults.push_back(std::move(*fault));
  }
  plan.Replace(std::move(faults));
  return ShowPlan(plan);
}

}  // namespace

std::optional<WebAnswer> FaultAnswer(FaultKind kind, const WebRequest& request) {
  const bool onlyReads = request.method == "GET" || request.method == "HEAD";
  switch (kind) {
    case FaultKind::ResetBefore:
      return SomeAnswer();
    case FaultKind::ResetDuring:
    case FaultKind::Truncated:
      return onlyReads ? std::nullopt : std::optional(SomeAnswer());
    case FaultKind::NotJson:
      return NotJson();
    case FaultKind::HugeBody:
      return Huge();
    case FaultKind::Unauthorized:
      return NoTokenAnswer(true);
    case FaultKind::UnauthorizedWithoutChallenge:
      return NoTokenAnswer(false);
    case FaultKind::Forbidden:
      return ProblemAnswer({403, "40004", "The user does not have the permission for this."});
    case FaultKind::NotFound:
      return ProblemAnswer({404, "20102", "The specified resource ID does not exist."});
    case FaultKind::Throttled:
      return Throttled(false);
    case FaultKind::ThrottledRetryAfter:
      return Throttled(true);
    case FaultKind::ServerError:
      return ProblemAnswer({500, "19999", "Something failed, and the cause is not known."});
    case FaultKind::Unavailable:
      return ProblemAnswer({503, "30101", "The service is not available."});
    case FaultKind::ResetAfter:
    case FaultKind::TokenExpires:
    case FaultKind::PageMoves:
    case FaultKind::IgnoredSkip:
    case FaultKind::Hang:
      return std::nullopt;
  }
  return std::nullopt;
}

Ending EndingOf(FaultKind kind) {
  switch (kind) {
    case FaultKind::ResetBefore:
      return Ending::ResetBefore;
    case FaultKind::ResetDuring:
      return Ending::ResetDuring;
    case FaultKind::ResetAfter:
      return Ending::ResetAfter;
    case FaultKind::Truncated:
      return Ending::CloseDuring;
    default:
      return Ending::Kept;
  }
}

WebAnswer FaultRoute(const WebRequest& request, FaultPlan& plan) {
  if (request.method == "DELETE") plan.Clear();
  if (request.method != "POST") return ShowPlan(plan);
  const nlohmann::json body = nlohmann::json::parse(request.body, nullptr, false);
  if (body.is_array()) return TakePlan(body, plan);
  if (!body.is_object() || !body.contains("latencyMs") || !body["latencyMs"].is_number_unsigned())
    return Told(400, R"(an array of faults is wanted, or {"latencyMs": N})");
  const auto latency = body["latencyMs"].get<std::uint64_t>();
  if (latency > kLongestLatency) return Told(400, "the latency is ten minutes at most");
  plan.SetLatency(std::chrono::milliseconds(latency));
  return ShowPlan(plan);
}

}  // namespace quill::practice
