#pragma once
#include <fmt/format.h>

#include <map>
#include <string>
#include <vector>

#include "practice/service/notebook_library.h"

namespace quill::test {

inline std::string MadeUpGuid(int number) {
  return fmt::format("{{{:08X}-2222-4333-8444-0123456789AB}}", number);
}

/// Two notebooks in memory. "Work" holds "Plans" with 250 pages, "Ålesund & O'Hara" with one untitled page,
/// and an empty "Minutes" within two groups; "Shared" belongs to somebody else and has a "Plans" of its own
/// with 100 pages. Titles are "Page 0", "Page 1", …; GUIDs count on from 1000 (and from 5000).
class MadeUpLibrary final : public practice::NotebookLibrary {
 public:
  std::vector<practice::LibraryNotebook> Notebooks() override {
    return {{MadeUpGuid(1),
             "Work",
             true,
             false,
             "7c1f0a93b2d84e65",
             {{MadeUpGuid(2), "Plans", {}, Pages(1000, 250)},
              {MadeUpGuid(3), "Ålesund & O'Hara", {}, {{MadeUpGuid(3000), "", 0, 0}}},
              {MadeUpGuid(4), "Minutes", {"Team A", "50% done"}, {}}}},
            {MadeUpGuid(11),
             "Shared",
             false,
             true,
             "0123456789abcdef",
             {{MadeUpGuid(12), "Plans", {}, Pages(5000, 100)}}}};
  }

  Result<practice::LibraryContent> Load(std::string_view guid) override {
    if (guid != MadeUpGuid(1000)) return Failure{std::string("no such page")};
    return m_first;
  }

  Status<> Save(std::string_view, const practice::LibraryContent& content) override {
    m_first = content;
    return Done();
  }

 private:
  static std::vector<practice::LibraryPage> Pages(int from, int count) {
    std::vector<practice::LibraryPage> pages;
    for (int i = 0; i < count; ++i)
      pages.push_back({MadeUpGuid(from + i), fmt::format("Page {}", i), i % 3, 10 * i});
    return pages;
  }

  practice::LibraryContent m_first{"Page 0", "<p>first</p>"};
};

}  // namespace quill::test
