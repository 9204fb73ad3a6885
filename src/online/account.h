#pragma once
#include <string>

namespace quill::online {

/// The signed-in user, as the settings keep him. All empty: nobody is signed in.
///
/// The two tokens are secrets: they go into the "Authorization" header or the body of a request and nowhere
/// else.
struct Account {
  std::string OnlineOneNoteAccessToken;   ///< empty: not signed in
  std::string OnlineOneNoteRefreshToken;  ///< of the last answer to a token request
  std::string ClientUrlAccountId;   ///< the account part of the client links of the user's own notebooks
  std::string OnlineOneNoteUserId;  ///< of the service; during a sign-in the user name that the redirect told
  std::string OnlineOneNoteUserPrincipalName;

  bool operator==(const Account&) const = default;
};

}  // namespace quill::online
