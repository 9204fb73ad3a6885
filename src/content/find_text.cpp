#include "content/find_text.h"

#include <cstring>

namespace quill::content {
namespace {

/// How common a byte is in markup, roughly; only the order matters.
int Commonness(char c) {
  switch (c) {
    case 'q':
      return 0;
    case '!':
    case '[':
    case ']':
    case '&':
    case '@':
      return 1;
    case 'j':
    case 'z':
    case 'k':
      return 2;
    case '<':
    case '>':
    case '=':
    case '"':
    case '\'':
    case ' ':
      return 6;
    default:
      break;
  }
  if (c >= 'A' && c <= 'Z') return 2;
  if (c >= 'a' && c <= 'z') return 5;
  return 3;
}

std::size_t RarestIndex(std::string_view needle) {
  std::size_t best = 0;
  for (std::size_t i = 1; i < needle.size(); ++i) {
    if (Commonness(needle[i]) < Commonness(needle[best])) best = i;
  }
  return best;
}

char FoldAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool EqualFolded(const char* left, std::string_view right) {
  for (std::size_t i = 0; i < right.size(); ++i) {
    if (FoldAscii(left[i]) != FoldAscii(right[i])) return false;
  }
  return true;
}

}  // namespace

std::size_t FindText(std::string_view text, std::string_view needle, std::size_t from) {
  if (from > text.size() || needle.size() > text.size() - from) return std::string_view::npos;
  if (needle.empty()) return from;
  const std::size_t rare = RarestIndex(needle);
  const char* const last = text.data() + (text.size() - needle.size()) + rare;
  for (const char* at = text.data() + from + rare; at <= last; ++at) {
    at = static_cast<const char*>(std::memchr(at, needle[rare], static_cast<std::size_t>(last - at) + 1));
    if (at == nullptr) break;
    if (std::memcmp(at - rare, needle.data(), needle.size()) == 0) {
      return static_cast<std::size_t>(at - rare - text.data());
    }
  }
  return std::string_view::npos;
}

std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view needle, std::size_t from) {
  if (from > text.size() || needle.size() > text.size() - from) return std::string_view::npos;
  const std::size_t end = text.size() - needle.size();
  for (std::size_t at = from; at <= end; ++at) {
    if (EqualFolded(text.data() + at, needle)) return at;
  }
  return std::string_view::npos;
}

std::string ReplaceAll(std::string_view text, std::string_view needle, std::string_view replacement) {
  std::string result;
  result.reserve(text.size());
  std::size_t copied = 0;
  if (!needle.empty()) {
    for (std::size_t at; (at = FindText(text, needle, copied)) != std::string_view::npos;) {
      result.append(text, copied, at - copied).append(replacement);
      copied = at + needle.size();
    }
  }
  result.append(text, copied);
  return result;
}

void ReplaceAllWithin(std::string& text, std::string_view needle, std::string_view replacement) {
  std::size_t read = 0;
  std::size_t written = 0;
  for (std::size_t at; (at = FindText(text, needle, read)) != std::string_view::npos;) {
    std::memmove(text.data() + written, text.data() + read, at - read);
    written += at - read;
    std::memcpy(text.data() + written, replacement.data(), replacement.size());
    written += replacement.size();
    read = at + needle.size();
  }
  text.erase(written, read - written);
}

}  // namespace quill::content
