#pragma once
#include <chrono>

#include "online/service_client.h"
#include "online/session.h"

namespace quill::online {

// The token operations of commands: each is done when it returns and tells nothing; what came of it is in the
// session. Command thread.

inline constexpr std::chrono::seconds kTokenDeadline{10};
inline constexpr std::chrono::seconds kUserDeadline{30};

/// Exchanges the pending code, if there is one, for tokens. Does nothing to them on a transport failure. A
/// code that was answered is no longer pending: it is good for one exchange.
void RetrieveTokensByCode(Session& session, ServiceClient& client);

/// Asks for fresh tokens. Both are taken from what came back, whatever that was: a failed request leaves
/// none, in memory (the file keeps them). After four in a row without an access token both are cleared for
/// certain, so that the next command asks the user to sign in. A command that the user has ended changes
/// nothing.
void RefreshTokens(Session& session, ServiceClient& client);

/// Asks who the signed-in user is.
void RetrieveUserIdByToken(Session& session, ServiceClient& client);

}  // namespace quill::online
