#pragma once
#include <cstddef>
#include <optional>
#include <string_view>

namespace quill::content {

/// Elements deeper than this are refused: no document that OneNote writes comes near, and whoever walks a
/// tree may then do so on the stack.
inline constexpr std::size_t kMaxElementDepth = 2000;

/// Why a text is no well-formed document, and at which byte that was noticed. `what` is a fixed text.
struct XmlFault {
  std::string_view what;
  std::size_t offset;
};

/// The first reason why `xml` is not a well-formed UTF-8 document, or nothing.
///
/// What it accepts is what libxml2 accepts as well-formed, namespace errors (undeclared prefixes) included,
/// except for:
/// - elements deeper than `kMaxElementDepth` and any document type declaration: refused;
/// - an encoding other than UTF-8 in the XML declaration: refused, the text is UTF-8 by contract;
/// - a zero byte after the root element: refused (libxml2 takes it for the end of the text);
/// - a processing instruction named "xml" in upper or mixed case: refused, the tree parser takes it for a
///   declaration;
/// - a namespace declared twice on one element: always refused as the duplicate attribute it is (libxml2
///   overlooks some whose address is unusable).
/// Without recursion, O(xml); O(n log n) in attributes of one element that were chosen to collide.
std::optional<XmlFault> FindXmlFault(std::string_view xml);

/// The fault, and what else was noticed on the way to it or to the end.
struct XmlCheck {
  std::optional<XmlFault> fault;
  bool hasInstruction = false;  ///< a processing instruction other than the XML declaration
};

XmlCheck CheckXml(std::string_view xml);

}  // namespace quill::content
