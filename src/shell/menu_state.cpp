#include "shell/menu_state.h"

namespace quill::shell {

MenuState LookAtMenuState(platform::Desktop& desktop, const Globals& globals) {
  MenuState state;
  state.oneNoteRunning = desktop.OneNoteRunning();
  state.wordInstalled = desktop.ApplicationInstalled("/Applications/Microsoft Word.app");
  state.signedIn = !globals.settings.OnlineOneNoteAccessToken.empty() ||
                   !globals.settings.OnlineOneNoteRefreshToken.empty();
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
  const Missing needs[] = {{Needs::SignIn, state.signedIn, "strNeedsSignIn"},
                           {Needs::OneNote, state.oneNoteRunning, "strNeedsOneNote"},
                           {Needs::Word, state.wordInstalled, "strNeedsWord"}};
  for (const Missing& one : needs) {
    if (Has(row.needs, one.need) && !one.there) return one.key;
  }
  return {};
}

}  // namespace quill::shell
