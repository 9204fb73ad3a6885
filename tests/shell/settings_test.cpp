#include "shell/settings.h"

#include <gtest/gtest.h>

#include <ctime>

namespace quill::shell {
namespace {

// Folder names and daily jobs hang on these eight digits: what other date readers guess at is no date.
TEST(StoredDate, OnlyEightDigitsOfARealDayAreADate) {
  for (const char* text : {"20240131", "20240229", "00010101", "99991231"})
    EXPECT_EQ(StoredDateText(ParseStoredDate(text)), text);
  for (const char* text : {"", "2024-01-31", "20240230", "20230229", "20241301", "20240100", "00000101",
                           "2024131", "202401311", "20240131x", "+2024013", " 2024013", "notes"})
    EXPECT_FALSE(ParseStoredDate(text)) << text;
}

// "Yesterday" is the user's, not Greenwich's: shortly after midnight in Auckland it is two days back there.
TEST(DefaultSettings, DatesAreYesterdayWhereTheUserIs) {
  const char* before = std::getenv("TZ");
  const std::string restore = before == nullptr ? "" : before;
  ::setenv("TZ", "XYZ-13", 1);
  ::tzset();
  const auto moment = std::chrono::sys_days(std::chrono::year(2024) / 3 / 1) + std::chrono::hours(12);
  const Settings settings = DefaultSettings(moment);
  before == nullptr ? ::unsetenv("TZ") : ::setenv("TZ", restore.c_str(), 1);
  ::tzset();
  EXPECT_EQ(StoredDateText(settings.OneAppBackup_Last), "20240301");
  EXPECT_EQ(StoredDateText(settings.OneAppUpdate_Last), "20240301");
}

struct Typed {
  const char* key;
  const char* text;
  const char* outcome;  ///< the setting's text afterwards, or the failure
};

// What a user types is taken as meant or refused with what would be right; a refusal changes nothing.
TEST(SetSettingText, TakesOrExplains) {
  const Typed cases[] = {
      {"Syntax_Bold", "YES", "true"},
      {"MonitorPageTotal", "0", "false"},
      {"Syntax_Bold", "maybe", "expected true or false"},
      {"TableStyle_SelectIndex", "-1", "-1"},
      {"TableStyle_SelectIndex", "12x", "expected a whole number"},
      {"TableStyle_SelectIndex", "", "expected a whole number"},
      {"TableStyle_SelectIndex", "9223372036854775808", "expected a whole number"},
      {"Perform_Timeout", "60000000", "60000000"},
      {"Perform_Timeout", "60000001", "expected a whole number from 0 to 60000000"},
      {"Perform_Timeout", "-1", "expected a whole number from 0 to 60000000"},
      {"AlertOnDelPageNum", "-1", "expected a whole number from 0 to 1000000"},
      {"Syntax_Shaping", "#00ffAA", "#00ffAA"},
      {"Syntax_Shaping", "00ffAA#", "expected a colour as #RRGGBB"},
      {"Syntax_Shaping", "#00ffAAA", "expected a colour as #RRGGBB"},
      {"DateFormat", "d. MMMM \xC3\xA4", "d. MMMM \xC3\xA4"},
      {"DateFormat", "yyyy\nMM", "expected a text without control characters"},
      {"OneAppBackup_Last", "20240131", "20240131"},
      {"OneAppBackup_Last", "", ""},
      {"OneAppBackup_Last", "2024-01-31", "expected a day as yyyyMMdd, or nothing"},
  };
  for (const Typed& typed : cases) {
    SCOPED_TRACE(std::string(typed.key) + " " + typed.text);
    const SettingRow* row = FindSetting(typed.key);
    ASSERT_NE(row, nullptr);
    Settings settings = DefaultSettings({});
    const std::string before = SettingText(settings, *row);
    const Status<> status = SetSettingText(settings, *row, typed.text);
    EXPECT_EQ(status.ok() ? SettingText(settings, *row) : status.error(), typed.outcome);
    if (!status.ok()) {
      EXPECT_EQ(SettingText(settings, *row), before);
    }
  }
}

// A token that is listed by a diagnosis or a log lets its reader into the user's notebooks.
TEST(SettingTable, MarksEveryTokenAsSecret) {
  for (const SettingRow& row : SettingTable())
    EXPECT_EQ(row.secret, row.key.find("Token") != std::string_view::npos) << row.key;
}

}  // namespace
}  // namespace quill::shell
