#pragma once
#include "base/endpoints.h"
#include "online/sign_in.h"

namespace quill::shell {

/// `MWinLoginOnlineOneNote`: shows the pages of a sign-in. What it answers is not exchanged for anything yet.
struct SignInRequest {
  using Answer = online::SignInResult;
  Endpoints endpoints;
  online::SignInMode mode = online::SignInMode::Login;
};

}  // namespace quill::shell
