#include "x11/chromium_world.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <mutex>

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
addEventListener('load', () => {
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
  int changes = 0;
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
  const bool shown = Eventually(
      [this] {
        const std::lock_guard lock(m_page->mutex);
        return m_page->ready;
      },
      60s);
  EXPECT_TRUE(shown) << "Chromium did not show the page";
}

ChromiumWorld::~ChromiumWorld() {
  m_browser.reset();
  m_server->stop();
  m_serving.join();
  std::error_code ignored;
  std::filesystem::remove_all(m_profile, ignored);
}

void ChromiumWorld::Serve(const std::string& body) {
  m_server->Get("/", [body](const httplib::Request&, httplib::Response& response) {
    response.set_content(std::string(kHead) + body + "</body></html>", "text/html");
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

int ChromiumWorld::changes() const {
  const std::lock_guard lock(m_page->mutex);
  return m_page->changes;
}

}  // namespace quill::x11_test
