#pragma once
#include "base/result.h"
#include "online/session.h"
#include "shell/globals.h"
#include "shell/services.h"

namespace quill::shell {

/// Whoever is signed in at the service that belongs to the command's target: the user's own account with the
/// settings behind it, or the practice notebook's, which lives in memory only. Fails, with a text for the
/// user, when the practice notebook's service cannot be reached. The session refers to `globals`. Command
/// thread.
Result<online::Session> OpenSession(const Services& services, Globals& globals);

/// The user's own account, for work beside the commands: saving it leaves every other setting in the file as
/// it is. The session refers to `globals`. Command thread.
online::Session OwnSession(Globals& globals);

/// The account of that session, without asking any service.
const online::Account& AccountOf(const Globals& globals, bool isPractice);

}  // namespace quill::shell
