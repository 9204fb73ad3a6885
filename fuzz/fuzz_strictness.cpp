// The strictness check against libxml2, on documents grown from a grammar that is nearly XML.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "content/find_text.h"
#include "content/markup_grammar.h"
#include "content/oracles.h"
#include "content/xml_strictness.h"

namespace {

using quill::content::FindXmlFault;

/// Whether a processing instruction is named "xml" with a capital letter.
bool HasCapitalXmlTarget(std::string_view xml) {
  for (std::size_t at = 0; (at = xml.find("<?", at)) != std::string_view::npos; at += 2) {
    const std::string_view name = xml.substr(at + 2, 3);
    if (quill::content::FindIgnoringAsciiCase(name, "xml") == 0 && name != "xml") return true;
  }
  return false;
}

/// Whether one of the differences that xml_strictness.h lists may be at work.
bool IsKnownDifference(std::string_view what, std::string_view xml) {
  const auto has = [xml](std::string_view part) { return xml.find(part) != std::string_view::npos; };
  if (what == "elements nested too deeply" || has("<!DOCTYPE") || xml.find('\0') != std::string_view::npos)
    return true;
  if (what == "a malformed XML declaration") return has("encoding");
  if (what == "an attribute given twice") return has("xmlns");
  return what == "a malformed processing instruction" && HasCapitalXmlTarget(xml);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string xml = quill::test::GrowDocument({reinterpret_cast<const char*>(data), size});
  const auto fault = FindXmlFault(xml);
  if (fault.has_value() == !quill::oracle::IsWellFormed(xml)) return 0;
  if (fault && IsKnownDifference(fault->what, xml)) return 0;
  std::abort();
}
