// The main job against Chromium on a virtual X display, beside the same keys and clipboard steps done by hand
// with xdotool and xclip, in turn, in one run. Prints one JSON object with medians.
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "platform/recording/recording.h"
#include "shell/onenote_main.h"
#include "x11/chromium_world.h"

namespace {

using namespace quill;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kPairs = 15;

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
  return values[values.size() / 2];
}

/// What a user with these two tools would do: copy, wait until the clipboard has it, change it, paste it
/// over.
std::string ByHand(const std::string& display, const std::string& from, const std::string& to) {
  return fmt::format(
      "export DISPLAY={0}; printf marker | xclip -i -selection clipboard; "
      "xdotool key --clearmodifiers ctrl+c; "
      "until xclip -o -selection clipboard -t text/html >/tmp/quill-bench-{1} 2>/dev/null; do :; done; "
      "sed 's/{1}/{2}/g' /tmp/quill-bench-{1} | xclip -i -selection clipboard -t text/html; "
      "xdotool key --clearmodifiers BackSpace ctrl+v; rm -f /tmp/quill-bench-{1}",
      display, from, to);
}

class Race {
 public:
  Race() { m_globals.scripts = shell::BuiltInScripts(); }

  void Run() {
    for (int i = 0; i < kPairs + 2; ++i) {
      const double ours = Time(
          i, "ours", [this](const std::string&, const std::string&) { Ours(); }, true);
      const double peer = Time(
          i, "peer",
          [this](const std::string& from, const std::string& to) {
            if (std::system(ByHand(m_world.display(), from, to).c_str()) != 0) std::exit(1);
          },
          false);
      if (i < 2) continue;  // the first two warm the browser up
      m_ours.push_back(ours);
      m_peer.push_back(peer);
      m_ratios.push_back(ours / peer);
    }
    std::cout << fmt::format("{{\"ours_ms\": {:.2f}, \"peer_ms\": {:.2f}, \"ratio\": {:.3f}}}\n",
                             Median(m_ours), Median(m_peer), Median(m_ratios));
  }

 private:
  void Ours() {
    shell::NSOneNoteMain(m_services, m_globals).Run(3);
    if (!m_screen.messages().empty()) {
      std::cerr << m_screen.messages().back() << "\n";
      std::exit(1);
    }
  }

  /// From the command to the changed DOM. The page starts with a word of this turn's own, selected as a
  /// whole.
  template <class Work>
  double Time(int turn, const std::string& who, Work work, bool upperCase) {
    const std::string from = fmt::format("{}before{}", who, turn);
    std::string to = fmt::format("{}AFTER{}", who, turn);
    if (upperCase) {
      to = from;
      for (char& c : to) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    m_page.Reset(fmt::format("<p id=\"sel\">{} <b>and</b> more words</p>", from));
    const auto start = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point seen;
    std::thread watcher([&] {
      if (m_page.WaitForDom(to).find(to) == std::string::npos) std::exit(1);
      seen = std::chrono::steady_clock::now();
    });
    work(from, to);
    watcher.join();
    return Milliseconds(seen - start).count();
  }

  x11_test::X11World m_world;
  std::unique_ptr<platform::x11::X11Backend> m_backend = m_world.Backend();
  x11_test::ChromiumWorld m_page{m_world, "<p id=\"sel\">start</p>"};
  platform::recording::Recording m_screen;
  platform::SystemClock m_clock;
  shell::StringTable m_strings;
  shell::Explain m_explain;
  shell::Log m_log;
  shell::Globals m_globals;
  shell::Services m_services{
      m_backend->desktop(), m_backend->pasteboard(), m_screen, m_clock, m_strings, m_explain, m_log};
  std::vector<double> m_ours;
  std::vector<double> m_peer;
  std::vector<double> m_ratios;
};

}  // namespace

int main() {
  Race().Run();
  return 0;
}
