#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "content/find_text.h"
#include "content/unicode_text.h"
#include "online/sign_in.h"
#include "online/token_requests.h"
#include "platform/curl/curl_http.h"
#include "shell/globals.h"
#include "shell/online_session.h"

namespace quill::cli {
namespace {

struct SigninOptions {
  std::optional<std::string> redirect;
  std::optional<std::string> code;
  bool status = false;
  bool out = false;
  bool json = false;
};

/// A text from elsewhere as it may be shown on a terminal: without control characters, at most 200 bytes.
std::string Printable(std::string_view text) {
  constexpr std::size_t kLongest = 200;
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    const content::DecodedChar c = content::DecodeUtf8(text, at);
    const bool isShown = c.length > 0 && c.code >= 0x20 && (c.code < 0x7F || c.code > 0x9F);
    const std::string_view piece = isShown ? text.substr(at, c.length) : " ";
    if (shown.size() + piece.size() > kLongest) break;
    shown += piece;
    at += std::max<std::size_t>(c.length, 1);
  }
  return shown;
}

/// The first line of standard input that is not empty, without white space around it. Nothing at its end.
std::optional<std::string> ReadLine() {
  constexpr std::size_t kLongest = 64u << 10;
  std::string line;
  for (char c = 0; std::cin.get(c) && line.size() < kLongest;) {
    if (c != '\n') {
      line += c;
    } else if (!content::TrimWhite(line).empty()) {
      break;
    }
  }
  const std::string_view trimmed = content::TrimWhite(line);
  if (trimmed.empty()) return std::nullopt;
  return std::string(trimmed);
}

/// An option's value, which for "-" is a line of standard input.
std::string ValueOf(const std::string& given) {
  if (given != "-") return given;
  std::optional<std::string> line = ReadLine();
  if (!line) throw Stop(kWorkFailed, "standard input ended without a line");
  return std::move(*line);
}

nlohmann::json PartOrNull(const std::string& part) {
  return part.empty() ? nlohmann::json() : nlohmann::json(part);
}

bool IsSignedIn(const online::Account& account) {
  return !account.OnlineOneNoteAccessToken.empty();
}

/// Everything of the account but the tokens.
nlohmann::json AccountJson(const online::Account& account) {
  return {{"signedIn", IsSignedIn(account)},
          {"user", PartOrNull(account.OnlineOneNoteUserPrincipalName)},
          {"userId", PartOrNull(account.OnlineOneNoteUserId)},
          {"account", PartOrNull(account.ClientUrlAccountId)}};
}

void PrintJson(const nlohmann::json& json) {
  WriteOutput("", json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
}

std::string AccountWords(const online::Account& account) {
  if (!IsSignedIn(account)) return "not signed in";
  const std::string& name = account.OnlineOneNoteUserPrincipalName;
  const std::string shown = Printable(name.empty() ? account.OnlineOneNoteUserId : name);
  return shown.empty() ? "signed in; the service told no name" : "signed in as " + shown;
}

int PrintStatus(const Call& call, bool json) {
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  if (!globals.settingsProblem.empty()) PrintError(globals.settingsProblem);
  if (json) {
    PrintJson(AccountJson(globals.settings));
  } else {
    WriteOutput("", AccountWords(globals.settings) + "\n");
  }
  return IsSignedIn(globals.settings) ? kDone : kWorkFailed;
}

/// Signs out here; the browser's own session ends at the address that is printed.
int SignOut(const Call& call, bool json) {
  shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  online::Session session = shell::OwnSession(globals);
  const Status<> saved = online::BeginLogout(session);
  if (!saved.ok()) throw Stop(kWorkFailed, saved.error());
  const std::string address = online::LogoutUrl(globals.endpoints);
  if (json) {
    nlohmann::json object = AccountJson(globals.settings);
    object["address"] = address;
    PrintJson(object);
  } else {
    PrintError("signed out; to end the session of the browser, too, open this address in it:");
    WriteOutput("", address + "\n");
  }
  return kDone;
}

/// What an address without a code says instead.
std::string ComplaintAbout(const std::string& address) {
  std::string said = online::GetFieldValueFromURL(address, "error_description");
  if (said.empty()) said = online::GetFieldValueFromURL(address, "error");
  if (!said.empty()) {
    std::replace(said.begin(), said.end(), '+', ' ');
    const std::string decoded = content::PercentUnescape(said);
    return "the service refused the sign-in: " + Printable(decoded.empty() ? said : decoded);
  }
  if (!address.starts_with("https://"))
    return "the redirected address must begin with https://; copy all of it from the browser";
  return "the redirected address has no \"?code=\"; copy it when the sign-in has come to its end";
}

online::SignInResult ResultOf(const std::string& address, const Endpoints& endpoints) {
  online::SignInPages pages(endpoints, online::SignInMode::Login);
  if (!pages.PageFinished(address).isFinished) throw Stop(kWrongCall, ComplaintAbout(address));
  return pages.Result();
}

online::SignInResult AskForRedirect(const Endpoints& endpoints, bool json) {
  const std::string address = online::AuthorizeUrl(endpoints);
  PrintError("sign in at this address with a browser, then enter the address that it ends at:");
  WriteOutput("", (json ? nlohmann::json{{"address", address}}.dump() : address) + "\n");
  const std::optional<std::string> redirected = ReadLine();
  if (!redirected) throw Stop(kWorkFailed, "no address was entered; nothing has changed");
  return ResultOf(*redirected, endpoints);
}

/// The code, and the user's name where an address told it.
online::SignInResult FindCode(const SigninOptions& options, const Endpoints& endpoints) {
  online::SignInResult result;
  if (options.code) {
    result.code = content::TrimWhite(ValueOf(*options.code));
  } else if (options.redirect) {
    result = ResultOf(std::string(content::TrimWhite(ValueOf(*options.redirect))), endpoints);
  } else {
    result = AskForRedirect(endpoints, options.json);
  }
  const auto isOdd = [](char c) { return c <= ' ' || c > '~'; };
  if (result.code.empty() || std::any_of(result.code.begin(), result.code.end(), isOdd))
    throw Stop(kWrongCall, "the code is empty or has characters that no code has");
  return result;
}

/// A problem's fixed text and, where there is one, its cause.
std::string ProblemWords(online::SignInProblem problem, const online::ServiceClient& client,
                         const shell::StringTable& strings) {
  const std::string_view text = online::SignInProblemText(problem);
  if (!client.LastFailure()) return std::string(text);
  return fmt::format("{} ({})", text, strings.Text(platform::HttpProblemKey(client.LastFailure()->problem)));
}

/// What was asked and what came of it, without saying what it is.
void NoteOutcome(shell::Explain& explain, const online::ServiceClient& client,
                 const online::Account& account) {
  const auto came = [](const std::string& part) { return part.empty() ? "no" : "yes"; };
  explain.Note(fmt::format(
      "sign-in: {} requests; access token {}, refresh token {}, user {}, account of links {}",
      client.RequestCount(), came(account.OnlineOneNoteAccessToken), came(account.OnlineOneNoteRefreshToken),
      came(account.OnlineOneNoteUserId), came(account.ClientUrlAccountId)));
}

int SignIn(const Call& call, const SigninOptions& options) {
  const Endpoints endpoints = FindEndpoints();
  if (!HasClientId(endpoints)) {
    throw Stop(
        kWorkFailed,
        "signing in needs a client identifier that is registered with the Microsoft identity platform; "
        "set it in the environment as QUILL_CLIENT_ID");
  }
  const online::SignInResult result = FindCode(options, endpoints);
  WatchInterrupts();
  platform::SystemClock clock;
  shell::Globals globals = shell::InitGlobals(call.root, clock);
  shell::Explain explain = MakeExplain(call);
  online::Session session = shell::OwnSession(globals);
  platform::CurlHttp http;
  online::ServiceClient client(http, WasInterrupted);
  bool isWhole = true;
  online::BeginLogin(session);
  const Status<> saved =
      online::FinishSignIn(session, client, result, clock.Now(), [&](online::SignInProblem problem) {
        isWhole = false;
        PrintError(ProblemWords(problem, client, call.strings));
      });
  const online::Account& account = globals.settings;
  NoteOutcome(explain, client, account);
  if (!saved.ok()) throw Stop(kWorkFailed, saved.error());
  if (isWhole && !IsSignedIn(account) && !WasInterrupted())
    PrintError("the service gave no token; a code is good for one sign-in and for a few minutes");
  if (options.json) {
    PrintJson(AccountJson(account));
  } else {
    PrintError(AccountWords(account));
  }
  return isWhole && IsSignedIn(account) && !WasInterrupted() ? kDone : kWorkFailed;
}

}  // namespace

void AddSignin(CLI::App& app, Call& call) {
  auto options = std::make_shared<SigninOptions>();
  CLI::App* signin = app.add_subcommand(
      "signin",
      "Sign in to the online notebooks. Without options: prints the address to sign in at and reads the one "
      "that "
      "the browser ends at from standard input. Other users of the machine may see a program's arguments, so "
      "standard input is the safer way for a redirected address and for a code");
  const std::vector<CLI::Option*> ways = {
      signin
          ->add_option("--redirect", options->redirect,
                       "The address that the browser ended at; - reads a line")
          ->type_name("URL"),
      signin->add_option("--code", options->code, "The code of that address; - reads a line")
          ->type_name("CODE"),
      signin->add_flag("--status", options->status, "Who is signed in; exit status 1 when nobody is"),
      signin->add_flag("--out", options->out,
                       "Sign out and print the address that ends the browser's session")};
  for (CLI::Option* way : ways) {
    for (CLI::Option* other : ways) {
      if (way != other) way->excludes(other);
    }
  }
  signin->add_flag("--json", options->json, "One JSON object, never with a token");
  signin->callback([&call, options] {
    if (options->status) {
      call.status = PrintStatus(call, options->json);
    } else if (options->out) {
      call.status = SignOut(call, options->json);
    } else {
      call.status = SignIn(call, *options);
    }
  });
}

}  // namespace quill::cli
