#pragma once
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>

#include "practice/service/change_request.h"
#include "practice/service/notebook_library.h"

namespace quill::practice {

/// A page while an array of changes is applied to it. Generated ids are those of the page before the first
/// change; an element that an earlier change has taken away is no target any more.
class ChangedPage {
 public:
  ChangedPage(const LibraryContent& content, std::string_view pageGuid);

  /// What is wrong with the change, if it cannot be applied; the page may be of no use then.
  std::optional<ChangeProblem> Apply(const Change& change);

  LibraryContent Content() const;

 private:
  struct Target {
    pugi::xml_node element;  ///< null for the title
    std::string_view kind;   ///< as `kRules` in the source names it
  };
  std::optional<Target> Find(std::string_view target) const;
  bool IsOnPage(pugi::xml_node element) const;
  void ReplaceTitle(pugi::xml_node added);
  void Put(pugi::xml_node target, const Change& change, pugi::xml_node added);

  pugi::xml_document m_document;
  pugi::xml_node m_body;
  pugi::xml_node m_gone;  ///< holds what was taken away: it may still be named as a target
  bool m_isReadable = false;
  std::string m_title;
  std::unordered_map<std::string, pugi::xml_node> m_byId;
};

}  // namespace quill::practice
