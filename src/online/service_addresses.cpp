#include "online/service_addresses.h"

#include <fmt/format.h>

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::online {
namespace {

/// Escaped, with the characters too that would end the part of an address in which the text stands.
std::string EscapePart(std::string_view text, std::string_view ends) {
  std::string escaped;
  for (const char c : content::PercentEscape(text)) {
    if (ends.find(c) == std::string_view::npos) {
      escaped += c;
    } else {
      escaped += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return escaped;
}

std::string InQuery(std::string_view text) {
  return EscapePart(text, "&+#");
}

std::string InPath(std::string_view id) {
  return EscapePart(id, "/?&+#");
}

std::string Base(std::string_view base) {
  return content::PercentEscape(base);
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string Doubled(std::string_view text) {
  std::string doubled;
  for (const char c : text) doubled.append(c == '\'' ? 2 : 1, c);
  return doubled;
}

std::optional<std::string> PageUrl(std::string_view base, std::string_view pageId, std::string_view rest) {
  if (!IsAscii(base) || !IsAscii(pageId)) return std::nullopt;
  return fmt::format("{}/onenote/pages/{}/content{}", Base(base), InPath(pageId), rest);
}

}  // namespace

std::string SectionsNamedUrl(std::string_view base, std::string_view sectionName) {
  return fmt::format("{}/onenote/sections?filter=tolower(name)%20eq%20'{}'", Base(base),
                     InQuery(content::ToLower(sectionName)));
}

std::string SectionPagesUrl(std::string_view base, std::string_view sectionId, int skip) {
  return fmt::format("{}/onenote/sections/{}/pages?top=100&skip={}", Base(base), InPath(sectionId), skip);
}

std::string SectionContentsUrl(std::string_view base, std::string_view sectionId) {
  return fmt::format("{}/onenote/sections/{}/pages?pagelevel=true&orderby=order&count=true&top=100",
                     Base(base), InPath(sectionId));
}

std::string PagesTitledUrl(std::string_view base, std::string_view title) {
  return fmt::format("{}/onenote/pages?filter=tolower(title)%20eq%20'{}'", Base(base),
                     InQuery(Doubled(content::ToLower(title))));
}

std::string PagesContainingUrl(std::string_view base, std::string_view word) {
  return fmt::format("{}/onenote/pages?select=id,title,links&filter=contains(tolower(title),'{}')",
                     Base(base), InQuery(word));
}

std::optional<std::string> PageContentUrl(std::string_view base, std::string_view pageId) {
  return PageUrl(base, pageId, "?includeIDs=true");
}

std::optional<std::string> PageChangeUrl(std::string_view base, std::string_view pageId) {
  return PageUrl(base, pageId, "");
}

std::string PageCountUrl(std::string_view base) {
  return Base(base) + "/onenote/pages?count=true&top=1";
}

std::string NotebooksUrl(std::string_view base) {
  return Base(base) + "/onenote/notebooks";
}

std::string RecentNotebooksUrl(std::string_view base) {
  return Base(base) + "/onenote/notebooks/getRecentNotebooks(includePersonalNotebooks=true)";
}

}  // namespace quill::online
