#include "login_service.h"

#include <QLabel>
#include <QTest>
#include <stdexcept>

#include "ui/kit/qt_text.h"
#include "ui/web_plugin.h"

namespace quill::ui {
namespace {

constexpr const char* kHtml = "text/html; charset=utf-8";
constexpr const char* kLoginPage = R"html(<!doctype html><html lang=en><title>Sign in to your account</title>
<style>
body { font: 16px sans-serif; margin: 0; display: grid; place-items: center; height: 100vh; background: #eef1f5 }
form { background: #fff; padding: 2em 3em; display: grid; gap: .8em; box-shadow: 0 2px 8px #0003 }
h1 { font-size: 1.4em; margin: 0 }
input, button { font: inherit; padding: .4em .6em }
</style>
<form method=post action=/login>
<h1>Sign in</h1>
<label for=u>Account</label><input id=u name=user autofocus onfocus="painted('ready')">
<label for=p>Password</label><input id=p name=password type=password>
<button>Next</button>
</form>)html";
constexpr const char* kReport = R"html(<script>
function report(word) { fetch('/report?word=' + word); }
function painted(word) { requestAnimationFrame(() => requestAnimationFrame(() => report(word))); }
</script>)html";

}  // namespace

LoginService::LoginService() {
  pages().set_pre_routing_handler([this](const httplib::Request& request, httplib::Response&) {
    Note(request);
    return httplib::Server::HandlerResponse::Unhandled;
  });
  pages().Get("/report", [](const httplib::Request&, httplib::Response& out) { out.status = 204; });
  pages().Post("/login", [](const httplib::Request& in, httplib::Response& out) {
    const bool isRight = in.get_param_value("password") == "s3cret";
    out.set_redirect(isRight ? std::string(kRedirect) + "?code=M.C5_a!b%2A$&username=" +
                                   httplib::detail::encode_query_param(in.get_param_value("user"))
                             : "/denied");
  });
  Put(kRedirect, "");
}

void LoginService::Put(const std::string& path, const std::string& html) {
  pages().Get(path, [html](const httplib::Request&, httplib::Response& out) {
    out.set_content(kReport + html, kHtml);
  });
}

void LoginService::PutLogin() {
  Put(kAuthorize, kLoginPage);
}

void LoginService::Note(const httplib::Request& request) {
  const std::lock_guard lock(m_mutex);
  if (request.path == "/report") m_heard.insert(request.get_param_value("word"));
  m_cookies[request.path].push_back(request.get_header_value("Cookie"));
}

Endpoints LoginService::endpoints() const {
  Endpoints endpoints;
  endpoints.identity = endpoints.signIn = address();
  endpoints.clientId = "11111111-2222-3333-4444-555555555555";
  return endpoints;
}

bool LoginService::Heard(const std::string& word) const {
  return AllHeard().contains(word);
}

std::set<std::string> LoginService::AllHeard() const {
  const std::lock_guard lock(m_mutex);
  return m_heard;
}

std::vector<std::string> LoginService::CookiesAt(const std::string& path) const {
  const std::lock_guard lock(m_mutex);
  const auto found = m_cookies.find(path);
  return found == m_cookies.end() ? std::vector<std::string>() : found->second;
}

SignInDialog::SignInDialog(GuiWorld& world, const Endpoints& endpoints, online::SignInMode mode) {
  const Result<WebViews*> views = LoadWebViews();
  if (!views.ok()) throw std::runtime_error(views.error());
  window = new MWinLoginOnlineOneNote(world.strings, (*views)->CreateSignInView(world.strings),
                                      {endpoints, mode}, [this](std::optional<online::SignInResult> given) {
                                        isOver = true;
                                        answer = std::move(given);
                                      });
  window->show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

std::string SignInDialog::Problem() const {
  const auto* problem = window->findChild<QLabel*>(QStringLiteral("problem"));
  return problem->isVisible() ? FromQt(problem->text()) : "";
}

void PressInPage(Qt::Key key) {
  EXPECT_TRUE(WaitUntil([] { return Focused() == "Page of the sign-in service"; }));
  Press(key);
}

}  // namespace quill::ui
