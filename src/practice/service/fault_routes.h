#pragma once
#include <optional>

#include "practice/service/faults.h"
#include "practice/service/web_exchange.h"

namespace quill::practice {

/// The answer to a request that a fault strikes, in place of the real one. The faults that only bend a real
/// answer give nothing: `ResetAfter`, `TokenExpires`, `PageMoves`, `IgnoredSkip`, `Hang`; so do those that
/// break off in the middle, for requests that only read: it is the real answer that breaks off.
std::optional<WebAnswer> FaultAnswer(FaultKind kind, const WebRequest& request);

/// How the connection ends with an answer that a fault strikes.
Ending EndingOf(FaultKind kind);

/// GET, POST and DELETE of "/practice/faults". A POST brings an array of faults as `ParseFault` reads them,
/// in place of those that are waiting, or {"latencyMs": N}; DELETE ends both. All answer with what is so now.
WebAnswer FaultRoute(const WebRequest& request, FaultPlan& plan);

}  // namespace quill::practice
