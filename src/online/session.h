#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "base/endpoints.h"
#include "base/result.h"
#include "online/account.h"
#include "online/page_totals.h"
#include "online/resolved_pages.h"

namespace quill::online {

/// What is remembered between online commands and never saved.
struct SessionMemory {
  std::string PendingAuthCode;          ///< picked out of a redirect, until it is exchanged
  std::int64_t LastCountCheckTime = 0;  ///< of the last page count, in whole seconds since 1970
  std::int64_t TryRefreshTokens = 0;    ///< refreshes on the command side that have yielded no access token
  PageTotals pages;
  ResolvedPages resolvedPages;
};

/// One account at one service, as a command works with it: the user's own, or that of the practice notebook.
/// Refers to what its owner keeps. Command thread.
struct Session {
  const Endpoints& endpoints;
  Account& account;
  SessionMemory& memory;
  std::function<Status<>()> save;  ///< writes the account to where it is kept
};

}  // namespace quill::online
