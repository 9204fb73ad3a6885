#include "shell/online_session.h"

namespace quill::shell {
namespace {

/// A service that was started anew knows nobody.
void UsePracticeService(PracticeAccount& practice, Endpoints endpoints) {
  if (practice.endpoints.graph != endpoints.graph) practice = {};
  practice.endpoints = std::move(endpoints);
}

}  // namespace

Result<online::Session> OpenSession(const Services& services, Globals& globals) {
  if (!services.practiceService) {
    return OwnSession(globals);
  }
  Result<Endpoints> endpoints = services.practiceService();
  if (!endpoints.ok()) return Failure{endpoints.error()};
  PracticeAccount& practice = globals.practice;
  UsePracticeService(practice, std::move(*endpoints));
  return online::Session{practice.endpoints, practice.account, practice.memory,
                         []() -> Status<> { return Done(); }};
}

online::Session OwnSession(Globals& globals) {
  return {globals.endpoints, globals.settings, globals.onlineMemory, [&globals] {
            return SaveSettingRows(
                globals, {"OnlineOneNoteAccessToken", "OnlineOneNoteRefreshToken", "ClientUrlAccountId",
                          "OnlineOneNoteUserId", "OnlineOneNoteUserPrincipalName"});
          }};
}

const online::Account& AccountOf(const Globals& globals, bool isPractice) {
  return isPractice ? globals.practice.account : globals.settings;
}

}  // namespace quill::shell
