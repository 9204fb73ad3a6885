#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/result.h"
#include "base/stored_date.h"
#include "online/account.h"

namespace quill::shell {

/// All user settings, loaded once at start and owned by the command thread. Defaults are what a first
/// start without a settings file sees; the two dates default to yesterday and the version to this
/// build's (`DefaultSettings`).
struct Settings : online::Account {
  bool CalendarStartWithMonday = false;
  std::string DateFormat = "yyyy-MM-dd";
  std::string TimeFormat = "HH:mm:ss";
  std::string JournalDayFormat = "[dd]";
  std::string Syntax_Lang = "Object C";
  std::string Syntax_Theme = "XCode";
  std::string Syntax_Font = "Courier New";
  std::string Syntax_FontSize = "11";
  bool Syntax_LineNumbers = false;
  bool Syntax_FrameUp = true;
  std::string Syntax_Shaping = "#FFFFFF";
  bool Syntax_Bold = false;
  std::string HighlighterPath;  ///< empty: the one that is found
  std::int64_t TableStyle_SelectIndex = 1;
  std::int64_t Table2Text_Index = 0;       ///< a `tools::TableTextMode`
  std::string Table2Text_Seperator = "-";  ///< spelt as the files have it
  std::int64_t Text2Table_Index = 0;       ///< a `tools::TextTableMode`
  std::string Text2Table_Seperator = "-";
  std::int64_t ImageTableHorizontalArrange = 0;  ///< 0 or 1
  std::int64_t ImageTableShowFileName = 1;       ///< 0 or 1
  std::string Phonetics_Language = "English";
  bool Phonetics_Synthesizer = true;
  bool Phonetics_Transliteration = true;
  std::string MathJaxAddress;  ///< "https://host"; empty: the installed files
  std::string RecentFormulas;  ///< as `tools::RecentFormulas` writes it
  bool MonitorPageTotal = true;
  std::int64_t AlertOnDelPageNum = 5;
  bool OneAppBackup_Enable = true;
  std::int64_t Perform_Timeout = 500000;        ///< microseconds
  std::string TargetWindowPattern = "OneNote";  ///< X11: found in the title or class of the target window
  std::string Language;                         ///< "de", "zh-Hans", …; empty: the system's
  std::string HotKeys;        ///< "ACTION=COMBINATION" joined by ";"; only what differs from the table
  std::string RecentActions;  ///< action names joined by ",", newest first
  StoredDate OneAppBackup_Last;
  StoredDate OneAppUpdate_Last;
  std::string CheckedUpdateVersion_Last;

  bool operator==(const Settings&) const = delete;  ///< the account's would compare the account alone
};

/// Who writes a setting to the file.
enum class SettingWriter {
  SaveSettings,  ///< every `SaveSettings`
  Owner,         ///< only the part that owns it
};

using SettingField =
    std::variant<bool Settings::*, std::int64_t Settings::*, std::string Settings::*, StoredDate Settings::*>;

/// One row of the settings table.
struct SettingRow {
  std::string_view key;
  SettingField field;
  SettingWriter writer;
  bool secret;               ///< tokens: never printed, logged or listed
  std::string_view meaning;  ///< one line for `quill settings list` and the reference
  /// Which texts of the type are sensible, from the user and in the file; null when all are.
  bool (*accepts)(std::string_view text) = nullptr;
  std::string_view expected = {};  ///< what `accepts` takes, in words
};

/// The one list of settings, in the order in which the file is written.
std::span<const SettingRow> SettingTable();

/// The row of a key, or null.
const SettingRow* FindSetting(std::string_view key);

/// A first start's settings: yesterday's date by the given moment (local time zone), this build's version.
Settings DefaultSettings(std::chrono::system_clock::time_point now);

/// A setting as text: true/false, digits, the string, or yyyyMMdd ("" for no date).
std::string SettingText(const Settings& settings, const SettingRow& row);

/// Sets a setting from typed text: true/false, yes/no or 1/0, whole digits, yyyyMMdd or nothing. The
/// failure says what was expected, not for which setting; the setting is then as it was.
Status<> SetSettingText(Settings& settings, const SettingRow& row, std::string_view text);

}  // namespace quill::shell
