#include <atomic>
#include <csignal>

#include <QWebEnginePage>
#include <QWebEngineView>

#include "online/service_samples.h"
#include "page_world.h"
#include "platform/web_server.h"

namespace quill::ui {
namespace {

using samples::Page;

/// A server that counts who comes.
class Trap {
 public:
  Trap() {
    server.pages.set_pre_routing_handler([this](const httplib::Request&, httplib::Response& out) {
      ++visits;
      out.set_content("", "text/css");
      return httplib::Server::HandlerResponse::Handled;
    });
    server.Start();
  }
  test::WebServer server;
  std::atomic<int> visits = 0;
};

// Whoever shares a notebook writes its pages. Nothing of them runs, loads, or leads away.
TEST(PageSafety, NothingOfThePageRunsOrLoads) {
  PageWorld& page = PageWorld::Warm();
  const Trap trap;
  const std::string at = trap.server.address();
  page.Show(
      "<html><head><title>T</title><meta http-equiv=\"refresh\" content=\"0;url=" + at +
      "/m\" />"
      "<link rel=\"stylesheet\" href=\"" +
      at + "/l\" /><base href=\"" + at +
      "\" />"
      "<style>body { background: url(" +
      at +
      "/s) }</style></head>"
      "<body onload=\"document.title='ran'\" style=\"background:url(" +
      at +
      "/b)\">"
      "<div id=\"div:1\"><script>document.title = 'ran'; new Image().src = '" +
      at +
      "/j';</script>"
      "<p id=\"p:1\" onclick=\"document.title='ran'\" style=\"background-image:url('" +
      at +
      "/p')\">ab</p>"
      "<img id=\"img:1\" src=\"" +
      at + "/i\" srcset=\"" + at +
      "/i2 2x\" onerror=\"document.title='ran'\" "
      "alt=\"Plan\" width=\"120\" height=\"60\" />"
      "<img id=\"img:2\" src=\"data:image/png;base64,x\" onerror=\"document.title='ran'\" alt=\"Own\" />"
      "<iframe src=\"" +
      at +
      "/f\" data-original-src=\"https://v.example/1\"></iframe>"
      "<iframe srcdoc=\"&lt;script&gt;top.document.title='ran'&lt;/script&gt;\"></iframe>"
      "<object data=\"" +
      at + "/o\" data-attachment=\"a.pdf\"></object><embed src=\"" + at +
      "/e\" />"
      "<video src=\"" +
      at + "/v\" poster=\"" + at +
      "/vp\" autoplay=\"\"></video>"
      "<svg><image href=\"" +
      at +
      "/g\" /><script>document.title = 'ran'</script></svg>"
      "<form action=\"" +
      at +
      "/q\"><input autofocus=\"\" onfocus=\"document.title='ran'\" /></form>"
      "<p id=\"p:2\"><a href=\"javascript:document.title='ran'\">one</a> <a href=\"" +
      at + "/a\" ping=\"" + at +
      "/ping\">two</a> <a href=\"file:///etc/hostname\">three</a></p>"
      "</div></body></html>");
  const auto* view = qobject_cast<QWebEngineView*>(&page.view().Widget());
  const QUrl own = view->url();
  page.Script("for (const element of document.querySelectorAll('*')) element.click()");
  page.Find("ab");
  ProcessEventsFor(400ms);
  EXPECT_EQ(trap.visits, 0);
  EXPECT_EQ(page.Text("document.title"), "");
  EXPECT_EQ(view->url(), own);
  EXPECT_EQ(own.scheme(), "data");
  EXPECT_EQ(page.Drawn(), "ab\n\nPlanhttps://v.example/1Objecta.pdfObjectObject\n\none two three");
  EXPECT_EQ(page.Text("Array.from(document.querySelectorAll('body *'), (e) => e.localName).join(' ')"),
            "div div div div p quill-match span img span span span span span div p a a a");
  EXPECT_EQ(page.Text("getComputedStyle(document.querySelector('.object')).width"), "120px");
}

// Even what came in past the drawing could not do anything: the page's own world has no scripts, and its
// requests are blocked.
TEST(PageSafety, TheEngineHoldsWhatTheDrawingLetsThrough) {
  PageWorld& page = PageWorld::Warm();
  const Trap trap;
  page.Show(Page("<p id=\"p:1\">ab</p>"));
  const std::string code =
      "(() => { const at = '" + trap.server.address() +
      "'; const box = document.createElement('div'); document.body.append(box);"
      "box.innerHTML = `<img src=x onerror=\"document.title='ran'\"><img src='${at}/i'><iframe "
      "src='${at}/f'></iframe>`"
      " + `<link rel=stylesheet href='${at}/l'><style>@import url(${at}/c)</style>`;"
      "const script = document.createElement('script'); script.textContent = \"document.title = 'ran'\";"
      "box.append(script); fetch(at + '/x').catch(() => {}); location.href = at + '/n'; open(at + '/w');"
      "fetch('file:///etc/hostname').then(() => { document.title = 'read'; }, () => {});"
      "return [typeof qt, typeof navigator.clipboard, typeof quill].join(); })()";
  EXPECT_EQ(page.Text(code), "undefined,undefined,object");
  ProcessEventsFor(400ms);
  EXPECT_EQ(trap.visits, 0);
  EXPECT_EQ(page.Text("document.title"), "");
  EXPECT_EQ(page.PageScript("typeof quill").toString().toStdString(), "");
  EXPECT_EQ(page.Find("ab").matchCount, 1) << "the page is still there";
}

// A crash of the page's process is told, and the next page is shown as if nothing had been.
TEST(PageSafety, AnEndedProcessIsTold) {
  PageWorld page;
  int lost = 0;
  bool wasAnswered = false;
  page.view().OnLost([&] { ++lost; });
  page.Show(Page("<p id=\"p:1\">ab</p>"));
  const auto* view = qobject_cast<QWebEngineView*>(&page.view().Widget());
  page.view().Find({"ab", false}, SearchDirection::Forwards, [&](const PageState&) { wasAnswered = true; });
  ASSERT_EQ(::kill(static_cast<pid_t>(view->page()->renderProcessPid()), SIGKILL), 0);
  ASSERT_TRUE(WaitUntil([&] { return lost == 1; }));
  page.Show(Page("<p id=\"p:1\">cd</p>"));
  EXPECT_EQ(page.Find("cd").matchCount, 1);
  EXPECT_EQ(lost, 1);
  EXPECT_FALSE(wasAnswered);
}

// Calls of a page that was replaced come to nothing, and so do those of a view that is gone.
TEST(PageSafety, AnswersOfAnOlderPageAreDropped) {
  int answers = 0;
  {
    PageWorld page;
    const auto count = [&](const PageState&) { ++answers; };
    page.view().Show("<p>never loaded</p>", count);
    page.view().Mark({"ab", false}, count);
    page.Show(Page("<p id=\"p:1\">ab</p>"));
    page.view().Mark({"ab", false}, count);
    EXPECT_EQ(page.Show(Page("<p id=\"p:1\">ab ab</p>")).matchCount, 0);
    page.view().Mark({"ab", false}, count);
  }
  ProcessEventsFor(100ms);
  EXPECT_EQ(answers, 0);
}

}  // namespace
}  // namespace quill::ui
