// Find and replace in a large online page against the check and the copies that it cannot do without, and its
// growth: Linear/<what>/<shape>/<factor>, where the time at factor 10 divided by the time at factor 1 should
// stay near 10.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <string>

#include "onenote_shapes.h"
#include "online/page_edit.h"
#include "online/page_scanner.h"
#include "page_timing.h"
#include "platform/posix/memory_policy.h"

namespace {

using namespace quill;

constexpr std::size_t kElements = 10'000;
constexpr std::size_t kElementSize = 500;

/// Paragraphs of about the same size in one div, the word in every second of them: 5 MB and 5,000 matches.
std::string Page(std::size_t elements) {
  std::string html = "<html><head><title>Minutes</title></head><body><div id=\"div:{d1}{39}\">";
  for (std::size_t i = 0; i < elements; ++i) {
    const std::size_t end = html.size() + kElementSize;
    html += "<p id=\"p:{8af51c10-9e77-4d02-b1c3-60f2d4a8e915}{" + std::to_string(i) +
            "}\" style=\"margin-top:0pt\">" + (i % 2 == 0 ? "a Nee<b>dle</b>&nbsp;" : "a haystalk ");
    for (std::size_t part = i; html.size() < end; ++part) html += bench::Sentence(part);
    html += "</p>\r\n";
  }
  return html + "<!-- InkNode is not supported --></div></body></html>";
}

/// One paragraph in which nearly everything begins like the word.
std::string NearlyFound(std::size_t count) {
  std::string html = "<div><p id=\"p:{a}{1}\">";
  for (std::size_t i = 0; i < count; ++i) html += "needlneedlneedl<b> </b>";
  return html + "needle</p></div>";
}

void CheckOnly(const std::string& page) {
  if (!online::CheckPageHtml(page).ok()) std::abort();
}

void Replace(const std::string& page) {
  const auto edit = online::ReplaceInPage(page, "needle", "pin", false);
  if (!edit.ok() || edit->matchCount == 0) std::abort();
}

/// Taking back what was replaced in this page, for a page that nobody else has changed.
std::function<void(const std::string&)> UndoOf(const std::string& page) {
  const auto edit = online::ReplaceInPage(page, "needle", "pin", false);
  return [changes = edit->json](const std::string& now) {
    if (!online::UndoChanges(now, changes, now).ok()) std::abort();
  };
}

}  // namespace

// Measured under the memory policy that the application runs under.
int main(int argc, char** argv) {
  platform::KeepFreedMemory();
  bench::TimePage("Check/page", Page(kElements), CheckOnly);
  bench::TimePage("Replace/page", Page(kElements), Replace);
  bench::TimePage("Undo/page", Page(kElements), UndoOf(Page(kElements)));
  for (const std::size_t factor : {1, 10}) {
    const std::string end = std::string("/").append(std::to_string(factor));
    bench::TimePage("Linear/Replace/page" + end, Page(400 * factor), Replace);
    bench::TimePage("Linear/Undo/page" + end, Page(400 * factor), UndoOf(Page(400 * factor)));
    bench::TimePage("Linear/Replace/nearly" + end, NearlyFound(2000 * factor), Replace);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
