// The table tools and counts on a large table, and their growth: Linear/<tool>/<shape>/<factor>, where the
// time at factor 10 divided by the time at factor 1 should stay near 10.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "content/element_lookup.h"
#include "content/html_normalizer.h"
#include "content/working_document.h"
#include "onenote_shapes.h"
#include "platform/posix/memory_policy.h"
#include "tools/table_csv.h"
#include "tools/table_style.h"
#include "tools/table_to_text.h"
#include "tools/text_to_table.h"
#include "tools/word_count.h"

namespace {

using namespace quill;
using quill::content::WorkingDocument;

constexpr std::size_t kRows = 4'000;
constexpr std::size_t kColumns = 6;

std::shared_ptr<WorkingDocument> Parsed(const std::string& fragment) {
  auto document = WorkingDocument::Parse(content::HtmlToXml(fragment));
  if (!document) std::abort();
  return std::make_shared<WorkingDocument>(std::move(*document));
}

/// One table as the desktop applications write it; every sixth cell needs quotes in CSV.
std::string Table(std::size_t rows) {
  std::string html = "<table border=1 cellpadding=0 cellspacing=0 valign=top>\r\n";
  for (std::size_t row = 0; row < rows; ++row) {
    html += " <tr>\r\n";
    for (std::size_t column = 0; column < kColumns; ++column) {
      html.append(
          "  <td style='border-style:solid;border-width:1pt;width:1.49in'>\r\n  <p style='margin:0in'>");
      html.append(bench::Sentence(row + column))
          .append(column == 3 ? ", \"x\"" : "")
          .append("</p>\r\n  </td>\r\n");
    }
    html += " </tr>\r\n";
  }
  return html + "</table>\r\n";
}

std::string Lines(std::size_t rows) {
  std::string text;
  for (std::size_t row = 0; row < rows; ++row) text += "one\ttwo words\t\xE4\xB8\xAD\xE6\x96\x87\t\t5\t6\r\n";
  return text;
}

void Time(const std::string& name, std::size_t bytes, std::function<void()> work) {
  benchmark::RegisterBenchmark(name.c_str(), [bytes, work = std::move(work)](benchmark::State& state) {
    for (auto _ : state) work();
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
  })->Unit(benchmark::kMicrosecond);
}

void MeasureTables(std::size_t factor) {
  const std::string end = "/table/" + std::to_string(factor);
  const std::string html = Table(kRows * factor);
  const auto document = Parsed(html);
  const pugi::xml_node table = content::FindElementNamed(document->Root(), "table");
  const std::size_t size = html.size();
  Time("Linear/TableToCsv" + end, size, [=] { benchmark::DoNotOptimize(tools::TableToCsv(table)); });
  Time("Linear/TableToText" + end, size,
       [=] { benchmark::DoNotOptimize(tools::TableToText(table, tools::TableTextMode::Tabs, "")); });
  Time("Linear/ChangeStyle" + end, size, [=, row = std::int64_t{0}]() mutable {
    row = row == 21 ? 34 : 21;
    tools::ChangeStyle(table, *tools::FindTableStyle(row));
  });
  Time("Linear/CountWords" + end, size,
       [=] { benchmark::DoNotOptimize(tools::CountWords(document->Root())); });
}

void MeasureTexts(std::size_t factor) {
  const std::string end = std::string("/").append(std::to_string(factor));
  const std::string html = bench::TextFragment(400'000 * factor);
  Time("Linear/CountWords/text" + end, html.size(),
       [document = Parsed(html)] { benchmark::DoNotOptimize(tools::CountWords(document->Root())); });
  constexpr std::pair<const char*, std::size_t> kShapes[] = {{"ascii", 0}, {"asian", 2}, {"latin", 3}};
  for (const auto& [shape, sentence] : kShapes) {
    std::string text;
    while (text.size() < 400'000 * factor) text += bench::Sentence(sentence);
    Time(std::string("Linear/StatisticsWords/") + shape + end, text.size(), [text] {
      tools::WordCounts counts;
      tools::StatisticsWords(text, counts);
      benchmark::DoNotOptimize(counts);
    });
  }
  const std::string lines = Lines(kRows * factor);
  Time("Linear/CreateTable/tabs" + end, lines.size(), [lines] {
    benchmark::DoNotOptimize(tools::CreateTable(lines, {tools::TextTableMode::Tabs, ""}, "", "").html);
  });
  Time("Linear/CreateTable/paragraphs" + end, lines.size(), [lines, rows = std::to_string(kRows * factor)] {
    benchmark::DoNotOptimize(
        tools::CreateTable(lines, {tools::TextTableMode::Paragraphs, ""}, "6", rows).html);
  });
}

}  // namespace

// Measured under the memory policy that the application runs under.
int main(int argc, char** argv) {
  quill::platform::KeepFreedMemory();
  for (const std::size_t factor : {1, 10}) {
    MeasureTables(factor);
    MeasureTexts(factor);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
