#pragma once
#include <gtest/gtest.h>

#include <QPointer>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "gui_world.h"
#include "platform/web_server.h"
#include "shell/sign_in_request.h"
#include "ui/windows/sign_in/win_login_online_onenote.h"

namespace quill::ui {

inline constexpr const char* kAuthorize = "/common/oauth2/v2.0/authorize";
inline constexpr const char* kRedirect = "/oauth20_desktop.srf";
inline constexpr const char* kLogout = "/oauth20_logout.srf";

/// A login service on this machine. What its pages tell with `report('word')` is kept, and with
/// `painted('word')` once they have been painted: before that the engine drops keys.
class LoginService {
 public:
  LoginService();

  /// `html` with these functions in it is what the address answers. To be called before `Start`.
  void Put(const std::string& path, const std::string& html);
  /// The usual page that asks for account and password; it reports "ready" when it can be typed into.
  void PutLogin();
  void Start() { m_server.Start(); }
  void Hang() const { m_server.Hang(); }

  Endpoints endpoints() const;
  std::string address() const { return m_server.address(); }
  httplib::Server& pages() { return m_server.pages; }

  /// Whether a page has reported this word.
  bool Heard(const std::string& word) const;
  std::set<std::string> AllHeard() const;
  /// The cookies that came with the requests for a path, one text for each request.
  std::vector<std::string> CookiesAt(const std::string& path) const;

 private:
  void Note(const httplib::Request& request);

  mutable std::mutex m_mutex;
  std::set<std::string> m_heard;
  std::map<std::string, std::vector<std::string>> m_cookies;
  test::WebServer m_server;
};

/// The sign-in window with the plug-in's view, on the screen.
struct SignInDialog {
  SignInDialog(GuiWorld& world, const Endpoints& endpoints,
               online::SignInMode mode = online::SignInMode::Login);
  ~SignInDialog() { delete window; }
  SignInDialog(const SignInDialog&) = delete;

  /// The words that stand in the place of a page; empty while a page is shown.
  std::string Problem() const;

  QPointer<MWinLoginOnlineOneNote> window;
  bool isOver = false;
  std::optional<online::SignInResult> answer;
};

/// Presses a key once the page has the keyboard.
void PressInPage(Qt::Key key);

}  // namespace quill::ui
