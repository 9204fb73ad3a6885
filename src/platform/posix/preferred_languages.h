#pragma once
#include <string>
#include <vector>

namespace quill::platform {

/// The user's languages from the environment, as GNU gettext reads them: the list in LANGUAGE (unless the
/// locale is "C"), then the first set of LC_ALL, LC_MESSAGES, LANG.
std::vector<std::string> LanguagesOfEnvironment();

}  // namespace quill::platform
