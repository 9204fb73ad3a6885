#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "platform/process_runner.h"

namespace quill::tools {

/// IPA from the speech synthesizer espeak-ng, for English, French and German. Empty for other languages, for
/// words longer than 200 bytes, and when the program is missing or fails. Any thread.
std::string SynthesizedPhonetic(std::string_view language, const std::string& word,
                                platform::ProcessRunner& runner, const std::function<bool()>& isCancelled);

/// The text of espeak-ng on one line, without its notes on language changes: "(en)", "(fr)".
std::string SynthesizerText(std::string_view output);

/// Latin letters from ICU: pinyin with tone marks for Chinese, Hepburn for Japanese. Empty for other
/// languages, for Chinese text without a Chinese character, and for Japanese text that is not kana
/// throughout, since the reading of kanji cannot be told from the characters.
std::string TransliteratedPhonetic(std::string_view language, std::string_view word);

}  // namespace quill::tools
