#include "cli/terminal_progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>

namespace quill::cli {
namespace {

constexpr std::chrono::milliseconds kPause(100);
constexpr std::size_t kLongestDetail = 50;
constexpr std::string_view kClearLine = "\r\x1B[K";

}  // namespace

std::string Printable(std::string_view name) {
  constexpr unsigned char kFirstPrintable = 0x20, kDelete = 0x7F;
  std::string text(name);
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kFirstPrintable || byte == kDelete) c = '?';
  }
  return text;
}

TerminalProgress::TerminalProgress(std::string_view what)
    : m_what(what), m_isTerminal(::isatty(STDERR_FILENO) == 1) {}

TerminalProgress::~TerminalProgress() {
  if (m_isShown) fmt::print(stderr, "{}", kClearLine);
}

void TerminalProgress::Set(double fraction, std::string_view detail) {
  const auto now = std::chrono::steady_clock::now();
  if (!m_isTerminal || now - m_last < kPause) return;
  m_last = now;
  m_isShown = true;
  const std::string percent = fraction < 0 ? std::string() : fmt::format(" {:3.0f} %", fraction * 100);
  fmt::print(stderr, "{}{}{} {}", kClearLine, m_what, percent, Printable(detail.substr(0, kLongestDetail)));
  std::fflush(stderr);
}

}  // namespace quill::cli
