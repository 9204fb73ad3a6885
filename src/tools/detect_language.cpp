#include "tools/detect_language.h"

#include <algorithm>
#include <array>
#include <span>

#include "content/find_text.h"
#include "tools/language_cues.h"
#include "tools/syntax_highlight_tables.h"

namespace quill::tools {
namespace {

constexpr std::size_t kRead = 32u << 10;
constexpr int kEnough = 4;  ///< points: two typical words, or one that no other language has and one more
constexpr int kLead = 2;    ///< points before the second

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

std::optional<std::string_view> ByInterpreter(std::string_view code) {
  const std::string_view line = FirstLine(code);
  for (const LanguageSign& sign : InterpreterNames()) {
    if (line.find(sign.text) != std::string_view::npos) return sign.language;
  }
  return std::nullopt;
}

bool IsIndent(char c) {
  return c == ' ' || c == '\t';
}

/// Whether only blanks stand before this place in its line.
bool IsLineStart(std::string_view code, std::size_t at) {
  while (at > 0 && IsIndent(code[at - 1])) --at;
  return at == 0 || code[at - 1] == '\n' || code[at - 1] == '\r';
}

bool IsWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// A cue that begins with a letter must not be the end of a longer word.
bool BeginsWord(std::string_view code, std::size_t at) {
  return at == 0 || !IsWordByte(code[at]) || !IsWordByte(code[at - 1]);
}

bool Occurs(std::string_view code, const LanguageCue& cue) {
  const auto find = cue.letters == CueLetters::AnyCase ? content::FindIgnoringAsciiCase : content::FindText;
  for (std::size_t at = find(code, cue.text, 0); at != std::string_view::npos;
       at = find(code, cue.text, at + 1)) {
    if (cue.place == CuePlace::LineStart ? IsLineStart(code, at) : BeginsWord(code, at)) return true;
  }
  return false;
}

std::optional<std::string_view> ByOpening(std::string_view code) {
  for (const LanguageCue& opening : PageOpenings()) {
    if (Occurs(code, opening)) return opening.language;
  }
  return std::nullopt;
}

std::optional<std::string_view> ByCues(std::string_view code) {
  const std::span<const SyntaxLanguage> languages = SyntaxLanguages();
  std::array<int, 64> points{};
  for (const LanguageCue& cue : LanguageCues()) {
    const SyntaxLanguage* language = FindSyntaxLanguage(cue.language);
    if (language != nullptr && Occurs(code, cue))
      points[static_cast<std::size_t>(language - languages.data())] += cue.points;
  }
  const auto* const best = std::ranges::max_element(points);
  const auto position = static_cast<std::size_t>(best - points.begin());
  int second = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i != position) second = std::max(second, points[i]);
  }
  if (*best < kEnough || *best - second < kLead) return std::nullopt;
  return languages[position].name;
}

}  // namespace

std::optional<std::string_view> DetectLanguage(std::string_view code) {
  code = code.substr(0, kRead);
  auto language = code.starts_with("#!") ? ByInterpreter(code) : ByOpening(code);
  if (!language && !code.starts_with("#!")) language = ByCues(code);
  if (language && !SyntaxExtension(*language)) return std::nullopt;
  return language;
}

}  // namespace quill::tools
