#include <QLabel>

#include "login_service.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/sign_in/page_place.h"

namespace quill::ui {
namespace {

/// A view whose pages are what the test says.
class FakeView final : public SignInView {
 public:
  FakeView() {
    m_widget.setAccessibleName("Page of the sign-in service");
    m_widget.setFocusPolicy(Qt::StrongFocus);
  }
  QWidget& Widget() override { return m_widget; }
  void Listen(SignInEvents given) override { events = std::move(given); }
  void ShowLoading(const QUrl&) override { log += "loading; "; }
  void Load(const QUrl& url) override { log += "load " + FromQt(url.path()) + "; "; }
  void Back() override { log += "back; "; }
  bool CanGoBack() const override { return canGoBack; }
  void Reload() override { log += "reload; "; }
  void ClearCookiesAndCache(std::function<void()> done) override {
    log += "clear; ";
    cleared = std::move(done);
  }

  SignInEvents events;
  std::string log;
  bool canGoBack = false;
  std::function<void()> cleared;

 private:
  QWidget m_widget;
};

/// The window at the services of the release, with pages of the test's own.
struct FakeDialog {
  explicit FakeDialog(online::SignInMode mode = online::SignInMode::Login) {
    auto fake = std::make_unique<FakeView>();
    view = fake.get();
    window = new MWinLoginOnlineOneNote(world.strings, std::move(fake), {Endpoints{}, mode},
                                        [this](std::optional<online::SignInResult> given) {
                                          isOver = true;
                                          answer = std::move(given);
                                        });
    window->show();
    WaitForWindow<MWinLoginOnlineOneNote>();
  }
  std::string Shown(const char* label) const {
    const auto* found = window->findChild<QLabel*>(QLatin1String(label));
    EXPECT_EQ(found->textFormat(), Qt::PlainText) << label;
    return found->isVisible() ? FromQt(found->text()) : "";
  }
  GuiWorld world;
  FakeView* view;
  QPointer<MWinLoginOnlineOneNote> window;
  bool isOver = false;
  std::optional<online::SignInResult> answer;
};

// Anybody on the network could put a code of his own account into a page that is not encrypted.
TEST(SignInWindow, CodeOfAnUnencryptedPageIsNotBelieved) {
  FakeDialog dialog;
  for (const char* url :
       {"http://login.live.com/oauth20_desktop.srf?code=EVIL", "http://127.0.0.1/?code=EVIL"}) {
    dialog.view->events.onFinished(url, PageLoad::Shown);
    EXPECT_FALSE(dialog.isOver) << url;
  }
  dialog.view->events.onFinished("https://login.live.com/oauth20_desktop.srf?code=GOOD",
                                 PageLoad::NotReached);
  ASSERT_TRUE(dialog.isOver);
  EXPECT_EQ(dialog.answer->code, "GOOD");
}

// The login may begin only when nothing of the old session is left.
TEST(SignInWindow, LoginWaitsUntilTheCookiesAreGone) {
  FakeDialog dialog(online::SignInMode::LogoutThenLogin);
  EXPECT_EQ(dialog.view->log, "loading; load /oauth20_logout.srf; ");
  dialog.view->events.onFinished("https://login.live.com/oauth20_desktop.srf", PageLoad::Shown);
  EXPECT_EQ(dialog.view->log, "loading; load /oauth20_logout.srf; clear; ");
  dialog.view->log.clear();
  dialog.view->cleared();
  EXPECT_EQ(dialog.view->log, "loading; load /common/oauth2/v2.0/authorize; ");
  dialog.view->events.onFinished("https://login.microsoftonline.com/x", PageLoad::NotReached);
  dialog.view->log.clear();
  Press(Qt::Key_Space);
  EXPECT_EQ(dialog.view->log, "loading; load /common/oauth2/v2.0/authorize; ") << "no second logout";
}

// A title or a server's name must not be able to dress up as something of ours.
TEST(SignInWindow, TitlesAndServersAreText) {
  FakeDialog dialog;
  dialog.view->events.onTitle("<b>Safe</b> & sound");
  dialog.view->events.onHost(QUrl("https://login.example:8443/x"));
  EXPECT_EQ(dialog.Shown("labelShowTitle"), "<b>Safe</b> & sound");
  EXPECT_EQ(dialog.Shown("server"), "login.example:8443");
  EXPECT_EQ(dialog.Shown("guard"), "Encrypted connection");
  EXPECT_EQ(FromQt(dialog.window->windowTitle()), "Sign in – login.example:8443");
  dialog.view->events.onHost(QUrl());
  EXPECT_EQ(FromQt(dialog.window->windowTitle()), "Sign in");
}

TEST(SignInWindow, ServerNamesDoNotDeceive) {
  EXPECT_EQ(FromQt(ServerName(QUrl(QString::fromUtf8("https://lоgin.live.com/")))), "xn--lgin-55d.live.com")
      << "the o is Cyrillic";
  EXPECT_EQ(FromQt(ServerName(QUrl("https://login.live.com@evil.example/"))), "evil.example");
  const QString longName = QString("login.live.com.").repeated(8) + "evil.example";
  EXPECT_TRUE(ServerName(QUrl("https://" + longName)).endsWith("evil.example"));
  EXPECT_LT(ServerName(QUrl("https://" + longName)).size(), 70);
  EXPECT_EQ(GuardOf(QUrl("http://127.0.0.1:80/")), PageGuard::ThisMachine);
  EXPECT_EQ(GuardOf(QUrl("http://[::1]/")), PageGuard::ThisMachine);
  EXPECT_EQ(GuardOf(QUrl("http://127.0.0.1.evil.example/")), PageGuard::Unencrypted);
}

// An empty redirect page would leave the user in front of nothing.
TEST(SignInWindow, RefusalOfTheServiceIsTold) {
  FakeDialog dialog;
  dialog.view->events.onFinished("https://login.live.com/oauth20_desktop.srf?error=access_denied",
                                 PageLoad::Shown);
  EXPECT_EQ(dialog.Shown("problem"), "You have not been signed in.");
  EXPECT_FALSE(dialog.isOver);
  dialog.view->events.onFinished("https://login.example/", PageLoad::NotTrusted);
  EXPECT_EQ(dialog.Shown("problem"), "login.example could not prove that it is the server it says it is.");
}

// Return in a page comes to the window when the page has no use for it.
TEST(SignInWindow, ReturnPressesNothing) {
  FakeDialog dialog;
  dialog.view->canGoBack = true;
  dialog.view->events.onProgress(100);
  dialog.view->log.clear();
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(dialog.isOver);
  EXPECT_EQ(dialog.view->log, "");
  EXPECT_EQ(TabOrder(*dialog.window),
            (std::vector<std::string>{"Page of the sign-in service", "Cancel", "Back", "Reload"}));
  EXPECT_EQ(UnnamedControls(*dialog.window), std::vector<std::string>());
}

}  // namespace
}  // namespace quill::ui
