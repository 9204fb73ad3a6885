#include "tools/syntax_highlight_tables.h"

#include <algorithm>

namespace quill::tools {
namespace {

constexpr SyntaxLanguage kLanguages[] = {
    {"ARM", "arm"},
    {"ASP", "asp"},
    {"Assembler", "assembler"},
    {"AutoHokey", "autohotkey"},
    {"C and C++", "c"},
    {"C#", "csharp"},
    {"CSS", "css"},
    {"DOS Batch", "bat"},
    {"HTML", "html"},
    {"INI", "ini"},
    {"Java", "java"},
    {"Javascript", "js"},
    {"JSP", "jsp"},
    {"Make", "make"},
    {"Matlab", "matlab"},
    {"Microsoft PowerShell", "ps1"},
    {"Object C", "objc"},
    {"Pascal", "pas"},
    {"Perl", "perl"},
    {"PHP", "php"},
    {"R", "r"},
    {"Ruby", "ruby"},
    {"Python", "python"},
    {"PL/SQL", "sql"},
    {"Swift", "swift"},
    {"TeX and LaTeX", "tex"},
    {"Transact-SQL", "tsql"},
    {"Visual Basic", "vb"},
    {"XML", "xml"},
};

constexpr std::string_view kExtensions[] = {
    "s",      "asp", "asm", "sh",  "c",  "cs",  "css", "bat", "htm", "ini", "java",  "js",   "jsp", "mk",
    "matlab", "ps1", "m",   "pas", "pl", "php", "r",   "rb",  "py",  "sql", "swift", "text", "vb",  "xml"};

static_assert(std::size(kExtensions) + 1 == std::size(kLanguages));

constexpr SyntaxTheme kThemes[] = {
    {"Bright", "bright", ""},
    {"Darkness", "darkness", ""},
    {"Anjuta", "edit-anjuta", ""},
    {"Eclipse", "edit-eclipse", ""},
    {"Emacs", "edit-emacs", ""},
    {"Flash", "edit-flashdevelp", "edit-flashdevelop"},
    {"JEdit", "edit-jedit", ""},
    {"Vim", "edit-vim", ""},
    {"Visual Studio", "edit-msvs2008", ""},
    {"XCode", "edit-xcode", ""},
};

}  // namespace

std::span<const SyntaxLanguage> SyntaxLanguages() {
  return kLanguages;
}

std::optional<std::string_view> SyntaxExtension(std::string_view language) {
  const SyntaxLanguage* row = FindSyntaxLanguage(language);
  if (row == nullptr) return std::nullopt;
  const auto position = static_cast<std::size_t>(row - kLanguages);
  if (position >= std::size(kExtensions)) return std::nullopt;
  return kExtensions[position];
}

const SyntaxLanguage* FindSyntaxLanguage(std::string_view name) {
  const auto* found = std::ranges::find(kLanguages, name, &SyntaxLanguage::name);
  return found == std::end(kLanguages) ? nullptr : found;
}

std::span<const SyntaxTheme> SyntaxThemes() {
  return kThemes;
}

const SyntaxTheme* FindSyntaxTheme(std::string_view name) {
  const auto* found = std::ranges::find(kThemes, name, &SyntaxTheme::name);
  return found == std::end(kThemes) ? nullptr : found;
}

}  // namespace quill::tools
