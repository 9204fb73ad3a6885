#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTemporaryDir>

#include "options_world.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Everything on the first page can be reached and changed without a mouse, and asks for exactly that.
TEST_F(OptionsTest, ChangesGeneralSettingsByKeyboard) {
  ASSERT_NE(Open(), nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  ASSERT_TRUE(TabTo("Same as the system"));
  Press(Qt::Key_D);
  EXPECT_THAT(Asked(), ElementsAre("Language=de"));
  ASSERT_TRUE(TabTo("Back up the notebooks every day"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("OneAppBackup_Enable=false"));
  ASSERT_TRUE(TabTo("Backups…"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("MenuItemBackupsClick"));
  ASSERT_TRUE(TabTo("Wait for the clipboard"));
  Type("750");
  Press(Qt::Key_Return);
  EXPECT_THAT(Asked(), ElementsAre("Perform_Timeout=750000"));
  ASSERT_TRUE(TabTo("OneNote’s window"));
  Type("Edge");
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), ElementsAre("TargetWindowPattern=Edge"));
  ASSERT_TRUE(TabTo("Write the page log"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("log on"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  EXPECT_THAT(Asked(), IsEmpty());
}

// The same for the second page; the limit can only be set while somebody counts.
TEST_F(OptionsTest, ChangesPageSettingsByKeyboard) {
  ASSERT_NE(Open(Page::Pages), nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  ASSERT_TRUE(TabTo("Warn when so many pages are gone"));
  Press(Qt::Key_Up);
  Press(Qt::Key_Up);
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), ElementsAre("AlertOnDelPageNum=7"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("CalendarStartWithMonday=true"));
  ASSERT_TRUE(TabTo("Watch the number of pages"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("MonitorPageTotal=false"));
  EXPECT_FALSE(TabTo("Warn when so many pages are gone")) << "grey while nobody counts";
  ASSERT_TRUE(TabTo("Title of a journal page"));
  Type("x");
  Press(Qt::Key_Return);
  EXPECT_THAT(Asked(), ElementsAre("JournalDayFormat=x"));
}

// The same for the page of the tools.
TEST_F(OptionsTest, ChangesToolSettingsByKeyboard) {
  ASSERT_NE(Open(Page::Tools), nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  ASSERT_TRUE(TabTo("Program “highlight”"));
  Type(" /opt/highlight ");
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), ElementsAre("HighlighterPath=/opt/highlight"));
  ASSERT_TRUE(TabTo("Phonetics by speech synthesizer"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("Phonetics_Synthesizer=false"));
  Press(Qt::Key_Tab);
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("Phonetics_Transliteration=false"));
  ASSERT_TRUE(TabTo("Load MathJax from"));
  Type("https://example.org");
  Press(Qt::Key_Return);
  EXPECT_THAT(Asked(), ElementsAre("MathJaxAddress=https://example.org"));
}

// Every row shows what is stored, not what is usual.
TEST_F(OptionsTest, ShowsTheStoredToolSettings) {
  facts.settings.HighlighterPath = "/opt/highlight";
  facts.settings.Phonetics_Synthesizer = false;
  facts.settings.MathJaxAddress = "https://example.org";
  ASSERT_NE(Open(Page::Tools), nullptr);
  const auto text = [this](const char* name) {
    return FromQt(window->findChild<QLineEdit*>(QLatin1String(name))->text());
  };
  EXPECT_EQ(text("HighlighterPathControl"), "/opt/highlight");
  EXPECT_EQ(text("MathJaxAddressControl"), "https://example.org");
  EXPECT_FALSE(window->findChild<QCheckBox*>("Phonetics_SynthesizerControl")->isChecked());
  EXPECT_TRUE(window->findChild<QCheckBox*>("Phonetics_TransliterationControl")->isChecked());
}

// The panel begins beside the program that is set; what is chosen there is saved at once.
TEST_F(OptionsTest, ChoosesTheHighlighterInAPanel) {
  const QTemporaryDir folder;
  for (const char* name : {"old", "new"}) {
    QFile file(folder.filePath(QLatin1String(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  facts.settings.HighlighterPath = FromQt(folder.filePath(QStringLiteral("old")));
  ASSERT_NE(Open(Page::Tools), nullptr);
  ASSERT_TRUE(TabTo("Choose…"));
  Press(Qt::Key_Space);
  ASSERT_NE(WaitForWindow<QFileDialog>(), nullptr);
  Press(Qt::Key_Escape);
  ASSERT_EQ(WaitForWindow<MWinOptions>(), window);
  EXPECT_THAT(Asked(), IsEmpty());
  Press(Qt::Key_Space);
  ASSERT_NE(WaitForWindow<QFileDialog>(), nullptr);
  Type("new");
  Press(Qt::Key_Return);
  EXPECT_TRUE(WaitUntil([this] { return !asked.empty(); }));
  EXPECT_THAT(Asked(), ElementsAre("HighlighterPath=" + FromQt(folder.filePath(QStringLiteral("new")))));
}

// An address that nothing can be loaded from is not saved. Nobody is told off in the middle of typing one.
TEST_F(OptionsTest, RefusesAnAddressWithoutAHost) {
  const std::string refused =
      "MathJax cannot be loaded from “https://”. Enter https:// and a host, or nothing for the installed "
      "files.";
  ASSERT_NE(Open(Page::Tools), nullptr);
  ASSERT_TRUE(TabTo("Load MathJax from"));
  Type("https://");
  ProcessEventsFor(700ms);
  EXPECT_EQ(Shown(), "https://");
  EXPECT_FALSE(IsRead(refused));
  Press(Qt::Key_Return);
  EXPECT_EQ(Shown(), "");
  EXPECT_TRUE(IsRead(refused));
  Picture(*window, "options-tools-refused");
  Type("https://example.org");
  EXPECT_FALSE(IsRead(refused)) << "another try";
  Press(Qt::Key_Return);
  EXPECT_THAT(Asked(), ElementsAre("MathJaxAddress=https://example.org"));
  Type("/path");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  EXPECT_THAT(
      Asked(),
      ElementsAre(testing::HasSubstr("told: MathJax cannot be loaded from “https://example.org/path”")));
}

// The window that finds OneNote is only asked for where OneNote is found that way.
TEST_F(OptionsTest, HidesTheWindowPatternWhereItIsNotUsed) {
  facts.hasTargetWindowPattern = false;
  ASSERT_NE(Open(), nullptr);
  EXPECT_FALSE(TabTo("OneNote’s window"));
}

// Signing in moves the keyboard off the button that would undo it.
TEST_F(OptionsTest, SignsInAndOut) {
  ASSERT_NE(Open(Page::Account), nullptr);
  EXPECT_TRUE(IsRead("Not signed in"));
  EXPECT_FALSE(TabTo("Sign Out"));
  ASSERT_TRUE(TabTo("Sign In…"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("MenuItemSignInClick"));
  facts.settings.OnlineOneNoteUserPrincipalName = "ann@example.com";
  window->Update(facts);
  EXPECT_TRUE(IsRead("Signed in as ann@example.com"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  ASSERT_TRUE(TabTo("Sign Out"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("MenuItemSignOutClick"));
}

// A wait of seven milliseconds on the way to 750 would make commands fail that run meanwhile.
TEST_F(OptionsTest, KeepsHalfTypedNumbersToItself) {
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("Wait for the clipboard"));
  Type("7");
  EXPECT_THAT(Asked(), IsEmpty());
  Type("50");
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_TRUE(WaitUntil([this] { return !asked.empty(); })) << "after a pause";
  EXPECT_THAT(Asked(), ElementsAre("Perform_Timeout=750000"));
  Press(Qt::Key_Backspace, Qt::ControlModifier);
  ProcessEventsFor(700ms);
  EXPECT_THAT(Asked(), IsEmpty()) << "an empty field is no number";
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), IsEmpty());
  Press(Qt::Key_Backtab);
  Type("61000");
  Press(Qt::Key_Return);
  EXPECT_THAT(Asked(), ElementsAre("Perform_Timeout=6100000")) << "the last digit would be too much";
}

// Who has set the time in microseconds keeps it until he enters another here.
TEST_F(OptionsTest, KeepsATimeBetweenTwoMilliseconds) {
  facts.settings.Perform_Timeout = 500'700;
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("Wait for the clipboard"));
  EXPECT_EQ(Shown(), "501\u00A0ms");
  Press(Qt::Key_Return);
  Type("9");
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), IsEmpty());
  Press(Qt::Key_Backtab);
  Press(Qt::Key_Down);
  Press(Qt::Key_Tab);
  EXPECT_THAT(Asked(), ElementsAre("Perform_Timeout=401000"));
}

// What could not be saved is not shown as if it were, and the reason stands where the change was made.
TEST_F(OptionsTest, GoesBackWhenAChangeIsRefused) {
  problem = "The disk is full.";
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("Wait for the clipboard"));
  Type("750");
  Press(Qt::Key_Return);
  EXPECT_EQ(Shown(), "500\u00A0ms");
  EXPECT_TRUE(IsRead(problem));
  Picture(*window, "options-refused");
  problem.clear();
  Type("750");
  EXPECT_FALSE(IsRead("The disk is full.")) << "another try";
  Press(Qt::Key_Return);
  EXPECT_EQ(Shown(), "750\u00A0ms");
  problem = "No.";
  auto* backups = window->findChild<QCheckBox*>("OneAppBackup_EnableControl");
  backups->click();
  EXPECT_TRUE(backups->isChecked());
  EXPECT_TRUE(IsRead("No."));
}

// A command that finishes in the background must not take the words out of the user's mouth.
TEST_F(OptionsTest, TakesNewsWithoutDisturbingTheUser) {
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("OneNote’s window"));
  Type("Ed");
  facts.settings.TargetWindowPattern = "Firefox";
  facts.settings.Perform_Timeout = 900'000;
  facts.settings.OneAppBackup_Enable = false;
  window->Update(facts);
  EXPECT_EQ(Shown(), "Ed");
  Type("ge");
  Press(Qt::Key_Backtab);
  EXPECT_THAT(Asked(), ElementsAre("TargetWindowPattern=Edge"));
  EXPECT_EQ(Shown(), "900\u00A0ms");
  EXPECT_FALSE(window->findChild<QCheckBox*>("OneAppBackup_EnableControl")->isChecked());
  EXPECT_THAT(Asked(), IsEmpty()) << "news are no changes of the user's";
}

// Facts that were gathered before a change was made do not bring the old value back.
TEST_F(OptionsTest, ShowsAChangeThatIsUnderWay) {
  answersLate = true;
  ASSERT_NE(Open(), nullptr);
  auto* backups = window->findChild<QCheckBox*>("OneAppBackup_EnableControl");
  backups->click();
  window->Update(facts);
  EXPECT_FALSE(backups->isChecked());
  ASSERT_EQ(late.size(), 1U);
  late[0]("");
  EXPECT_FALSE(backups->isChecked());
  facts.settings.OneAppBackup_Enable = true;
  window->Update(facts);
  EXPECT_TRUE(backups->isChecked()) << "somebody else has changed it since";
}

// What was typed last is not lost with the window, nor is it lost in silence.
TEST_F(OptionsTest, SavesWhatWasTypedWhenItCloses) {
  answersLate = true;
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("Wait for the clipboard"));
  Type("750");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  EXPECT_THAT(Asked(), ElementsAre("Perform_Timeout=750000"));
  ASSERT_EQ(late.size(), 1U);
  late[0]("The disk is full.");
  EXPECT_THAT(Asked(), ElementsAre("told: The disk is full."));
}

// The user sees what a pattern makes of today before a page is called so.
TEST_F(OptionsTest, PreviewsTheTitleOfAJournalPage) {
  now = std::chrono::sys_days(std::chrono::year(2024) / 3 / 9) + 12h;
  ASSERT_NE(Open(Page::Pages), nullptr);
  const auto preview = [this] { return FromQt(window->findChild<QLabel*>("preview")->text()); };
  EXPECT_EQ(preview(), "09");
  ASSERT_TRUE(TabTo("Title of a journal page"));
  Type("Log [yyyy-MM-dd]!");
  EXPECT_EQ(preview(), "Log 2024-03-09!");
  EXPECT_THAT(Asked(), IsEmpty());
  Picture(*window, "options-pages");
  now += 24h;
  window->Update(facts);
  EXPECT_EQ(preview(), "Log 2024-03-10!");
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("yyyy");
  EXPECT_EQ(preview(), "None. The pattern needs a part in brackets, such as [yyyy-MM-dd].");
}

// Pages are turned by the keys of every program with tabs, from wherever the keyboard is.
TEST_F(OptionsTest, TurnsPagesByKeys) {
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("OneNote’s window"));
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(window->CurrentPage(), Page::Pages);
  EXPECT_TRUE(TabTo("Watch the number of pages"));
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->CurrentPage(), Page::Tools);
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->CurrentPage(), Page::HotKeys);
  ASSERT_TRUE(TabTo("Key for the selected action:"));
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->CurrentPage(), Page::Account) << "also while a key is recorded";
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(window->CurrentPage(), Page::General);
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window->CurrentPage(), Page::HotKeys);
  window->ShowPage(Page::Pages);
  EXPECT_EQ(window->CurrentPage(), Page::Pages);
}

// The choice of a language is answered in that language, at the same place.
TEST_F(OptionsTest, ChangesItsLanguageInPlace) {
  ASSERT_NE(Open(), nullptr);
  ASSERT_TRUE(TabTo("Same as the system"));
  Press(Qt::Key_E);
  EXPECT_THAT(Asked(), ElementsAre("Language=en"));
  world.strings.UseLanguage("de");
  window->Retranslate();
  ASSERT_TRUE(WaitUntil([this] { return window->findChildren<QSpinBox*>().size() == 2; }));
  EXPECT_EQ(window->focusWidget()->objectName(), "LanguageControl");
  Press(Qt::Key_F);
  EXPECT_THAT(Asked(), ElementsAre("Language=fr"));
  window->ShowPage(Page::HotKeys);
  window->Retranslate();
  EXPECT_EQ(window->CurrentPage(), Page::HotKeys);
}

}  // namespace
}  // namespace quill::ui
