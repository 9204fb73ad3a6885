#include "files/onedrive/similar_name.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <utility>

#include "content/unicode_text.h"

namespace quill::files {
namespace {

/// A name in the form in which it is compared, with and without the size of its letters.
struct Comparable {
  icu::UnicodeString exact;
  icu::UnicodeString folded;
};

std::optional<Comparable> ToComparable(std::string_view name) {
  if (!content::IsValidUtf8(name)) return std::nullopt;
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* decompose = icu::Normalizer2::getNFDInstance(error);
  if (U_FAILURE(error)) return std::nullopt;
  icu::UnicodeString text =
      icu::UnicodeString::fromUTF8(icu::StringPiece(name.data(), static_cast<std::int32_t>(name.size())));
  text.findAndReplace(icu::UnicodeString(char16_t{0xA0}), icu::UnicodeString(char16_t{' '}));
  Comparable result;
  result.exact = decompose->normalize(text, error);
  result.folded = decompose->normalize(icu::UnicodeString(result.exact).foldCase(), error);
  if (U_FAILURE(error)) return std::nullopt;
  return result;
}

}  // namespace

std::optional<std::string> FindSimilarName(const std::vector<FolderEntry>& entries, std::string_view name) {
  const std::optional<Comparable> wanted = ToComparable(name);
  if (!wanted) return std::nullopt;
  std::optional<std::pair<bool, std::string>> best;
  for (const FolderEntry& entry : entries) {
    const std::optional<Comparable> there = ToComparable(entry.name);
    if (!there || there->folded != wanted->folded) continue;
    std::pair<bool, std::string> found(there->exact != wanted->exact, entry.name);
    if (!best || found < *best) best = std::move(found);
  }
  if (!best) return std::nullopt;
  return std::move(best->second);
}

}  // namespace quill::files
