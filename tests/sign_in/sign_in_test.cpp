#include <QPushButton>
#include <QStringList>

#include "login_service.h"

namespace quill::ui {
namespace {

/// The engine paints when it likes to.
void EnginePicture(QWidget& window, const std::string& name) {
  if (qEnvironmentVariableIsSet("QUILL_PICTURES")) ProcessEventsFor(1s);
  Picture(window, name);
}

void LogIn() {
  Type("anna+home@example.org");
  Press(Qt::Key_Tab);
  Type("s3cret");
  PressInPage(Qt::Key_Return);
}

// Nobody needs a mouse, and the code arrives with every letter as the service wrote it.
TEST(SignIn, WholeLoginByKeyboard) {
  GuiWorld world;
  LoginService service;
  service.PutLogin();
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); })) << "the page does not get the keyboard";
  EXPECT_EQ(UnnamedControls(*dialog.window), std::vector<std::string>());
  EXPECT_TRUE(dialog.window->windowTitle().startsWith("Sign in – 127.0.0.1:"));
  EnginePicture(*dialog.window, "sign-in-login");
  LogIn();
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver; }));
  ASSERT_TRUE(dialog.answer);
  EXPECT_EQ(dialog.answer->code, "M.C5_a!b%2A$");
  EXPECT_EQ(dialog.answer->userName, "anna%2Bhome@example.org");
}

// Somebody else must be able to sign in on this machine: nothing of the former session reaches the service.
TEST(SignIn, LogoutLeavesNoCookieForTheLogin) {
  GuiWorld world;
  LoginService service;
  service.PutLogin();
  service.pages().Get(kLogout, [](const httplib::Request&, httplib::Response& out) {
    out.set_header("Set-Cookie", "session=still-here; Path=/; Max-Age=3600");
    out.set_content(
        "<script>document.cookie = 'script=too; path=/'; localStorage.setItem('k', 'v');"
        "for (const i of [1, 2, 3]) fetch('/slow' + i);</script>Signed out",
        "text/html");
  });
  service.pages().Get("/slow.", [](const httplib::Request&, httplib::Response& out) {
    out.set_header("Set-Cookie", "late=1; Path=/");
  });
  service.Start();
  SignInDialog dialog(world, service.endpoints(), online::SignInMode::LogoutThenLogin);
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); }));
  EXPECT_EQ(service.CookiesAt(kLogout), std::vector<std::string>{""});
  EXPECT_EQ(service.CookiesAt(kAuthorize), std::vector<std::string>{""});
  EXPECT_EQ(service.CookiesAt("/report"), std::vector<std::string>{""});
  LogIn();
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver; }));
  EXPECT_TRUE(dialog.answer);
}

// Cookies have to live as long as the login does, and not until the next.
TEST(SignIn, CookiesEndWithTheWindow) {
  GuiWorld world;
  LoginService service;
  service.pages().Get(kAuthorize, [](const httplib::Request&, httplib::Response& out) {
    out.set_header("Set-Cookie", "flow=1; Path=/; Max-Age=3600");
    out.set_redirect("/second");
  });
  service.Put("/second", "<script>report('second')</script>");
  service.Start();
  for (int times = 1; times <= 2; ++times) {
    SignInDialog dialog(world, service.endpoints());
    ASSERT_TRUE(WaitUntil([&] { return static_cast<int>(service.CookiesAt("/report").size()) == times; }));
  }
  EXPECT_EQ(service.CookiesAt("/second"), (std::vector<std::string>{"flow=1", "flow=1"}));
  EXPECT_EQ(service.CookiesAt(kAuthorize), (std::vector<std::string>{"", ""}));
}

// The keys that every browser has.
TEST(SignIn, KeysReloadGoBackAndClose) {
  GuiWorld world;
  LoginService service;
  service.Put(kAuthorize,
              "<title>First</title><a id=next href=/second>next</a>"
              "<script>onload = () => { next.focus(); painted('first'); }</script>");
  service.Put("/second", "<title>Second</title><input autofocus onfocus=\"painted('second')\">");
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  const auto times = [&](const char* path) { return service.CookiesAt(path).size(); };
  const auto showsTitle = [&](const char* title) {
    return WaitUntil([&] {
      return dialog.window->findChild<QWidget*>("labelShowTitle")->accessibleName() == QLatin1String(title);
    });
  };
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("first"); }));
  Press(Qt::Key_Left, Qt::AltModifier);
  ASSERT_TRUE(showsTitle("First")) << "behind the first page there is nothing";
  PressInPage(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("second"); }));
  Press(Qt::Key_F5);
  ASSERT_TRUE(WaitUntil([&] { return times("/second") == 2; }));
  Press(Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(WaitUntil([&] { return times("/second") == 3; }));
  ASSERT_TRUE(showsTitle("Second"));
  Press(Qt::Key_Left, Qt::AltModifier);
  ASSERT_TRUE(showsTitle("First"));
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver; }));
  EXPECT_FALSE(dialog.answer);
}

/// Whether the Tab key comes to the button behind the page.
bool TabLeavesThePage() {
  bool wasOutside = false;
  for (int presses = 0; presses < 12 && !wasOutside; ++presses) {
    Press(Qt::Key_Tab);
    wasOutside = WaitUntil([] { return Focused() == "&Cancel"; }, 500ms);
  }
  return wasOutside;
}

// While one server hands over to the next, a blank that is typed must not press Cancel.
TEST(SignIn, KeyboardStaysWithThePageFromServerToServer) {
  GuiWorld world;
  LoginService service;
  std::string next = service.address() + "/next";
  next.replace(next.find("127.0.0.1"), 9, "localhost");
  service.Put(kAuthorize, "<script>onload = () => { location = '" + next + "' }</script>");
  service.Put("/next", "No field. <script>painted('next')</script>");
  service.Start();
  QStringList strays;
  SignInDialog dialog(world, service.endpoints());
  QObject::connect(qApp, &QApplication::focusChanged, dialog.window, [&](QWidget*, const QWidget* now) {
    if (qobject_cast<const QPushButton*>(now) != nullptr) strays += "a button";
  });
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("next"); }));
  ProcessEventsFor(200ms);
  EXPECT_EQ(strays.join(' ').toStdString(), "");
  EXPECT_EQ(Focused(), "Page of the sign-in service");
  EXPECT_TRUE(TabLeavesThePage()) << "which a page without a field must not prevent";
}

// A page that keeps the keyboard would lock the user in.
TEST(SignIn, TabLeavesThePage) {
  GuiWorld world;
  LoginService service;
  service.PutLogin();
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); }));
  EXPECT_TRUE(TabLeavesThePage());
}

}  // namespace
}  // namespace quill::ui
