#include "shell/globals.h"

#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "base/version.h"
#include "files/config.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

const platform::FixedClock kClock(std::chrono::sys_days(std::chrono::year(2024) / 3 / 1) +
                                  std::chrono::hours(12));
const fs::path kSettings = "local/Library/Application Support/Quillworks/Quill Menu/quillapp.plist";

// Starting, or only looking, writes no settings; the first save writes each key but those of other owners.
TEST(Globals, WriteNothingBeforeTheFirstSave) {
  const TemporaryFolder root;
  EXPECT_EQ(OpenGlobals(root.path(), kClock).settingsProblem, "");
  EXPECT_TRUE(fs::is_empty(root.path()));
  const Globals globals = InitGlobals(root.path(), kClock);
  EXPECT_FALSE(fs::exists(root.path() / kSettings));
  EXPECT_EQ(globals.settings.CheckedUpdateVersion_Last, kVersion);
  ASSERT_TRUE(SaveSettings(globals).ok());
  std::string keys;
  for (const std::string& key : files::MConfig(root.path() / kSettings).Keys()) keys += key + " ";
  EXPECT_EQ(keys,
            "CalendarStartWithMonday DateFormat TimeFormat JournalDayFormat Syntax_Lang Syntax_Theme "
            "Syntax_Font Syntax_FontSize Syntax_LineNumbers Syntax_FrameUp Syntax_Shaping Syntax_Bold "
            "HighlighterPath "
            "TableStyle_SelectIndex Phonetics_Language Phonetics_Synthesizer Phonetics_Transliteration "
            "MathJaxAddress OnlineOneNoteAccessToken OnlineOneNoteRefreshToken "
            "ClientUrlAccountId OnlineOneNoteUserId OnlineOneNoteUserPrincipalName MonitorPageTotal "
            "AlertOnDelPageNum OneAppBackup_Enable Perform_Timeout TargetWindowPattern Language HotKeys ");
}

// A key tied to the wrong variable would silently mix up two settings of everybody's existing file.
TEST(LoadSettings, PutsEachKeyOfAnExistingFileInItsVariable) {
  const TemporaryFolder root;
  std::string list = "<plist version=\"1.0\"><dict>";
  for (const SettingRow& row : SettingTable()) {
    list.append("<key>").append(row.key).append("</key><string>").append(row.key).append("</string>");
  }
  for (const char* truth : {"CalendarStartWithMonday", "Syntax_LineNumbers", "Syntax_Bold"})
    list.append("<key>").append(truth).append("</key><true/>");
  list +=
      "<key>Perform_Timeout</key><integer>1</integer><key>AlertOnDelPageNum</key><integer>2</integer>"
      "<key>TableStyle_SelectIndex</key><integer>3</integer><key>OneAppBackup_Last</key>"
      "<string>20240131</string><key>Syntax_FontSize</key><integer>12</integer></dict></plist>";
  root.Write(kSettings, list);
  const Globals globals = InitGlobals(root.path(), kClock);
  const Settings& s = globals.settings;
  EXPECT_EQ(s.DateFormat + s.TimeFormat + s.JournalDayFormat, "DateFormatTimeFormatJournalDayFormat");
  EXPECT_EQ(s.Syntax_Lang + s.Syntax_Theme + s.Syntax_Font, "Syntax_LangSyntax_ThemeSyntax_Font");
  EXPECT_EQ(s.Syntax_FontSize, "11") << "a number is not a text";
  EXPECT_EQ(s.Syntax_Shaping, "#FFFFFF") << "not a colour";
  EXPECT_EQ(s.OnlineOneNoteAccessToken + s.OnlineOneNoteRefreshToken,
            "OnlineOneNoteAccessTokenOnlineOneNoteRefreshToken");
  EXPECT_EQ(s.OnlineOneNoteUserId + s.OnlineOneNoteUserPrincipalName,
            "OnlineOneNoteUserIdOnlineOneNoteUserPrincipalName");
  EXPECT_EQ(s.ClientUrlAccountId + s.Phonetics_Language, "ClientUrlAccountIdPhonetics_Language");
  EXPECT_TRUE(s.CalendarStartWithMonday && s.Syntax_LineNumbers && s.Syntax_Bold);
  EXPECT_FALSE(s.Syntax_FrameUp || s.MonitorPageTotal || s.OneAppBackup_Enable) << "a text that is no yes";
  EXPECT_EQ(s.Perform_Timeout, 1);
  EXPECT_EQ(s.AlertOnDelPageNum, 2);
  EXPECT_EQ(s.TableStyle_SelectIndex, 3);
  EXPECT_EQ(StoredDateText(s.OneAppBackup_Last), "20240131");
  EXPECT_EQ(s.OneAppUpdate_Last, std::nullopt);
}

// The backup writes its date, dialogs write their keys: a save of the settings must not take them back.
TEST(SaveSettings, LeavesWhatOthersWroteMeanwhile) {
  const TemporaryFolder root;
  Globals globals = InitGlobals(root.path(), kClock);
  {
    files::MConfig other(root.path() / kSettings);
    other.WriteString("OneAppBackup_Last", "20240229");
    other.WriteString("CheckedUpdateVersion_Last", "9.9");
    other.WriteString("Text2Table_Seperator", ";");
    ASSERT_TRUE(other.Save().ok());
  }
  globals.settings.DateFormat = "dd.MM.yyyy";
  ASSERT_TRUE(SaveSettings(globals).ok());
  const files::MConfig saved(root.path() / kSettings);
  EXPECT_EQ(saved.ReadString("OneAppBackup_Last", ""), "20240229");
  EXPECT_EQ(saved.ReadString("OneAppUpdate_Last", "absent"), "absent");
  EXPECT_EQ(saved.ReadString("CheckedUpdateVersion_Last", ""), "9.9");
  EXPECT_EQ(saved.ReadString("Text2Table_Seperator", ""), ";");
  EXPECT_EQ(saved.ReadString("DateFormat", ""), "dd.MM.yyyy");
}

// A start with a broken file works with the defaults and has something to tell; the file stays for now.
TEST(Globals, StartWithDefaultsWhenTheFileIsDamaged) {
  const TemporaryFolder root;
  const fs::path file = root.Write(kSettings,
                                   "\x7F"
                                   "ELF");
  Globals globals = InitGlobals(root.path(), kClock);
  EXPECT_NE(globals.settingsProblem.find(file.string()), std::string::npos);
  EXPECT_EQ(globals.settings.Perform_Timeout, 500000);
  EXPECT_TRUE(fs::exists(file));
  ASSERT_TRUE(SaveSettings(globals).ok());
  EXPECT_TRUE(fs::exists(files::MConfig::DamagedCopy(file)));
  LoadSettings(globals);
  EXPECT_EQ(globals.settingsProblem, "");
}

}  // namespace
}  // namespace quill::shell
