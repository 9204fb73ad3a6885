#pragma once
#include <span>
#include <string_view>

namespace quill::tools {

/// An interpreter's name behind "#!", and the language that it settles.
struct LanguageSign {
  std::string_view text;
  std::string_view language;
};

std::span<const LanguageSign> InterpreterNames();

enum class CuePlace { Anywhere, LineStart };
enum class CueLetters { Exact, AnyCase };

/// A text that speaks for a language.
struct LanguageCue {
  std::string_view language;
  std::string_view text;
  int points;
  CuePlace place = CuePlace::Anywhere;
  CueLetters letters = CueLetters::Exact;
};

std::span<const LanguageCue> LanguageCues();

/// What only pages and templates of one language contain, the more particular ones first; points do not
/// count.
std::span<const LanguageCue> PageOpenings();

}  // namespace quill::tools
