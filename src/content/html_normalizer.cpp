#include "content/html_normalizer.h"

#include <cstring>
#include <vector>

#include "content/alt_protection.h"
#include "content/conditional_blocks.h"
#include "content/find_text.h"
#include "content/fragment_rewriter.h"
#include "content/text_between.h"

namespace quill::content {
namespace {

constexpr std::string_view kPrologue = "<?xml version=\"1.0\"?><quillText>";
constexpr std::string_view kRootStart = "<quillText>";
constexpr std::string_view kRootEnd = "</quillText>";

/// The same result by one pass a step, for what the single walk cannot do.
std::string NormalizeStepwise(std::string_view fragment) {
  std::string text = ProtectAltTexts(fragment);
  text = *FragmentRewriter(text, {.quoteValues = true}).Run("", "");
  text = RemoveConditionalBlocks(text);
  text = *FragmentRewriter(text, {.closeVoid = true, .replaceNbsp = true}).Run("", "");
  return std::string(kPrologue).append(RestoreAltTexts(text)).append(kRootEnd);
}

/// Replaces each U+00A0 by "&nbsp;" within the text, from its end, so that nothing is moved twice.
void WriteNoBreakSpaces(std::string& text) {
  constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
  constexpr std::string_view kNbsp = "&nbsp;";
  std::vector<std::size_t> found;
  for (std::size_t at = 0; (at = FindText(text, kNoBreakSpace, at)) != std::string::npos;) {
    found.push_back(at);
    at += kNoBreakSpace.size();
  }
  std::size_t from = text.size();
  text.resize(text.size() + found.size() * (kNbsp.size() - kNoBreakSpace.size()));
  std::size_t to = text.size();
  for (auto at = found.rbegin(); at != found.rend(); ++at) {
    const std::size_t after = *at + kNoBreakSpace.size();
    to -= from - after;
    std::memmove(text.data() + to, text.data() + after, from - after);
    to -= kNbsp.size();
    std::memcpy(text.data() + to, kNbsp.data(), kNbsp.size());
    from = *at;
  }
}

}  // namespace

std::string HtmlToXml(std::string_view fragment) {
  if (FindText(fragment, kConditionalStart) == std::string_view::npos) {
    FragmentRewriter rewriter(
        fragment, {.protectAlt = true, .quoteValues = true, .closeVoid = true, .replaceNbsp = true});
    if (auto xml = rewriter.Run(kPrologue, kRootEnd)) return std::move(*xml);
  }
  return NormalizeStepwise(fragment);
}

std::string XmlToHtml(std::string xml) {
  const std::string_view inner = TextBetween(xml, kRootStart, kRootEnd);
  if (inner.empty()) return {};
  const std::size_t begin = static_cast<std::size_t>(inner.data() - xml.data());
  xml.resize(begin + inner.size());
  xml.erase(0, begin);
  WriteNoBreakSpaces(xml);
  return xml;
}

}  // namespace quill::content
