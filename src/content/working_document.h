#pragma once
#include <memory>
#include <pugixml.hpp>
#include <string>

#include "base/result.h"

namespace quill::content {

/// A selection as a tree: the root element `quillText` holds the fragment's nodes in order.
///
/// Element names keep their case, white space and CDATA sections are kept, CR LF became LF. Nodes stay
/// valid when the document is moved. Names and values of nodes that were not changed point into the parsed
/// text, which the document owns.
class WorkingDocument {
 public:
  /// Parses in place, without recursion. Refuses whatever is not well-formed XML (see xml_strictness.h);
  /// the failure says what was met and at which byte of `xml`. O(xml).
  static Result<WorkingDocument> Parse(std::string xml);

  WorkingDocument(WorkingDocument&&) noexcept;
  WorkingDocument& operator=(WorkingDocument&&) noexcept;
  ~WorkingDocument();

  pugi::xml_document& tree();
  const pugi::xml_document& tree() const;

  /// The root element, `quillText` in what `HtmlToXml` writes.
  pugi::xml_node Root() const;

  /// The text form (see xml_serializer.h), XML declaration included. O(result).
  std::string Xml() const;

 private:
  struct State;
  explicit WorkingDocument(std::unique_ptr<State> state);

  std::unique_ptr<State> m_state;
};

}  // namespace quill::content
