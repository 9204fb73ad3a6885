#include "cli/console.h"

#include <fmt/format.h>

#include <cstdio>

#include "base/atomic_file.h"
#include "content/unicode_text.h"

namespace quill::cli {
namespace {

/// The offset of the first byte that is not UTF-8.
std::size_t FirstInvalidByte(std::string_view text) {
  std::size_t at = 0;
  for (std::size_t length = 1; at < text.size() && length > 0; at += length) {
    length = content::DecodeUtf8(text, at).length;
  }
  return at;
}

}  // namespace

std::string ReadInputText(const std::string& file) {
  const bool standardInput = file == "-";
  const std::string name = standardInput ? "standard input" : file;
  Result<std::string> bytes = ReadFile(standardInput ? "/dev/stdin" : file, kLargestInput);
  if (!bytes.ok()) throw Stop(kWrongCall, bytes.error());
  const std::size_t nul = bytes->find('\0');
  if (nul != std::string::npos) throw Stop(kWrongCall, fmt::format("{}: NUL byte at offset {}", name, nul));
  if (!content::IsValidUtf8(*bytes)) {
    throw Stop(kWrongCall, fmt::format("{}: not UTF-8 at offset {}", name, FirstInvalidByte(*bytes)));
  }
  return std::move(*bytes);
}

void WriteOutput(const std::string& file, std::string_view bytes) {
  const bool standardOutput = file.empty() || file == "-";
  std::FILE* out = standardOutput ? stdout : std::fopen(file.c_str(), "wb");
  if (out == nullptr) throw Stop(kWorkFailed, fmt::format("{}: cannot be written", file));
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
  ok = (standardOutput ? std::fflush(out) : std::fclose(out)) == 0 && ok;
  if (!ok)
    throw Stop(kWorkFailed, fmt::format("{}: cannot be written", standardOutput ? "standard output" : file));
}

void PrintError(std::string_view message) {
  fmt::print(stderr, "quill: {}\n", message);
}

}  // namespace quill::cli
