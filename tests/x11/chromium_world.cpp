#include "x11/chromium_world.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <condition_variable>
#include <mutex>
#include <optional>

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kHead =
    R"(<!doctype html><html><head><meta charset="utf-8"><title>OneNote</title><script>
function tell(path) { fetch(path, {method: 'POST', body: document.body.innerHTML}); }
function select() {
  document.body.focus();
  const range = document.createRange();
  range.selectNode(document.getElementById('sel'));
  getSelection().removeAllRanges();
  getSelection().addRange(range);
}
async function follow() {
  for (;;) {
    const answer = await fetch('/next');
    if (answer.status !== 200) continue;
    document.body.innerHTML = await answer.text();
    select();
    tell('/ready');
  }
}
addEventListener('load', () => {
  follow();
  addEventListener('input', () => tell('/dom'));
  const ready = setInterval(() => {
    select();
    if (document.hasFocus() && !getSelection().isCollapsed) { clearInterval(ready); tell('/ready'); }
  }, 20);
});
</script></head><body contenteditable="true">)";

std::filesystem::path TemporaryProfile() {
  std::string name = (std::filesystem::temp_directory_path() / "quill-chromium-XXXXXX").string();
  return mkdtemp(name.data());
}

}  // namespace

struct ChromiumWorld::Page {
  std::mutex mutex;
  std::string dom;
  bool ready = false;
  bool ending = false;
  int changes = 0;
  std::optional<std::string> next;  ///< content that the page has still to fetch
  std::condition_variable nextChanged;
};

ChromiumWorld::ChromiumWorld(X11World& world, const std::string& body)
    : m_page(std::make_unique<Page>()),
      m_server(std::make_unique<httplib::Server>()),
      m_profile(TemporaryProfile()) {
  Serve(body);
  const int port = m_server->bind_to_any_port("127.0.0.1");
  m_serving = std::thread([this] { m_server->listen_after_bind(); });
  m_browser = world.Start({"chromium", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                           "--disable-background-networking", "--disable-component-update", "--disable-sync",
                           "--disable-features=Translate", "--password-store=basic", "--window-size=1000,700",
                           "--user-data-dir=" + m_profile.string(),
                           "http://127.0.0.1:" + std::to_string(port) + "/"});
  EXPECT_TRUE(WaitUntilReady(60s)) << "Chromium did not show the page";
}

ChromiumWorld::~ChromiumWorld() {
  m_browser.reset();
  {
    const std::lock_guard lock(m_page->mutex);
    m_page->ending = true;
  }
  m_page->nextChanged.notify_all();
  m_server->stop();
  m_serving.join();
  std::error_code ignored;
  std::filesystem::remove_all(m_profile, ignored);
}

void ChromiumWorld::Serve(const std::string& body) {
  m_server->Get("/", [body](const httplib::Request&, httplib::Response& response) {
    response.set_content(std::string(kHead) + body + "</body></html>", "text/html");
  });
  m_server->Get("/next", [this](const httplib::Request&, httplib::Response& response) {
    std::unique_lock lock(m_page->mutex);
    m_page->nextChanged.wait_for(lock, 1s, [this] { return m_page->ending || m_page->next; });
    response.status = m_page->next ? 200 : 204;
    if (m_page->next) response.set_content(*m_page->next, "text/html");
    m_page->next.reset();
  });
  m_server->Post("/ready", [this](const httplib::Request& request, httplib::Response&) {
    const std::lock_guard lock(m_page->mutex);
    m_page->dom = request.body;
    m_page->ready = true;
  });
  m_server->Post("/dom", [this](const httplib::Request& request, httplib::Response&) {
    const std::lock_guard lock(m_page->mutex);
    m_page->dom = request.body;
    ++m_page->changes;
  });
}

std::string ChromiumWorld::WaitForDom(const std::string& text, std::chrono::milliseconds deadline) {
  std::string seen;
  Eventually(
      [&] {
        const std::lock_guard lock(m_page->mutex);
        seen = m_page->dom;
        return seen.find(text) != std::string::npos;
      },
      deadline);
  return seen;
}

bool ChromiumWorld::WaitUntilReady(std::chrono::milliseconds deadline) {
  return Eventually(
      [this] {
        const std::lock_guard lock(m_page->mutex);
        return m_page->ready;
      },
      deadline);
}

void ChromiumWorld::Reset(const std::string& body) {
  {
    const std::lock_guard lock(m_page->mutex);
    m_page->ready = false;
    m_page->dom.clear();
    m_page->next = body;
  }
  m_page->nextChanged.notify_all();
  EXPECT_TRUE(WaitUntilReady(10s)) << "Chromium did not take the new content";
}

int ChromiumWorld::changes() const {
  const std::lock_guard lock(m_page->mutex);
  return m_page->changes;
}

}  // namespace quill::x11_test
