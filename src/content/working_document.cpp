#include "content/working_document.h"

#include <fmt/format.h>

#include <cstring>

#include "content/xml_serializer.h"
#include "content/xml_strictness.h"

namespace quill::content {
namespace {

/// What XML asks of a reader: CR LF and a lone CR are LF before anything else is looked at.
void NormalizeLineEnds(std::string& text) {
  const std::size_t first = text.find('\r');
  if (first == std::string::npos) return;
  char* out = text.data() + first;
  const char* const end = text.data() + text.size();
  for (const char* at = out; at < end;) {
    // `at` is at a CR.
    *out++ = '\n';
    at += at + 1 < end && at[1] == '\n' ? 2 : 1;
    const auto left = static_cast<std::size_t>(end - at);
    const char* const next = left == 0 ? nullptr : static_cast<const char*>(std::memchr(at, '\r', left));
    const std::size_t kept = next == nullptr ? left : static_cast<std::size_t>(next - at);
    std::memmove(out, at, kept);
    out += kept;
    at += kept;
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
}

constexpr unsigned kParseOptions = pugi::parse_cdata | pugi::parse_comments | pugi::parse_pi |
                                   pugi::parse_ws_pcdata | pugi::parse_eol | pugi::parse_escapes |
                                   pugi::parse_wconv_attribute;

}  // namespace

struct WorkingDocument::State {
  std::string text;  ///< what the tree's names and values point into
  pugi::xml_document tree;
};

WorkingDocument::WorkingDocument(std::unique_ptr<State> state) : m_state(std::move(state)) {}
WorkingDocument::WorkingDocument(WorkingDocument&&) noexcept = default;
WorkingDocument& WorkingDocument::operator=(WorkingDocument&&) noexcept = default;
WorkingDocument::~WorkingDocument() = default;

Result<WorkingDocument> WorkingDocument::Parse(std::string xml) {
  const XmlCheck check = CheckXml(xml);
  if (const auto& fault = check.fault) {
    return Failure{fmt::format("{} at byte {}", fault->what, fault->offset)};
  }
  auto state = std::make_unique<State>();
  state->text = std::move(xml);
  // The parser turns line ends into LF everywhere but in processing instructions.
  if (check.hasInstruction) NormalizeLineEnds(state->text);
  const pugi::xml_parse_result parsed = state->tree.load_buffer_inplace(
      state->text.data(), state->text.size(), kParseOptions, pugi::encoding_utf8);
  if (!parsed) return Failure{fmt::format("{} at byte {}", parsed.description(), parsed.offset)};
  return WorkingDocument(std::move(state));
}

pugi::xml_document& WorkingDocument::tree() {
  return m_state->tree;
}
const pugi::xml_document& WorkingDocument::tree() const {
  return m_state->tree;
}
pugi::xml_node WorkingDocument::Root() const {
  return m_state->tree.document_element();
}

std::string WorkingDocument::Xml() const {
  return SerializeDocument(m_state->tree, m_state->text.size() + m_state->text.size() / 16);
}

}  // namespace quill::content
