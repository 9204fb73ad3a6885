#pragma once
#include <optional>
#include <span>
#include <string_view>

namespace quill::tools {

/// A language as the language box shows it.
struct SyntaxLanguage {
  std::string_view name;
  std::string_view syntax;  ///< what the highlighter calls this language
};

/// All languages, in the order of the box.
///
/// The highlighter tells the language from the extension of the source file, and the extensions are a list of
/// their own with one entry fewer: from "Transact-SQL" on each language has the extension of the next, and
/// "XML" has none. With highlight 3.41 the extensions "s", "sh", "m" and "text" stand for AMTrix, shell,
/// Matlab and plain text without colours; `SyntaxSource::Name` goes by `syntax` instead.
std::span<const SyntaxLanguage> SyntaxLanguages();

/// The extension at the position of a name; nothing for "XML" and for names that are not in the table.
std::optional<std::string_view> SyntaxExtension(std::string_view language);

/// The row of a name, or null.
const SyntaxLanguage* FindSyntaxLanguage(std::string_view name);

/// A colour theme as the theme box shows it.
struct SyntaxTheme {
  std::string_view name;
  std::string_view style;       ///< what the highlighter calls it
  std::string_view otherStyle;  ///< its name where the highlighter does not know `style`; may be empty
};

/// All themes, in the order of the box. "edit-flashdevelp" is how the theme was once spelt; highlight 3.41
/// has it as "edit-flashdevelop".
std::span<const SyntaxTheme> SyntaxThemes();

/// The row of a name, or null.
const SyntaxTheme* FindSyntaxTheme(std::string_view name);

}  // namespace quill::tools
