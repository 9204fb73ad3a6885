#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::online {

// Addresses of the OneNote service below the `GraphBaseUrl` of a user, escaped. Ids are those of the service.

/// The sections of this name, in any case. A quote in the name stays as it is.
std::string SectionsNamedUrl(std::string_view base, std::string_view sectionName);

/// A batch of a hundred pages of a section.
std::string SectionPagesUrl(std::string_view base, std::string_view sectionId, int skip);

/// The first hundred pages of a section with their levels and order.
std::string SectionContentsUrl(std::string_view base, std::string_view sectionId);

/// The pages with this title, in any case; quotes in it are doubled.
std::string PagesTitledUrl(std::string_view base, std::string_view title);

/// The pages whose title contains this word.
std::string PagesContainingUrl(std::string_view base, std::string_view word);

/// A page's content, with an id on every element or for changing it. Nothing for an id that is not ASCII.
std::optional<std::string> PageContentUrl(std::string_view base, std::string_view pageId);
std::optional<std::string> PageChangeUrl(std::string_view base, std::string_view pageId);

/// The number of the user's pages, with one page that nobody looks at.
std::string PageCountUrl(std::string_view base);

std::string NotebooksUrl(std::string_view base);
std::string RecentNotebooksUrl(std::string_view base);

}  // namespace quill::online
