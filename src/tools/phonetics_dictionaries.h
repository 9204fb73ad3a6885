#pragma once
#include <span>
#include <string>
#include <string_view>

namespace quill::tools {

/// Scheme and host of each dictionary service ("https://dictionary.example"), without a slash at the end.
/// Empty: not configured, so nothing is asked there. None is set by default: a word goes to a service only
/// after somebody chose that service.
struct DictionaryHosts {
  std::string chineseEnglish;     ///< Chinese and English of the primary set
  std::string frenchForChinese;   ///< French of the primary set
  std::string chineseCharacters;  ///< the secondary set, one service for each language
  std::string english;
  std::string french;
  std::string german;
  std::string japanese;
};

/// The hosts that the environment names: QUILL_DICTIONARY_CHINESE_ENGLISH_URL, …_FRENCH_FOR_CHINESE_URL,
/// …_CHINESE_CHARACTERS_URL, …_ENGLISH_URL, …_FRENCH_URL, …_GERMAN_URL, …_JAPANESE_URL.
DictionaryHosts DictionaryHostsOfEnvironment();

enum class DictionarySet { Primary, Secondary };

/// Whether the word is asked for as it stands or in lower case.
enum class WordCase { AsItIs, Lower };

/// A dictionary and where its pages hold the transcription.
struct DictionaryRow {
  std::string_view language;
  DictionarySet set;
  std::string DictionaryHosts::*host;
  std::string_view path;         ///< "%@" stands for the escaped word
  std::string_view startMarker;  ///< the transcription is behind the first of these
  std::string_view endMarker;    ///< and before the next of these
  std::string_view cutOpen;      ///< within that, between the first of these characters; empty: all of it
  std::string_view cutClose;     ///< and the next of these
  WordCase wordCase = WordCase::AsItIs;
};

/// The languages of the language box, in its order.
std::span<const std::string_view> PhoneticLanguages();

/// All dictionaries of both sets.
std::span<const DictionaryRow> Dictionaries();

/// The dictionary of a language in a set, or null: the primary set knows neither German nor Japanese.
const DictionaryRow* FindDictionary(std::string_view language, DictionarySet set);

/// The set to be asked first by a user whose first preferred language is this: the primary set for "zh-CN"
/// and its other spellings ("zh-Hans-CN", "zh_CN.UTF-8"), else the secondary one.
DictionarySet FirstDictionarySet(std::string_view preferredLanguage);

/// What a reader knows the row's service by: the host and port of its address, without a name and password.
/// Empty when it is not configured.
std::string DictionaryHostName(const DictionaryRow& row, const DictionaryHosts& hosts);

/// The address of a word's page; empty when the row's service is not configured.
std::string DictionaryAddress(const DictionaryRow& row, const DictionaryHosts& hosts, std::string_view word);

/// What stands between the markers of a page, cut the second time and without blanks at both ends; empty when
/// a marker is missing. O(page).
std::string_view PhoneticFromPage(const DictionaryRow& row, std::string_view page);

/// A scraped piece as text: tags removed, references decoded, white space as single blanks, no angle
/// brackets. O(piece).
std::string PhoneticAsText(std::string_view piece);

}  // namespace quill::tools
