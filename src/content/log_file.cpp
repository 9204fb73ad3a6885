#include "content/log_file.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "base/atomic_file.h"
#include "content/unicode_text.h"

namespace quill::content {
namespace {

constexpr std::ptrdiff_t kMaxLines = 1000;

/// The log so far, or nothing when there is none; a file that holds something else is moved aside.
std::string ReadHistory(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {};
  const Result<std::string> bytes = ReadFile(file);
  if (bytes && IsValidUtf8(*bytes)) return *bytes;
  std::filesystem::path aside = file;
  aside += ".bad";
  std::filesystem::rename(file, aside, error);
  return {};
}

}  // namespace

Status<> AppendLogLine(const std::filesystem::path& file, std::string_view line) {
  std::error_code error;
  const bool isNew = !std::filesystem::exists(file, error);
  std::string history = ReadHistory(file);
  const bool isAside = !isNew && !std::filesystem::exists(file, error);
  if (isNew || isAside) return WriteFileAtomically(file, line);
  if (std::count(history.begin(), history.end(), '\n') >= kMaxLines) history.erase(0, history.find('\n') + 1);
  history.append(1, '\n').append(line);
  return WriteFileAtomically(file, history);
}

}  // namespace quill::content
