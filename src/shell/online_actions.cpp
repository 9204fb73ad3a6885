#include "shell/online_actions.h"

#include <functional>

#include "online/online_main.h"
#include "shell/command_table.h"
#include "shell/online_bridge.h"
#include "shell/online_session.h"

namespace quill::shell {
namespace {

void WithService(CommandContext& context, const std::function<void(online::MOnlineOneNoteMain&)>& work) {
  Services& services = context.services;
  if (services.engines.http == nullptr) {
    return services.ui.ShowMessage(services.strings.Text("errHttpFailed"));
  }
  Result<online::Session> session = OpenSession(services, context.globals);
  if (!session.ok()) return services.ui.ShowMessage(session.error());
  OnlineBridge bridge(services, context.globals, session->endpoints);
  online::MOnlineOneNoteMain main(bridge, *session, *services.engines.http, services.clock);
  work(main);
}

}  // namespace

void RunOnline(CommandContext& context, const CommandRow& row) {
  WithService(context, [&row](online::MOnlineOneNoteMain& main) { main.RunInsert(row.argument); });
}

void SignIn(CommandContext& context, const CommandRow&) {
  WithService(context, [](online::MOnlineOneNoteMain& main) { main.SignIn(online::SignInMode::Login); });
}

void SignOut(CommandContext& context, const CommandRow&) {
  WithService(context,
              [](online::MOnlineOneNoteMain& main) { main.SignIn(online::SignInMode::LogoutThenLogin); });
}

}  // namespace quill::shell
