#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace quill::files {

/// How much of a template a preview shows: of its markup, and of the pictures inside it.
struct ExcerptLimits {
  std::size_t markup = 64u << 10;
  std::size_t pictures = 4u << 20;
};

struct TemplateExcerpt {
  std::string html;
  bool isPart = false;  ///< something was left out
};

/// The beginning of a document, small enough to be laid out while somebody goes through a list. No tag and no
/// picture is cut in two; a picture too many loses its source. O(limits) and one search through the pictures
/// in between.
TemplateExcerpt ExcerptOfTemplate(std::string_view html, const ExcerptLimits& limits = {});

}  // namespace quill::files
