#pragma once
#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace quill::bench {

/// Registers work on one page: its time, and the bytes of the page that it gets through in a second.
inline void TimePage(const std::string& name, std::string page,
                     std::function<void(const std::string&)> work) {
  benchmark::RegisterBenchmark(name.c_str(), [page = std::move(page),
                                              work = std::move(work)](benchmark::State& state) {
    for (auto _ : state) work(page);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * page.size()));
  })->Unit(benchmark::kMicrosecond);
}

}  // namespace quill::bench
