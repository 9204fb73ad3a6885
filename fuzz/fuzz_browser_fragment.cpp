// Whatever a browser, or somebody who stands for one, puts on the clipboard: the rewriter ends, keeps within
// bounds, and its result has the markers exactly once in front of what the core cuts out.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "content/text_between.h"
#include "platform/x11/browser_fragment.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quill;
  const std::string_view html(reinterpret_cast<const char*>(data), size);
  const std::string document = platform::x11::BrowserToApplicationHtml(html);
  const bool marked = html.find(content::kStartMarker) != std::string_view::npos;
  if (marked && document != html) std::abort();
  if (!marked && document.find(content::kStartMarker) == std::string::npos) std::abort();
  // A second time it is in the application's form already and must pass as it is.
  if (platform::x11::BrowserToApplicationHtml(document) != document) std::abort();
  return 0;
}
