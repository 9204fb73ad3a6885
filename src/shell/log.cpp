#include "shell/log.h"

#include <fmt/format.h>
#include <spdlog/logger.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/sinks/syslog_sink.h>

#include <algorithm>
#include <mutex>

namespace quill::shell {
namespace {

constexpr const char* kPattern = "--- %v";
constexpr const char* kName = "quillmenu";

using LineFunction = std::function<void(std::string_view line)>;

class FunctionSink final : public spdlog::sinks::base_sink<std::mutex> {
 public:
  explicit FunctionSink(LineFunction function) : m_function(std::move(function)) {}

 private:
  void sink_it_(const spdlog::details::log_msg& message) override {
    spdlog::memory_buf_t line;
    formatter_->format(message, line);
    std::string_view text(line.data(), line.size());
    while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
    m_function(text);
  }
  void flush_() override {}

  LineFunction m_function;
};

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; },
      ' ');
  return line;
}

}  // namespace

struct Log::State {
  std::unique_ptr<spdlog::logger> logger;
  bool pageContents = false;

  State(const Options& options, LineFunction function) : pageContents(options.pageContents) {
    std::vector<spdlog::sink_ptr> sinks;
    if (options.toSyslog) {
      sinks.push_back(std::make_shared<spdlog::sinks::syslog_sink_mt>(kName, LOG_PID, LOG_USER, true));
    }
    if (options.toStderr) sinks.push_back(std::make_shared<spdlog::sinks::stderr_sink_mt>());
    if (function) sinks.push_back(std::make_shared<FunctionSink>(std::move(function)));
    logger = std::make_unique<spdlog::logger>(kName, sinks.begin(), sinks.end());
    logger->set_pattern(kPattern);
  }
};

Log::Log() = default;
Log::Log(const Options& options) : m_state(std::make_unique<State>(options, nullptr)) {}
Log::Log(const Options& options, LineFunction sink)
    : m_state(std::make_unique<State>(options, std::move(sink))) {}
Log::~Log() = default;

void Log::Write(std::string_view text) {
  if (!m_state) return;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    m_state->logger->log(spdlog::level::info, OneLine(line));
  }
}

void Log::WriteContent(std::string_view what, std::string_view content) {
  if (!m_state) return;
  if (m_state->pageContents) {
    Write(content);
  } else {
    Write(fmt::format("{}: {} bytes", what, content.size()));
  }
}

}  // namespace quill::shell
