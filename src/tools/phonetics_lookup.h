#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/http.h"
#include "platform/process_runner.h"
#include "tools/phonetics_dictionaries.h"

namespace quill::tools {

/// Why a dictionary gave nothing.
enum class DictionaryProblemKind {
  NotConfigured,  ///< nothing was requested
  NoAnswer,       ///< `http` says why
  NotText,        ///< the page is not UTF-8
  NotFound        ///< the page does not hold the word's transcription; `status` is what the service said
};

struct DictionaryProblem {
  const DictionaryRow* dictionary;
  DictionaryProblemKind kind;
  platform::HttpProblem http = platform::HttpProblem::Failed;
  int status = 0;
};

/// The string-table key of a problem's message; empty for a cancelled request.
std::string_view DictionaryProblemKey(const DictionaryProblem& problem);

/// Where a transcription comes from, so that the user can be told.
enum class PhoneticSource {
  None,
  Dictionary,
  SpeechSynthesizer,  ///< IPA by the rules of espeak-ng: good for most words, but nobody looked it up
  Transliteration     ///< by ICU: the most common reading of each Chinese character; kana letter by letter
};

struct PhoneticAnswer {
  std::string phonetic;  ///< empty when nothing was found
  PhoneticSource source = PhoneticSource::None;
  const DictionaryRow* dictionary = nullptr;  ///< which dictionary answered
  std::vector<DictionaryProblem> problems;    ///< of those asked in vain, in order
  bool isCancelled = false;
};

struct PhoneticQuery {
  std::string language;  ///< one of `PhoneticLanguages`
  std::string word;      ///< UTF-8
  DictionarySet first = DictionarySet::Secondary;
  std::function<bool()> isCancelled = nullptr;
};

/// Asks the dictionary of one set and, when it gives nothing, that of the other. Each request ends after five
/// seconds at the latest; a page may have 4 MB. Any thread.
PhoneticAnswer LookUp(const PhoneticQuery& query, const DictionaryHosts& hosts, platform::Http& http);

/// What is tried when no dictionary has the word; each can be switched off.
struct PhoneticLastResorts {
  bool usesSynthesizer = true;      ///< English, French, German, where espeak-ng is installed
  bool usesTransliteration = true;  ///< Chinese; Japanese words in kana alone
};

/// `LookUp`, then the last resorts. Any thread.
PhoneticAnswer FindPhonetic(const PhoneticQuery& query, const DictionaryHosts& hosts,
                            const PhoneticLastResorts& resorts, platform::Http& http,
                            platform::ProcessRunner& runner);

}  // namespace quill::tools
