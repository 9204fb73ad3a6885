#include "practice/service/faults.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

constexpr std::pair<FaultKind, std::string_view> kNames[] = {
    {FaultKind::ResetBefore, "reset-before"},
    {FaultKind::ResetDuring, "reset-during"},
    {FaultKind::ResetAfter, "reset-after"},
    {FaultKind::Truncated, "truncated"},
    {FaultKind::NotJson, "not-json"},
    {FaultKind::HugeBody, "huge-body"},
    {FaultKind::Unauthorized, "unauthorized"},
    {FaultKind::UnauthorizedWithoutChallenge, "unauthorized-without-challenge"},
    {FaultKind::Forbidden, "forbidden"},
    {FaultKind::NotFound, "not-found"},
    {FaultKind::Throttled, "throttled"},
    {FaultKind::ThrottledRetryAfter, "throttled-retry-after"},
    {FaultKind::ServerError, "server-error"},
    {FaultKind::Unavailable, "unavailable"},
    {FaultKind::TokenExpires, "token-expires"},
    {FaultKind::PageMoves, "page-moves"},
    {FaultKind::IgnoredSkip, "ignored-skip"},
    {FaultKind::Hang, "hang"},
};

/// Takes MARK and a number off the end of a text; nothing when it does not end so.
std::optional<int> TakeNumber(std::string_view& text, char mark) {
  const std::size_t last = text.find_last_not_of("0123456789");
  if (last == std::string_view::npos || text[last] != mark || last + 1 == text.size()) return std::nullopt;
  int number = 0;
  const char* end = text.data() + text.size();
  if (std::from_chars(text.data() + last + 1, end, number).ec != std::errc()) return std::nullopt;
  text = content::TrimBlanks(text.substr(0, last));
  return number;
}

bool Concerns(const Fault& fault, std::string_view path) {
  const bool isAboutPages = fault.kind == FaultKind::PageMoves || fault.kind == FaultKind::IgnoredSkip;
  if (isAboutPages && path.find("/pages") == std::string_view::npos) return false;
  return path.find(fault.path) != std::string_view::npos;
}

}  // namespace

std::string_view FaultName(FaultKind kind) {
  const auto* const row =
      std::find_if(std::begin(kNames), std::end(kNames), [kind](const auto& r) { return r.first == kind; });
  return row == std::end(kNames) ? std::string_view() : row->second;
}

std::optional<FaultKind> FindFault(std::string_view name) {
  const auto* const row =
      std::find_if(std::begin(kNames), std::end(kNames), [name](const auto& r) { return r.second == name; });
  if (row == std::end(kNames)) return std::nullopt;
  return row->first;
}

std::vector<FaultKind> AllFaults() {
  std::vector<FaultKind> kinds;
  for (const auto& row : kNames) kinds.push_back(row.first);
  return kinds;
}

Result<Fault> ParseFault(std::string_view text) {
  std::string_view rest = content::TrimBlanks(text);
  Fault fault{FaultKind::NotFound, {}};
  if (const auto count = TakeNumber(rest, 'x')) fault.count = *count;
  if (const auto skip = TakeNumber(rest, '+')) fault.skip = *skip;
  const std::size_t at = rest.find('@');
  const auto kind = FindFault(content::TrimBlanks(rest.substr(0, at)));
  if (!kind) return Failure{"\"" + std::string(text) + "\" names no fault: NAME[@PATH][+SKIP][xCOUNT]"};
  if (fault.count == 0) return Failure{"\"" + std::string(text) + "\" would never strike"};
  fault.kind = *kind;
  if (at != std::string_view::npos) fault.path = rest.substr(at + 1);
  return fault;
}

std::string FaultText(const Fault& fault) {
  std::string text(FaultName(fault.kind));
  if (!fault.path.empty()) text += "@" + fault.path;
  if (fault.skip > 0) text += "+" + std::to_string(fault.skip);
  if (fault.count >= 0) text += "x" + std::to_string(fault.count);
  return text;
}

void FaultPlan::Add(Fault fault) {
  const std::lock_guard lock(m_mutex);
  m_faults.push_back(std::move(fault));
}

void FaultPlan::Replace(std::vector<Fault> faults) {
  const std::lock_guard lock(m_mutex);
  m_faults = std::move(faults);
}

void FaultPlan::Clear() {
  const std::lock_guard lock(m_mutex);
  m_faults.clear();
  m_latency = std::chrono::milliseconds(0);
}

std::vector<Fault> FaultPlan::Waiting() const {
  const std::lock_guard lock(m_mutex);
  return m_faults;
}

void FaultPlan::SetLatency(std::chrono::milliseconds latency) {
  const std::lock_guard lock(m_mutex);
  m_latency = latency;
}

std::chrono::milliseconds FaultPlan::Latency() const {
  const std::lock_guard lock(m_mutex);
  return m_latency;
}

std::optional<FaultKind> FaultPlan::Take(std::string_view path) {
  const std::lock_guard lock(m_mutex);
  for (auto fault = m_faults.begin(); fault != m_faults.end(); ++fault) {
    if (!Concerns(*fault, path)) continue;
    if (fault->skip > 0) {
      --fault->skip;
      continue;
    }
    const FaultKind kind = fault->kind;
    if (fault->count > 0 && --fault->count == 0) m_faults.erase(fault);
    return kind;
  }
  return std::nullopt;
}

}  // namespace quill::practice
