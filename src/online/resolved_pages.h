#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quill::online {

/// A page's place in the online service.
struct OnlinePlace {
  std::string pageId;     ///< as the service names it; has to be escaped in addresses
  std::string sectionId;  ///< of the section that held the page

  bool operator==(const OnlinePlace&) const = default;
};

/// Pages that were found online, so that the next command on the same page needs no search. Each is kept
/// with the account that found it; the last few hundred stay. Command thread.
class ResolvedPages {
 public:
  /// The place of the page with this id of a client link, for this user; ids match in any case.
  std::optional<OnlinePlace> Find(std::string_view userId, std::string_view pageClientId) const;

  void Remember(std::string_view userId, std::string_view pageClientId, OnlinePlace place);
  void Forget(std::string_view userId, std::string_view pageClientId);
  void Clear() { m_pages.clear(); }

 private:
  struct Entry {
    std::string userId;
    std::string pageClientId;  ///< lower case
    OnlinePlace place;
  };
  std::vector<Entry> m_pages;  ///< oldest first
};

}  // namespace quill::online
