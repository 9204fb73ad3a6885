#include "content/alt_protection.h"

#include "content/bare_attributes.h"
#include "content/byte_scan.h"
#include "content/find_text.h"
#include "content/fragment_rewriter.h"

namespace quill::content {
namespace {

constexpr std::string_view kMark = "&=;";

/// Replaces `needle` inside each alt="…" value.
std::string RewriteAltTexts(std::string_view text, std::string_view needle, std::string_view replacement) {
  std::string out;
  out.reserve(text.size() + text.size() / 16);
  std::size_t copied = 0;
  ByteScanner<'='> scanner(text);
  for (std::size_t equals = scanner.Next(0); equals < text.size();) {
    if (BareAttributeBefore(text, equals) != kAltOrder || text.substr(equals + 1, 1) != "\"") {
      equals = scanner.Next(equals + 1);
      continue;
    }
    std::size_t begin = equals + 2;
    for (bool opensAnother = true; opensAnother;) {
      const std::size_t end = text.find('"', begin);
      if (end == std::string_view::npos) return out.append(text.substr(copied));
      const std::string value = ReplaceAll(text.substr(begin, end - begin), needle, replacement);
      out.append(text.substr(copied, begin - copied)).append(value);
      copied = end;
      begin = end + 1;
      opensAnother = EndsInAlt(value);
    }
    equals = scanner.Next(copied);
  }
  return out.append(text.substr(copied));
}

}  // namespace

std::string ProtectAltTexts(std::string_view text) {
  return RewriteAltTexts(text, "=", kMark);
}

std::string RestoreAltTexts(std::string_view text) {
  return RewriteAltTexts(text, kMark, "=");
}

}  // namespace quill::content
