#pragma once
#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "practice/service/notebook_library.h"

namespace quill::practice {

/// The elements of a page that get ids, as a selector within the page's body.
inline constexpr std::string_view kElementsWithIds =
    "div,p,pre,h1,h2,h3,h4,h5,h6,ul,ol,li,table,tr,td,th,img";

/// The name under which the service knows such an element: "p" also for `pre`, "td" also for `th`; empty for
/// elements without an id.
std::string_view OnlineName(std::string_view name);

struct ElementWithId {
  pugi::xml_node element;
  std::string guid;
};

/// The ids of one state of a page. An id is "KIND:{GUID}{NUMBER}".
///
/// The GUID is a hash of the page's id, the kind, the text without its spacing, and how many elements before
/// it have the same: an element that is not changed keeps it. The number is a hash of the title and the body:
/// it is new whenever the page is.
class OnlineIds {
 public:
  /// `body` holds what stands in `content`, see html_reader.h. O(content × depth).
  OnlineIds(const LibraryContent& content, std::string_view pageGuid, pugi::xml_node body);

  /// In document order.
  const std::vector<ElementWithId>& Elements() const { return m_elements; }

  std::string IdOf(const ElementWithId& element) const;

  /// The id of the `div` that the service puts around the whole content.
  std::string IdOfAll() const;

 private:
  std::string WithNumber(std::string_view kind, std::string_view guid) const;

  std::vector<ElementWithId> m_elements;
  std::string m_guidOfAll;
  std::string m_number;
};

/// The paragraph that the object id of a client link ("{GUID}&HEX") means: its place among all elements that
/// `kElementsWithIds` finds in the page's body, in document order. Only the GUID is looked at, so that a link
/// outlives changes elsewhere on the page. Nothing when there is no such element, or it is the whole content.
std::optional<std::size_t> ParagraphOfObjectId(const LibraryContent& content, std::string_view pageGuid,
                                               std::string_view objectId);

}  // namespace quill::practice
