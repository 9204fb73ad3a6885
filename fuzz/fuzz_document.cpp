// A document that was parsed and written is parsed to the same tree, and written the same again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "content/html_normalizer.h"
#include "content/markup_grammar.h"
#include "content/working_document.h"

namespace {

using quill::content::WorkingDocument;

bool SameValue(const char* left, const char* right) {
  return std::string_view(left) == right;
}

bool SameNode(pugi::xml_node left, pugi::xml_node right) {
  if (left.type() != right.type() || !SameValue(left.name(), right.name())) return false;
  if (!SameValue(left.value(), right.value())) return false;
  pugi::xml_attribute other = right.first_attribute();
  for (const pugi::xml_attribute& attribute : left.attributes()) {
    if (!SameValue(attribute.name(), other.name()) || !SameValue(attribute.value(), other.value()))
      return false;
    other = other.next_attribute();
  }
  return !other;
}

bool SameTree(pugi::xml_node left, pugi::xml_node right) {
  if (!SameNode(left, right)) return false;
  pugi::xml_node other = right.first_child();
  for (const pugi::xml_node& child : left.children()) {
    if (!other || !SameTree(child, other)) return false;
    other = other.next_sibling();
  }
  return !other;
}

void CheckRoundTrip(std::string xml) {
  const auto first = WorkingDocument::Parse(std::move(xml));
  if (!first) return;
  const std::string written = first->Xml();
  const auto second = WorkingDocument::Parse(written);
  if (!second || !SameTree(first->tree(), second->tree()) || second->Xml() != written) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckRoundTrip(quill::test::GrowDocument(text));
  CheckRoundTrip(quill::content::HtmlToXml(text));
  return 0;
}
