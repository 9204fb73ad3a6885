#include "shell/settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "base/version.h"
#include "shell/hot_key_settings.h"
#include "shell/language.h"

namespace quill::shell {
namespace {

constexpr std::int64_t kLongestTimeout = 60'000'000;
constexpr std::int64_t kMostPages = 1'000'000;

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (problem != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool IsTimeout(std::string_view text) {
  const auto number = WholeNumber(text);
  return number && *number >= 0 && *number <= kLongestTimeout;
}

bool IsPageCount(std::string_view text) {
  const auto number = WholeNumber(text);
  return number && *number >= 0 && *number <= kMostPages;
}

bool IsColour(std::string_view text) {
  return text.size() == 7 && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

/// Nothing, or an address of a host without a path.
bool IsSecureHost(std::string_view text) {
  constexpr std::string_view kScheme = "https://";
  if (text.empty()) return true;
  return text.starts_with(kScheme) && text.size() > kScheme.size() &&
         text.substr(kScheme.size())
                 .find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-:") ==
             std::string_view::npos;
}

using enum SettingWriter;
using S = Settings;

constexpr SettingRow kTable[] = {
    {"CalendarStartWithMonday", &S::CalendarStartWithMonday, SaveSettings, false,
     "Calendars begin the week with Monday"},
    {"DateFormat", &S::DateFormat, SaveSettings, false, "Pattern of inserted dates"},
    {"TimeFormat", &S::TimeFormat, SaveSettings, false, "Pattern of inserted times"},
    {"JournalDayFormat", &S::JournalDayFormat, SaveSettings, false,
     "Title of a new page, with a date pattern in brackets"},
    {"Syntax_Lang", &S::Syntax_Lang, SaveSettings, false, "Highlighting: language"},
    {"Syntax_Theme", &S::Syntax_Theme, SaveSettings, false, "Highlighting: colour theme"},
    {"Syntax_Font", &S::Syntax_Font, SaveSettings, false, "Highlighting: font"},
    {"Syntax_FontSize", &S::Syntax_FontSize, SaveSettings, false, "Highlighting: font size in points"},
    {"Syntax_LineNumbers", &S::Syntax_LineNumbers, SaveSettings, false, "Highlighting: number the lines"},
    {"Syntax_FrameUp", &S::Syntax_FrameUp, SaveSettings, false, "Highlighting: put a frame around the code"},
    {"Syntax_Shaping", &S::Syntax_Shaping, SaveSettings, false, "Highlighting: background of the frame",
     IsColour, "a colour as #RRGGBB"},
    {"Syntax_Bold", &S::Syntax_Bold, SaveSettings, false, "Highlighting: bold"},
    {"HighlighterPath", &S::HighlighterPath, SaveSettings, false,
     "Highlighting: the program, when there is none at its fixed path; empty for the one on PATH"},
    {"TableStyle_SelectIndex", &S::TableStyle_SelectIndex, SaveSettings, false, "Last chosen table style"},
    {"Phonetics_Language", &S::Phonetics_Language, SaveSettings, false, "Language of the phonetic symbols"},
    {"Phonetics_Synthesizer", &S::Phonetics_Synthesizer, SaveSettings, false,
     "Phonetic symbols from the speech synthesizer when no dictionary has them"},
    {"Phonetics_Transliteration", &S::Phonetics_Transliteration, SaveSettings, false,
     "Phonetic symbols by transliteration when no dictionary has them"},
    {"MathJaxAddress", &S::MathJaxAddress, SaveSettings, false,
     "Where equations load MathJax from; empty for the installed files", IsSecureHost,
     "nothing or https:// and a host"},
    {"OnlineOneNoteAccessToken", &S::OnlineOneNoteAccessToken, SaveSettings, true, "Sign-in: access token"},
    {"OnlineOneNoteRefreshToken", &S::OnlineOneNoteRefreshToken, SaveSettings, true,
     "Sign-in: refresh token"},
    {"ClientUrlAccountId", &S::ClientUrlAccountId, SaveSettings, false, "Account in links to OneNote"},
    {"OnlineOneNoteUserId", &S::OnlineOneNoteUserId, SaveSettings, false, "Sign-in: user identifier"},
    {"OnlineOneNoteUserPrincipalName", &S::OnlineOneNoteUserPrincipalName, SaveSettings, false,
     "Sign-in: user name"},
    {"MonitorPageTotal", &S::MonitorPageTotal, SaveSettings, false, "Watch the number of pages"},
    {"AlertOnDelPageNum", &S::AlertOnDelPageNum, SaveSettings, false,
     "Warn when so many pages have disappeared", IsPageCount, "a whole number from 0 to 1000000"},
    {"OneAppBackup_Enable", &S::OneAppBackup_Enable, SaveSettings, false, "Back up the notebooks daily"},
    {"Perform_Timeout", &S::Perform_Timeout, SaveSettings, false,
     "Longest wait for the clipboard, in microseconds", IsTimeout, "a whole number from 0 to 60000000"},
    {"TargetWindowPattern", &S::TargetWindowPattern, SaveSettings, false,
     "Found in the title or class of the window to work in (X11)"},
    {"Language", &S::Language, SaveSettings, false, "Language of the program; empty for the system's",
     IsLanguageSetting, "nothing or one of en, de, es, fr, ja, zh-Hans"},
    {"HotKeys", &S::HotKeys, SaveSettings, false, "Hot keys that differ from the built-in ones",
     AcceptsHotKeysSetting,
     "ACTION=COMBINATION joined by \";\", as in MenuItemUpperCaseClick=Control+Option+U"},
    {"RecentActions", &S::RecentActions, Owner, false, "Actions used last, newest first"},
    {"RecentFormulas", &S::RecentFormulas, Owner, false, "Equations: formulas inserted last"},
    {"Table2Text_Index", &S::Table2Text_Index, Owner, false,
     "Table to text: 0 two paragraphs a cell, 1 one paragraph, 2 tabs, 3 commas, 4 another separator"},
    {"Table2Text_Seperator", &S::Table2Text_Seperator, Owner, false, "Table to text: the other separator"},
    {"Text2Table_Index", &S::Text2Table_Index, Owner, false,
     "Text to table: 0 a paragraph a cell, 1 tabs, 2 commas, 3 another separator"},
    {"Text2Table_Seperator", &S::Text2Table_Seperator, Owner, false, "Text to table: the other separator"},
    {"ImageTableHorizontalArrange", &S::ImageTableHorizontalArrange, Owner, false,
     "Image table: 1 for all pictures in one row, 0 for a row each"},
    {"ImageTableShowFileName", &S::ImageTableShowFileName, Owner, false,
     "Image table: 1 for the names of the files, 0 for none"},
    {"OneAppBackup_Last", &S::OneAppBackup_Last, Owner, false, "Day of the last backup"},
    {"OneAppUpdate_Last", &S::OneAppUpdate_Last, Owner, false, "Day of the last look for updates"},
    {"CheckedUpdateVersion_Last", &S::CheckedUpdateVersion_Last, Owner, false,
     "Newest version that the user was told about"},
};

std::string TextOf(bool value) {
  return value ? "true" : "false";
}
std::string TextOf(std::int64_t value) {
  return std::to_string(value);
}
std::string TextOf(const std::string& value) {
  return value;
}
std::string TextOf(const StoredDate& value) {
  return StoredDateText(value);
}

// Each of these yields what was expected, or an empty text when the value was taken.
std::string_view Take(bool& value, std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
  const bool yes = lower == "true" || lower == "yes" || lower == "1";
  const bool no = lower == "false" || lower == "no" || lower == "0";
  if (!yes && !no) return "true or false";
  value = yes;
  return {};
}

std::string_view Take(std::int64_t& value, std::string_view text) {
  const auto number = WholeNumber(text);
  if (!number) return "a whole number";
  value = *number;
  return {};
}

std::string_view Take(std::string& value, std::string_view text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  if (std::any_of(text.begin(), text.end(), isControl)) return "a text without control characters";
  value = text;
  return {};
}

std::string_view Take(StoredDate& value, std::string_view text) {
  const StoredDate date = ParseStoredDate(text);
  if (!date && !text.empty()) return "a day as yyyyMMdd, or nothing";
  value = date;
  return {};
}

}  // namespace

std::span<const SettingRow> SettingTable() {
  return kTable;
}

const SettingRow* FindSetting(std::string_view key) {
  const auto* row = std::find_if(std::begin(kTable), std::end(kTable),
                                 [key](const SettingRow& candidate) { return candidate.key == key; });
  return row == std::end(kTable) ? nullptr : row;
}

Settings DefaultSettings(std::chrono::system_clock::time_point now) {
  Settings settings;
  const StoredDate yesterday = LocalDay(now - std::chrono::seconds(86'400));
  settings.OneAppBackup_Last = yesterday;
  settings.OneAppUpdate_Last = yesterday;
  settings.CheckedUpdateVersion_Last = kVersion;
  return settings;
}

std::string SettingText(const Settings& settings, const SettingRow& row) {
  return std::visit([&](auto field) { return TextOf(settings.*field); }, row.field);
}

Status<> SetSettingText(Settings& settings, const SettingRow& row, std::string_view text) {
  if (row.accepts != nullptr && !row.accepts(text)) return Failure{fmt::format("expected {}", row.expected)};
  const std::string_view expected =
      std::visit([&](auto field) { return Take(settings.*field, text); }, row.field);
  if (!expected.empty()) return Failure{fmt::format("expected {}", expected)};
  return Done();
}

}  // namespace quill::shell
