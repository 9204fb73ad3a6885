#pragma once

namespace quill::shell {

struct CommandContext;
struct CommandRow;

// Handlers of the command table for the online service. Command thread.

/// Runs the online command whose number is the row's argument.
void RunOnline(CommandContext& context, const CommandRow& row);

/// Signs in with the service's pages.
void SignIn(CommandContext& context, const CommandRow& row);

/// Signs out; the pages then offer another sign-in.
void SignOut(CommandContext& context, const CommandRow& row);

}  // namespace quill::shell
