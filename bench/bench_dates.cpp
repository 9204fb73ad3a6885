// Calendars, and the two tidying steps of recognised text with their growth: the time at 1 MB divided by
// the time at 100 kB should stay near 10.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "onenote_shapes.h"
#include "tools/calendar.h"
#include "tools/date_text.h"
#include "tools/image_text.h"

namespace {

using namespace quill::tools;

const DateStyle kStyle{"de_DE", "Europe/Berlin"};

void YearCalendar(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CreateCalendarAnnual(2026, WeekStart::Monday, kStyle));
}
BENCHMARK(YearCalendar)->Unit(benchmark::kMicrosecond);

void MonthCalendar(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CreateCalendar(2026, 11, WeekStart::Monday, kStyle));
}
BENCHMARK(MonthCalendar)->Unit(benchmark::kMicrosecond);

void DateAndTime(benchmark::State& state) {
  const auto moment = std::chrono::sys_days(std::chrono::year(2026) / 11 / 15);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        GetDateTimeStr(DateTimeKind::DateAndTime, "yyyy-MM-dd", "HH:mm:ss", moment, kStyle));
  }
}
BENCHMARK(DateAndTime)->Unit(benchmark::kMicrosecond);

/// Recognised text: short lines of words, and of Chinese characters with blanks between them.
std::string Recognised(std::int64_t size) {
  return quill::bench::Repeat(static_cast<std::size_t>(size), [](std::size_t i) {
    std::string block = "The quarterly figures were discussed \r\nwith the whole team. Nobody objected!\r\n";
    if (i % 2 == 0) block += "会 议 记 录 ： 下 周 一 完 成 测 试 。\r\n";
    if (i % 5 == 0) block += "\r\n";
    return block;
  });
}

template <std::string (*kWork)(std::string_view)>
void OnText(benchmark::State& state) {
  const std::string text = Recognised(state.range(0) * 100'000);
  for (auto _ : state) benchmark::DoNotOptimize(kWork(text));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(OnText<ClearExtraSpaces>)
    ->Name("Linear/ClearExtraSpaces")
    ->Arg(1)
    ->Arg(10)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(OnText<MergeAsParagraph>)
    ->Name("Linear/MergeAsParagraph")
    ->Arg(1)
    ->Arg(10)
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
