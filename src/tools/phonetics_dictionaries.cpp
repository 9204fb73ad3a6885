#include "tools/phonetics_dictionaries.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "content/entities.h"
#include "content/find_text.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/unicode_text.h"

namespace quill::tools {
namespace {

using enum DictionarySet;
using Hosts = DictionaryHosts;

constexpr std::string_view kLanguages[] = {"Chinese", "English", "French", "German", "Japanese"};

constexpr std::string_view kPhoneticDiv = "<div class=\"phonetic\"";
constexpr std::string_view kPhonitic = "<span class=\"Phonitic\">";

constexpr DictionaryRow kDictionaries[] = {
    {"Chinese", Primary, &Hosts::chineseEnglish, "/%@", kPhoneticDiv, "</div", "[", "]"},
    {"English", Primary, &Hosts::chineseEnglish, "/%@", kPhoneticDiv, "</div", "[", "]"},
    {"French", Primary, &Hosts::frenchForChinese, "/fr/%@", "<div class=\"pronounces\"", "</div>", "[", "]"},
    {"Chinese", Secondary, &Hosts::chineseCharacters, "/hans/%@", "<span class=\"dicpy\">", "</span>", "",
     ""},
    {"English", Secondary, &Hosts::english, "/dicts/en/%@", kPhonitic, "</span>", "/", "/", WordCase::Lower},
    {"French", Secondary, &Hosts::french, "/dicts/fr/%@", "<SPAN class=Phonitic>", "</SPAN>", "[", "]"},
    {"German", Secondary, &Hosts::german, "/dicts/de/%@", kPhonitic, "</span>", "[", "]"},
    {"Japanese", Secondary, &Hosts::japanese, "/search/%@", "<span class=\"kanji-2-up kanji\">",
     "<span class=\"text\">", "", ""},
};

struct HostVariable {
  const char* name;
  std::string DictionaryHosts::*host;
};

constexpr HostVariable kHostVariables[] = {
    {"QUILL_DICTIONARY_CHINESE_ENGLISH_URL", &Hosts::chineseEnglish},
    {"QUILL_DICTIONARY_FRENCH_FOR_CHINESE_URL", &Hosts::frenchForChinese},
    {"QUILL_DICTIONARY_CHINESE_CHARACTERS_URL", &Hosts::chineseCharacters},
    {"QUILL_DICTIONARY_ENGLISH_URL", &Hosts::english},
    {"QUILL_DICTIONARY_FRENCH_URL", &Hosts::french},
    {"QUILL_DICTIONARY_GERMAN_URL", &Hosts::german},
    {"QUILL_DICTIONARY_JAPANESE_URL", &Hosts::japanese},
};

/// The word as one piece of a path: the general escaping leaves "/" and "?", which would end the piece.
std::string EscapeWord(std::string_view word) {
  std::string escaped = content::PercentEscape(word);
  escaped = content::ReplaceAll(escaped, "/", "%2F");
  return content::ReplaceAll(escaped, "?", "%3F");
}

}  // namespace

DictionaryHosts DictionaryHostsOfEnvironment() {
  DictionaryHosts hosts;
  for (const HostVariable& variable : kHostVariables) {
    const char* value = std::getenv(variable.name);
    if (value == nullptr) continue;
    std::string& host = hosts.*variable.host;
    host = value;
    while (host.ends_with('/')) host.pop_back();
  }
  return hosts;
}

std::span<const std::string_view> PhoneticLanguages() {
  return kLanguages;
}

std::span<const DictionaryRow> Dictionaries() {
  return kDictionaries;
}

const DictionaryRow* FindDictionary(std::string_view language, DictionarySet set) {
  const auto* found = std::ranges::find_if(kDictionaries, [language, set](const DictionaryRow& row) {
    return row.language == language && row.set == set;
  });
  return found == std::end(kDictionaries) ? nullptr : found;
}

DictionarySet FirstDictionarySet(std::string_view preferredLanguage) {
  std::string name(preferredLanguage.substr(0, preferredLanguage.find_first_of(".@")));
  std::ranges::replace(name, '_', '-');
  return name == "zh-CN" || name == "zh-Hans-CN" ? Primary : Secondary;
}

std::string DictionaryHostName(const DictionaryRow& row, const DictionaryHosts& hosts) {
  std::string_view name = hosts.*row.host;
  if (const std::size_t scheme = name.find("://"); scheme != std::string_view::npos)
    name.remove_prefix(scheme + 3);
  name = name.substr(0, name.find_first_of("/?#"));
  if (const std::size_t user = name.rfind('@'); user != std::string_view::npos) name.remove_prefix(user + 1);
  return std::string(name);
}

std::string DictionaryAddress(const DictionaryRow& row, const DictionaryHosts& hosts, std::string_view word) {
  const std::string& host = hosts.*row.host;
  if (host.empty()) return {};
  const std::string escaped =
      row.wordCase == WordCase::Lower ? EscapeWord(content::ToLower(word)) : EscapeWord(word);
  return host + content::ReplaceAll(row.path, "%@", escaped);
}

std::string_view PhoneticFromPage(const DictionaryRow& row, std::string_view page) {
  std::string_view piece = content::TextBetween(page, row.startMarker, row.endMarker);
  if (!row.cutOpen.empty()) piece = content::TextBetween(piece, row.cutOpen, row.cutClose);
  return content::TrimBlanks(piece);
}

std::string PhoneticAsText(std::string_view piece) {
  const std::string plain = content::DecodeHtmlEntities(content::StripTags(piece));
  std::string text;
  bool isAfterWhite = false;
  for (std::size_t at = 0; at < plain.size();) {
    const content::DecodedChar c = content::DecodeUtf8(plain, at);
    const std::size_t length = std::max<std::size_t>(c.length, 1);
    // No transcription has these, and what comes from a page must not become markup on another.
    if (c.code == '<' || c.code == '>') {
      at += length;
      continue;
    }
    const bool isWhite = c.length != 0 && (content::IsBlank(c.code) || content::IsNewline(c.code));
    if (!isWhite) {
      if (isAfterWhite && !text.empty()) text += ' ';
      text.append(plain, at, length);
    }
    isAfterWhite = isWhite;
    at += length;
  }
  return text;
}

}  // namespace quill::tools
