// The linear text helpers against their rules read word by word.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "content/entities.h"
#include "content/first_link.h"
#include "content/oracles.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "content/version_number.h"

namespace {

namespace oracle = quill::oracle;
using namespace quill::content;

void Check(bool isSame) {
  if (!isSame) std::abort();
}

/// Empty where the bytes are not UTF-8, as the fast one has it.
std::string Unescaped(const std::string& text) {
  const std::string bytes = oracle::PercentUnescape(text);
  return IsValidUtf8(bytes) ? bytes : std::string();
}

void CheckFirstLink(const std::string& html) {
  const std::string link = oracle::TextBetween(oracle::DecodeHtmlEntities(html), "<a", "</a");
  std::string target = oracle::TextBetween(link, "href=\"", "\"");
  if (target.empty()) target = oracle::TextBetween(link, "href='", "'");
  const FirstLink found = GetFirstLink(html);
  Check(found.target == Unescaped(target));
  Check(found.text == oracle::StripTags(oracle::TextBetween(link, ">", "")));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  Check(DecodeHtmlEntities(text) == oracle::DecodeHtmlEntities(text));
  Check(EscapeXmlText(text) == oracle::EscapeXmlText(text));
  Check(DecodeBasicEntities(text) == oracle::DecodeBasicEntities(text));
  Check(StripTags(text) == oracle::StripTags(text));
  Check(PercentUnescape(text) == Unescaped(text));
  CheckFirstLink(text);
  const FragmentParts parts = CutFragment(text);
  Check(parts.fragment == oracle::TextBetween(text, std::string(kStartMarker), std::string(kEndMarker)));
  if (IsValidUtf8(text)) {
    Check(ToUtf8(ToUtf16(text)) == text);
    Check(PercentUnescape(PercentEscape(text)) == text);
  }
  Check(IsValidUtf8(ToLower(text)) || !IsValidUtf8(text));
  CompareVersions(text, "1.2");
  return 0;
}
