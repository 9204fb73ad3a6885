#include <QDesktopServices>
#include <QStringList>
#include <QUrl>

#include "login_service.h"

namespace quill::ui {
namespace {

/// Stands where the desktop would open what a page hands over.
class DesktopEar final : public QObject {
  Q_OBJECT
 public:
  DesktopEar() {
    for (const char* scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, this, "Open");
  }
  ~DesktopEar() override {
    for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
  }
  QStringList opened;

 public slots:
  void Open(const QUrl& url) { opened += url.toString(); }

 private:
  static constexpr const char* kSchemes[] = {"file", "qvar", "mailto", "onenote", "http", "https"};
};

qsizetype WindowCount() {
  return std::ranges::count_if(QApplication::topLevelWidgets(),
                               [](const QWidget* widget) { return widget->isVisible(); });
}

// A page gets nothing by itself: no window, no file, no device, no clipboard, and it cannot close the view.
TEST(PageSafety, ScriptReachesNothingOutside) {
  GuiWorld world;
  LoginService service;
  service.Put(kAuthorize, R"html(<iframe src="file:///etc/hostname"></iframe><img id=own>
<script>
const trial = (name, promise) => promise.then(() => report(name + '-given'), () => report(name + '-refused'));
report(window.open('/popup') ? 'popup-given' : 'popup-refused');
report(typeof qt === 'undefined' ? 'no-bridge' : 'bridge');
trial('camera', navigator.mediaDevices ? navigator.mediaDevices.getUserMedia({video: true}) : Promise.reject());
trial('place', new Promise((yes, no) => navigator.geolocation.getCurrentPosition(yes, no)));
trial('clipboard', navigator.clipboard ? navigator.clipboard.readText() : Promise.reject());
trial('file', fetch('file:///etc/hostname'));
own.onload = () => report('own-given'); own.onerror = () => report('own-refused');
own.src = 'qrc:/qt-project.org/styles/commonstyle/images/up-16.png';
alert('one'); confirm('two'); prompt('three');
window.close();
location = 'file:///etc/hostname';
setTimeout(() => { location = 'qvar://%HOME%/x'; }, 50);
setTimeout(() => { location = '/download'; }, 100);
setTimeout(() => report('alive'), 600);
</script>)html");
  service.Put("/popup", "<script>report('popup-loaded')</script>");
  service.pages().Get("/download", [](const httplib::Request&, httplib::Response& out) {
    out.set_header("Content-Disposition", "attachment; filename=tool.bin");
    out.set_content("bytes", "application/octet-stream");
  });
  service.Start();
  const DesktopEar desktop;
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("alive"); }));
  EXPECT_TRUE(WaitUntil([&] { return service.AllHeard().size() == 8; }));
  EXPECT_EQ(service.AllHeard(),
            (std::set<std::string>{"popup-refused", "no-bridge", "camera-refused", "place-refused",
                                   "clipboard-refused", "file-refused", "own-refused", "alive"}));
  EXPECT_EQ(desktop.opened.join(' ').toStdString(), "");
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_EQ(dialog.Problem(), "");
  EXPECT_FALSE(dialog.isOver);
}

// What the user follows in a window of its own comes into this one, where its server is named.
TEST(PageSafety, LinkForANewWindowOpensHere) {
  GuiWorld world;
  LoginService service;
  service.Put(kAuthorize,
              "<a id=next target=_blank rel=noopener href=/terms>terms</a>"
              "<script>onload = () => { next.focus(); painted('ready'); }</script>");
  service.Put("/terms", "<title>Terms</title><script>onload = () => report('terms')</script>");
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); }));
  PressInPage(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("terms"); }));
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_TRUE(WaitUntil(
      [&] { return dialog.window->findChild<QWidget*>("labelShowTitle")->accessibleName() == "Terms"; }));
}

// Links to other programs and to files are dead, also when the user follows them.
TEST(PageSafety, FollowedLinksLeadToServersOnly) {
  for (const std::string link : {"file:///etc/hostname", "qvar://%HOME%/x", "mailto:a@example.org",
                                 "onenote:https://d.example/x", "view-source:/"}) {
    GuiWorld world;
    LoginService service;
    service.Put(kAuthorize, "<a id=next href='" + link +
                                "'>next</a><script>onload = () => next.focus();"
                                "next.onclick = () => setTimeout(() => report('still-here'), 300);"
                                "next.onfocus = () => painted('ready')</script>");
    service.Start();
    const DesktopEar desktop;
    SignInDialog dialog(world, service.endpoints());
    ASSERT_TRUE(WaitUntil([&] { return service.Heard("ready"); })) << link;
    PressInPage(Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return service.Heard("still-here"); })) << link;
    EXPECT_EQ(desktop.opened.join(' ').toStdString(), "") << link;
    EXPECT_EQ(dialog.Problem(), "") << link;
  }
}

// A page that never returns keeps itself busy, not the program.
TEST(PageSafety, EndlessScriptCanBeClosed) {
  GuiWorld world;
  LoginService service;
  service.Put(kAuthorize,
              "<script>painted('busy'); setTimeout(() => { for (;;) alert('again'); }, 100)</script>");
  service.Start();
  SignInDialog dialog(world, service.endpoints());
  ASSERT_TRUE(WaitUntil([&] { return service.Heard("busy"); }));
  ProcessEventsFor(300ms);
  EXPECT_EQ(WindowCount(), 1);
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([&] { return dialog.isOver; }));
  EXPECT_FALSE(dialog.answer);
}

}  // namespace
}  // namespace quill::ui

#include "page_safety_test.moc"
