#include "tools/phonetics_local.h"

#include <unicode/translit.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include "content/unicode_text.h"

namespace quill::tools {
namespace {

constexpr std::size_t kLongestWord = 200;
constexpr std::chrono::milliseconds kSynthesizerTime{5'000};

struct Voice {
  std::string_view language;
  const char* name;
};

constexpr Voice kVoices[] = {{"English", "en"}, {"French", "fr"}, {"German", "de"}};

const Voice* FindVoice(std::string_view language) {
  const auto* found = std::ranges::find(kVoices, language, &Voice::language);
  return found == std::end(kVoices) ? nullptr : found;
}

/// What is read aloud: line breaks would end the sentence, brackets begin a phoneme spelling.
std::string Readable(std::string_view word) {
  std::string text(content::TrimWhite(word));
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '[' || c == ']'; }, ' ');
  return text;
}

/// A note such as "(en)" or "(fr-be)" at the beginning of the text; its length, or 0.
std::size_t LanguageNote(std::string_view text) {
  const std::size_t end = text.find(')');
  if (!text.starts_with('(') || end == std::string_view::npos || end > 9) return 0;
  const std::string_view name = text.substr(1, end - 1);
  const bool isName = name.size() >= 2 &&
                      std::ranges::all_of(name, [](char c) { return (c >= 'a' && c <= 'z') || c == '-'; });
  return isName ? end + 1 : 0;
}

std::int32_t ScriptOf(UChar32 c) {
  UErrorCode error = U_ZERO_ERROR;
  return uscript_getScript(c, &error);
}

bool HasScript(const icu::UnicodeString& text, UScriptCode script) {
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    if (ScriptOf(text.char32At(at)) == script) return true;
  }
  return false;
}

constexpr UChar32 kLongVowel = 0x30FC;  ///< belongs to both kana scripts

bool IsKana(const icu::UnicodeString& text) {
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    const UChar32 c = text.char32At(at);
    const std::int32_t script = ScriptOf(c);
    if (script != USCRIPT_HIRAGANA && script != USCRIPT_KATAKANA && c != kLongVowel) return false;
  }
  return !text.isEmpty();
}

std::string Transliterate(icu::UnicodeString text, const char* rules) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::Transliterator> transliterator(
      icu::Transliterator::createInstance(rules, UTRANS_FORWARD, error));
  if (U_FAILURE(error) || transliterator == nullptr) return {};
  transliterator->transliterate(text);
  std::string result;
  text.toUTF8String(result);
  return std::string(content::TrimWhite(result));
}

}  // namespace

std::string SynthesizerText(std::string_view output) {
  std::string text;
  for (std::size_t at = 0; at < output.size();) {
    const std::size_t note = LanguageNote(output.substr(at));
    at += note;
    if (note != 0) continue;
    const char c = output[at++];
    const bool isWhite = c == ' ' || c == '\n' || c == '\r' || c == '\t';
    if (!isWhite)
      text += c;
    else if (!text.empty() && !text.ends_with(' '))
      text += ' ';
  }
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

std::string SynthesizedPhonetic(std::string_view language, const std::string& word,
                                platform::ProcessRunner& runner, const std::function<bool()>& isCancelled) {
  const Voice* voice = FindVoice(language);
  const std::string text = Readable(word);
  if (voice == nullptr || text.empty() || text.size() > kLongestWord) return {};
  platform::ProcessRequest request;
  request.command = {"espeak-ng", "-q", "--ipa", "-v", voice->name, "--stdin"};
  request.input = text + "\n";
  request.deadline = kSynthesizerTime;
  request.outputLimit = 64u << 10;
  request.isCancelled = isCancelled;
  const platform::ProcessResult result = runner.Run(request);
  if (!result.ok() || !content::IsValidUtf8(result.output)) return {};
  return SynthesizerText(result.output);
}

std::string TransliteratedPhonetic(std::string_view language, std::string_view word) {
  const std::string_view trimmed = content::TrimWhite(word);
  const auto text = icu::UnicodeString::fromUTF8(
      icu::StringPiece(trimmed.data(), static_cast<std::int32_t>(trimmed.size())));
  if (language == "Chinese" && HasScript(text, USCRIPT_HAN)) return Transliterate(text, "Han-Latin");
  if (language == "Japanese" && IsKana(text)) return Transliterate(text, "Hiragana-Latin; Katakana-Latin");
  return {};
}

}  // namespace quill::tools
