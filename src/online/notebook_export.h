#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::online {

/// The address of the web service's page that exports the notebook which a page lies in. `webApp` is the web
/// service without a slash at the end, `notebooksBody` the service's list of notebooks; nothing when the page
/// lies in none of them. O(body).
std::optional<std::string> NotebookExportAddress(std::string_view notebooksBody, std::string_view pageLink,
                                                 std::string_view webApp);

}  // namespace quill::online
