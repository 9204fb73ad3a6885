#pragma once
#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quill::practice {

/// Names with values in the order in which they came, unescaped.
using Fields = std::vector<std::pair<std::string, std::string>>;

/// The fields of a query or of a form ("a=b&c=d"): %XX decoded, "+" a blank. O(text).
Fields ParseFields(std::string_view text);

/// The first field of that name; "" without one.
std::string FieldOf(const Fields& fields, std::string_view name);
bool HasField(const Fields& fields, std::string_view name);

/// One request.
struct WebRequest {
  std::string method;
  std::string target;                 ///< path and query as they were sent
  std::vector<std::string> segments;  ///< the path's parts, each unescaped by itself
  Fields query;
  Fields form;       ///< of a body that is a form
  std::string body;  ///< any other body
  std::string authorization;
  std::string cookie;
  std::string host;
  std::string origin;
};

/// Takes a target apart into `target`, `segments` and `query`.
void SetTarget(WebRequest& request, std::string_view target);

/// How the connection ends with an answer.
enum class Ending {
  Kept,
  ResetBefore,  ///< reset, and nothing of the answer is sent
  ResetDuring,  ///< reset in the middle of the body
  ResetAfter,   ///< reset behind the body
  CloseDuring   ///< closed orderly in the middle of the body
};

/// One answer.
struct WebAnswer {
  int status = 200;
  std::string type = "text/plain; charset=utf-8";
  std::string body;
  std::size_t filler = 0;  ///< when not 0: so many bytes instead of `body`
  Fields headers;
  Ending ending = Ending::Kept;
};

/// Waits; false when there is no use in an answer any more: the client has left, or the server stops.
using Pause = std::function<bool(std::chrono::milliseconds)>;

}  // namespace quill::practice
