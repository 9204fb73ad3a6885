// The table of contents of a large online page against the parse that it begins with, and its growth:
// Linear/Contents/<shape>/<factor>, where the time at factor 10 divided by the time at factor 1 should stay
// near 10.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <string>

#include "onenote_shapes.h"
#include "online/headings.h"
#include "online/page_html.h"
#include "page_timing.h"
#include "platform/posix/memory_policy.h"

namespace {

using namespace quill;

constexpr std::size_t kElements = 10'000;
constexpr std::size_t kElementSize = 500;
constexpr const char* kLink =
    "onenote:https://h/7c1f/Documents/Home/Minutes.one#Week&section-id={5D}&page-id={8A}&end";

/// Paragraphs of about the same size in one div, every fifth of them a heading: 5 MB at factor 1.
std::string Page(std::size_t elements) {
  std::string html = "<html><head><title>Minutes</title></head><body><div id=\"div:{d1}{39}\">";
  for (std::size_t i = 0; i < elements; ++i) {
    const std::string name = i % 5 == 0 ? std::string("h").append(std::to_string(i / 5 % 6 + 1)) : "p";
    const std::size_t end = html.size() + kElementSize;
    html += std::string("<").append(name) + " id=\"" + name + ":{8af51c10-9e77-4d02-b1c3-60f2d4a8e915}{" +
            std::to_string(i) + "}\" style=\"margin-top:0pt;margin-bottom:0pt\">";
    for (std::size_t part = i; html.size() < end; ++part) html += bench::Sentence(part);
    html.append("</").append(name).append(">\r\n");
  }
  return html + "<!-- InkNode is not supported --></div></body></html>";
}

/// A heading in a heading in a heading, each with little text of its own.
std::string NestedHeadings(std::size_t groups) {
  std::string html = "<div>";
  for (std::size_t i = 0; i < groups; ++i) html += "<h1>a<h2>b<h3>c<p>d</p></h3></h2></h1>";
  return html + "</div>";
}

void Parse(const std::string& page) {
  if (!online::ParsePageHtml(page)) std::abort();
}

void MakeContents(const std::string& page) {
  const auto block = online::GenerateTOCHeadingsHtml(page, kLink, "Table of Contents");
  if (!block) std::abort();
  benchmark::DoNotOptimize(block->size());
}

}  // namespace

// Measured under the memory policy that the application runs under.
int main(int argc, char** argv) {
  platform::KeepFreedMemory();
  bench::TimePage("Parse/page", Page(kElements), Parse);
  bench::TimePage("Contents/page", Page(kElements), MakeContents);
  // Small enough that both factors stay in the same cache.
  for (const std::size_t factor : {1, 10}) {
    const std::string end = std::string("/").append(std::to_string(factor));
    bench::TimePage("Linear/Contents/page" + end, Page(400 * factor), MakeContents);
    bench::TimePage("Linear/Contents/nested" + end, NestedHeadings(200 * factor), MakeContents);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
