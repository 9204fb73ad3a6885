#pragma once
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::practice {

/// What can go wrong with one request.
enum class FaultKind {
  ResetBefore,   ///< the connection is reset before a byte of the answer
  ResetDuring,   ///< in the middle of the body
  ResetAfter,    ///< right after the whole answer
  Truncated,     ///< the connection is closed orderly in the middle of the body
  NotJson,       ///< an HTML page with status 200
  HugeBody,      ///< 50 MB with status 200
  Unauthorized,  ///< 401 with a challenge
  UnauthorizedWithoutChallenge,
  Forbidden,
  NotFound,
  Throttled,            ///< 429 without Retry-After
  ThrottledRetryAfter,  ///< 429 with it
  ServerError,          ///< 500
  Unavailable,          ///< 503
  TokenExpires,         ///< the access token is worthless from this request on
  PageMoves,            ///< between two batches of a list of pages the first page goes to the end
  IgnoredSkip,          ///< "skip" is not looked at
  Hang                  ///< no answer for a minute
};

/// The kind's name on the command line ("reset-before"), and back.
std::string_view FaultName(FaultKind kind);
std::optional<FaultKind> FindFault(std::string_view name);
std::vector<FaultKind> AllFaults();

/// One fault that is waiting.
struct Fault {
  FaultKind kind;
  std::string path;  ///< only for requests whose path contains this; empty: any
  int skip = 0;      ///< so many requests of that path go well first
  int count = -1;    ///< how often it strikes; −1: always
};

/// A fault as the command line names it: NAME[@PATH][+SKIP][xCOUNT], blanks before "+" and "x" allowed. A
/// PATH that itself ends like one of the two needs the other form behind it.
Result<Fault> ParseFault(std::string_view text);

/// The text that `ParseFault` reads as this fault.
std::string FaultText(const Fault& fault);

/// What goes wrong from now on. Thread-safe.
class FaultPlan {
 public:
  void Add(Fault fault);
  /// Takes these in place of those that are waiting; the latency stays.
  void Replace(std::vector<Fault> faults);
  /// Nothing goes wrong any more, and nothing is held back.
  void Clear();
  /// Those that are waiting, with what is left of their numbers.
  std::vector<Fault> Waiting() const;

  /// Each answer is held back for so long.
  void SetLatency(std::chrono::milliseconds latency);
  std::chrono::milliseconds Latency() const;

  /// The fault that strikes this request, if any; it is counted. `path` comes with its query, as it was sent.
  /// What concerns lists of pages strikes nothing but these.
  std::optional<FaultKind> Take(std::string_view path);

 private:
  mutable std::mutex m_mutex;
  std::vector<Fault> m_faults;
  std::chrono::milliseconds m_latency{0};
};

}  // namespace quill::practice
