#include "platform/http.h"

#include <algorithm>

namespace quill::platform {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, Lower, Lower);
}

}  // namespace

std::string_view HttpProblemKey(HttpProblem problem) {
  switch (problem) {
    case HttpProblem::BadRequest:
      return "errHttpBadRequest";
    case HttpProblem::HostNotFound:
      return "errHttpHostNotFound";
    case HttpProblem::NotConnected:
      return "errHttpNotConnected";
    case HttpProblem::Insecure:
      return "errHttpInsecure";
    case HttpProblem::TimedOut:
      return "errHttpTimedOut";
    case HttpProblem::TooLarge:
      return "errHttpTooLarge";
    case HttpProblem::CutOff:
      return "errHttpCutOff";
    case HttpProblem::TooManyRedirects:
      return "errHttpRedirects";
    case HttpProblem::Cancelled:
      return "";
    case HttpProblem::Failed:
      return "errHttpFailed";
  }
  return "";
}

std::string_view HeaderValue(const std::vector<HttpHeader>& headers, std::string_view name) {
  const auto found =
      std::ranges::find_if(headers, [name](const HttpHeader& header) { return SameName(header.name, name); });
  return found == headers.end() ? std::string_view() : found->value;
}

}  // namespace quill::platform
