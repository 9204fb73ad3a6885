#include "shell/menu_state.h"

#include "shell/online_session.h"

namespace quill::shell {

MenuState LookAtMenuState(const platform::Backend& backend, const Globals& globals) {
  MenuState state;
  state.oneNoteRunning = backend.desktop->OneNoteRunning();
  state.wordInstalled = backend.desktop->ApplicationInstalled("/Applications/Microsoft Word.app");
  const online::Account& account = AccountOf(globals, backend.name == platform::kPracticeBackend);
  state.signedIn = !account.OnlineOneNoteAccessToken.empty() || !account.OnlineOneNoteRefreshToken.empty();
  state.startWithMonday = globals.settings.CalendarStartWithMonday;
  return state;
}

std::string_view WhyNotNow(const CommandRow& row, const MenuState& state) {
  if (IsNotBuiltYet(row)) return "msgNotBuiltYet";
  struct Missing {
    Needs need;
    bool there;
    std::string_view key;
  };
  const Missing needs[] = {{Needs::SignedIn, state.signedIn, "strNeedsSignIn"},
                           {Needs::OneNote, state.oneNoteRunning, "strNeedsOneNote"},
                           {Needs::Word, state.wordInstalled, "strNeedsWord"}};
  for (const Missing& one : needs) {
    if (Has(row.needs, one.need) && !one.there) return one.key;
  }
  return {};
}

}  // namespace quill::shell
