#include "tools/phonetics_lookup.h"

#include <chrono>

#include "content/unicode_text.h"
#include "tools/phonetics_local.h"

namespace quill::tools {
namespace {

constexpr std::chrono::milliseconds kRequestTime{5'000};
constexpr std::size_t kPageLimit = 4u << 20;

constexpr DictionarySet Other(DictionarySet set) {
  return set == DictionarySet::Primary ? DictionarySet::Secondary : DictionarySet::Primary;
}

/// Asks one dictionary and notes in the answer what came.
void Ask(const DictionaryRow& row, const PhoneticQuery& query, const DictionaryHosts& hosts,
         platform::Http& http, PhoneticAnswer& answer) {
  platform::HttpRequest request;
  request.url = DictionaryAddress(row, hosts, query.word);
  if (request.url.empty()) {
    answer.problems.push_back({&row, DictionaryProblemKind::NotConfigured});
    return;
  }
  request.deadline = kRequestTime;
  request.bodyLimit = kPageLimit;
  request.isCancelled = query.isCancelled;
  const auto response = http.Send(request);
  if (!response) {
    answer.isCancelled = response.error().problem == platform::HttpProblem::Cancelled;
    answer.problems.push_back({&row, DictionaryProblemKind::NoAnswer, response.error().problem});
    return;
  }
  const bool isText = content::IsValidUtf8(response->body);
  if (isText) answer.phonetic = PhoneticAsText(PhoneticFromPage(row, response->body));
  if (answer.phonetic.empty()) {
    const auto kind = isText ? DictionaryProblemKind::NotFound : DictionaryProblemKind::NotText;
    answer.problems.push_back({&row, kind, platform::HttpProblem::Failed, response->status});
    return;
  }
  answer.source = PhoneticSource::Dictionary;
  answer.dictionary = &row;
}

}  // namespace

std::string_view DictionaryProblemKey(const DictionaryProblem& problem) {
  switch (problem.kind) {
    case DictionaryProblemKind::NotConfigured:
      return "errDictionaryNotSet";
    case DictionaryProblemKind::NoAnswer:
      return platform::HttpProblemKey(problem.http);
    case DictionaryProblemKind::NotText:
      return "errDictionaryNotText";
    case DictionaryProblemKind::NotFound:
      return "errDictionaryNotFound";
  }
  return "";
}

PhoneticAnswer LookUp(const PhoneticQuery& query, const DictionaryHosts& hosts, platform::Http& http) {
  PhoneticAnswer answer;
  if (query.word.empty()) return answer;
  for (const DictionarySet set : {query.first, Other(query.first)}) {
    const DictionaryRow* row = FindDictionary(query.language, set);
    if (row != nullptr) Ask(*row, query, hosts, http, answer);
    if (answer.source != PhoneticSource::None || answer.isCancelled) break;
  }
  return answer;
}

PhoneticAnswer FindPhonetic(const PhoneticQuery& query, const DictionaryHosts& hosts,
                            const PhoneticLastResorts& resorts, platform::Http& http,
                            platform::ProcessRunner& runner) {
  PhoneticAnswer answer = LookUp(query, hosts, http);
  if (answer.source != PhoneticSource::None || answer.isCancelled) return answer;
  if (resorts.usesSynthesizer) {
    answer.phonetic = SynthesizedPhonetic(query.language, query.word, runner, query.isCancelled);
    answer.source = PhoneticSource::SpeechSynthesizer;
  }
  if (answer.phonetic.empty() && resorts.usesTransliteration) {
    answer.phonetic = TransliteratedPhonetic(query.language, query.word);
    answer.source = PhoneticSource::Transliteration;
  }
  if (answer.phonetic.empty()) answer.source = PhoneticSource::None;
  answer.isCancelled = answer.phonetic.empty() && query.isCancelled && query.isCancelled();
  return answer;
}

}  // namespace quill::tools
