// The one-pass normaliser against the same rules applied step by step.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "content/html_normalizer.h"
#include "content/markup_grammar.h"
#include "content/oracles.h"

namespace {

void CheckBothWays(const std::string& text) {
  if (quill::content::HtmlToXml(text) != quill::oracle::HtmlToXml(text)) std::abort();
  if (quill::content::XmlToHtml(text) != quill::oracle::XmlToHtml(text)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckBothWays(std::string(text));
  CheckBothWays(quill::test::GrowFragment(text));
  return 0;
}
