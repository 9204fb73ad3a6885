#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "online/page_scanner.h"

namespace quill::online {

/// What an element does to the text around and in it.
struct ElementManner {
  bool breaksText = false;  ///< text before it, in it and after it is never read together
  bool hidesText = false;   ///< what stands in it is not shown as the page's text
};

/// By an element's name, in any case of letters. Names that nobody knows are a part of the line.
ElementManner MannerOf(std::string_view name);

/// An element that the service replaces when it is told the id.
struct PageTarget {
  std::string id;
  SourceRange where;
  bool isChanged = false;
};

/// Tells, while a page is read from top to bottom, which element has to be sent for a text.
///
/// It is the innermost around the text that has an id and that the service can replace where it stands: a
/// table outside of any other, a list item or a list outside of tables, a paragraph or heading outside of
/// tables and list items, and likewise a div within another one.
class PageTargets {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// An element begins, with this id; "" for none.
  void Enter(const PageToken& tag, std::string id);
  /// The innermost element ends where this tag does.
  void Leave(const PageToken& endTag);

  /// Which of `all` has to be sent for a text that stands here, or `kNone`: then it cannot be changed.
  std::size_t Current() const { return m_open.empty() ? kNone : m_open.back().target; }
  /// Whether a text that stands here is not shown.
  bool IsHidden() const { return !m_open.empty() && m_open.back().isHidden; }

  /// In the order in which they begin. The end of one is known when it has been left.
  std::vector<PageTarget> all;

 private:
  struct Level {
    std::size_t target = kNone;
    bool isOwn = false;  ///< the target is this element itself
    bool isInTable = false;
    bool isInItem = false;
    bool isInDiv = false;
    bool isHidden = false;
  };
  std::vector<Level> m_open;
};

}  // namespace quill::online
