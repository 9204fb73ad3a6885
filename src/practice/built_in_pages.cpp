#include "practice/built_in_pages.h"

#include <utility>

namespace quill::practice {
namespace {

struct Row {
  const char* section;
  const char* file;
};

constexpr Row kPages[] = {
    {"First steps", "welcome"},  {"First steps", "headings"}, {"Material", "table"},
    {"Material", "lists"},       {"Material", "picture"},     {"Material", "asian-text"},
    {"Material", "source-code"},
};

}  // namespace

std::vector<BuiltInPage> BuiltInPages() {
  std::vector<BuiltInPage> pages;
  for (const Row& row : kPages) {
    Result<Page> page = ParsePageFile(BuiltInPageFile(row.file));
    if (page.ok()) pages.push_back({row.section, std::move(*page)});
  }
  return pages;
}

}  // namespace quill::practice
