#include "online/online_messages.h"

#include <fmt/format.h>

namespace quill::online {
namespace {

/// The last line of the figures: the service's words, or why it could not be asked.
std::string Reason(OnlineHost& host, const SearchDiagnostics& seen, bool isSignedIn) {
  if (!seen.m_LogErrorMessage.empty()) return seen.m_LogErrorMessage;
  if (seen.failure) return host.Text(platform::HttpProblemKey(seen.failure->problem));
  // The service asked for credentials, and fresh ones have come.
  if (seen.m_LogTrys > 0) return host.Text(isSignedIn ? "strSignInRenewed" : "strSignInExpired");
  return {};
}

}  // namespace

std::string ServiceErrorText(OnlineHost& host, const ServiceError& error) {
  if (error.IsThrottled()) return host.Text("errThrottled");
  const std::string code =
      error.code.empty() ? std::to_string(error.status) : fmt::format("{}, {}", error.status, error.code);
  return host.Text("errServiceReply", {code});
}

std::string SearchFailureText(OnlineHost& host, const SearchDiagnostics& seen, bool isSignedIn) {
  const std::string why = seen.error ? ServiceErrorText(host, *seen.error) : host.Text("errServerIndexing");
  return fmt::format("{} \nE:{}, T:{}, S:{}, P:{} \nM:{}.", why, seen.m_ErrorCode, seen.m_LogTrys,
                     seen.m_LogSections, seen.m_LogPages, Reason(host, seen, isSignedIn));
}

}  // namespace quill::online
