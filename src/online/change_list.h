#pragma once
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "online/page_scanner.h"

namespace quill::online {

/// A part of the source that goes, and what comes in its place.
struct SourceEdit {
  SourceRange where;
  std::string_view text;
};

/// A part of the source with those of the edits that lie within it. The edits are in order and apart.
/// O(log(edits)
/// + result).
std::string EditedSource(std::string_view html, SourceRange range, const std::vector<SourceEdit>& edits);

/// The changes of a page as the service takes them.
class ChangeList {
 public:
  /// The element with this id becomes this HTML.
  void Replace(std::string_view id, std::string_view content);

  std::size_t Size() const { return m_changes.size(); }
  /// The array; "" when there are no changes.
  std::string Json() const;

 private:
  nlohmann::ordered_json m_changes = nlohmann::ordered_json::array();
};

/// The ids of the elements that a list of changes replaces. Fails, with words for a log, when it is no such
/// list, or does anything else.
Result<std::vector<std::string>> ReplacedIds(std::string_view json);

}  // namespace quill::online
