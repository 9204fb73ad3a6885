#include <QClipboard>
#include <QListView>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest/QTest>

#include "options_world.h"
#include "ui/windows/options/action_picker.h"
#include "ui/windows/options/key_of_event.h"
#include "ui/windows/options/key_recorder.h"

namespace quill::ui {
namespace {

using platform::HotKeyProblem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Qt::KeyboardModifiers kControlAlt = Qt::ControlModifier | Qt::AltModifier;

struct HotKeysTest : OptionsTest {
  void SetUp() override {
    ASSERT_NE(Open(Page::HotKeys), nullptr);
    table = window->findChild<QTableWidget*>();
    Select("Insert Date");
  }

  int RowOf(const std::string& title) const {
    const auto found = table->findItems(ToQt(title), Qt::MatchExactly);
    return found.isEmpty() ? -1 : found.first()->row();
  }
  void Select(const std::string& title) { table->setCurrentCell(RowOf(title), 0); }

  /// Key and note of an action in the list.
  std::string Line(const std::string& title) const {
    const int row = RowOf(title);
    if (row < 0) return "not in the list";
    return FromQt(table->item(row, 1)->text() + "|" + table->item(row, 2)->text());
  }

  void Record() { ASSERT_TRUE(TabTo("Key for the selected action:")); }

  /// The command thread has saved, and the keys are registered anew.
  void Answer(const std::string& setting, HotKeyProblem of = HotKeyProblem::None) {
    facts.settings.HotKeys = setting;
    facts.hotKeys.clear();
    for (const shell::HotKeyAssignment& one : shell::AssignedHotKeys(setting)) {
      facts.hotKeys.push_back({one.row, one.keys, of});
    }
    window->Update(facts);
  }

  QTableWidget* table = nullptr;
};

// The way most users go: choose the action, press its new key.
TEST_F(HotKeysTest, RecordsAKey) {
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+Shift+D|");
  ASSERT_TRUE(TabTo("Hot keys"));
  Press(Qt::Key_Return);
  EXPECT_TRUE(IsRead("Press the new keys. Backspace removes the key, Esc leaves it as it is."));
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  Picture(*window, "options-recording");
  EXPECT_EQ(Shown(), "Ctrl+…");
  Press(Qt::Key_F5, kControlAlt);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=Control+Option+F5"));
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+F5|");
  Press(Qt::Key_G, kControlAlt);
  EXPECT_THAT(Asked(), IsEmpty()) << "it listens for one key at a time";
  Press(Qt::Key_Return);
  Press(Qt::Key_G, kControlAlt);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=Control+Option+G"));
}

// Escape is the way out of recording first, and of the window only then.
TEST_F(HotKeysTest, EscapeStopsRecording) {
  Record();
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Shown(), "Ctrl+Alt+Shift+D");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  EXPECT_THAT(Asked(), IsEmpty());
}

// A key that would make typing impossible is refused, with what would do instead.
TEST_F(HotKeysTest, ExplainsWhatCannotBeAKey) {
  Record();
  Press(Qt::Key_D, Qt::ShiftModifier);
  EXPECT_TRUE(IsRead("D alone would be lost for typing. Hold Ctrl, Alt or Super down with it."));
  Press(Qt::Key_Home, kControlAlt);
  EXPECT_TRUE(IsRead("Home cannot be a hot key. Letters, digits, F1 to F20 and the space bar can."));
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Alt);
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
  EXPECT_TRUE(
      IsRead("Hold Ctrl, Alt or Super down and press a letter, a digit, a function key or the space bar."));
  EXPECT_THAT(Asked(), IsEmpty());
  Press(Qt::Key_F9);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=F9")) << "it still listens";
}

// A key without modifiers is not typed by accident into the window's own shortcuts.
TEST_F(HotKeysTest, RecordsKeysThatAreShortcutsOfTheWindow) {
  Record();
  Press(Qt::Key_A, Qt::AltModifier);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=Option+A"));
  EXPECT_EQ(window->CurrentPage(), Page::HotKeys);
  Press(Qt::Key_Return);
  Press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=Control+W"));
  EXPECT_TRUE(window->isVisible());
}

// An action without a key stays in the list, or its default could not be brought back.
TEST_F(HotKeysTest, RemovesAKeyAndBringsTheDefaultBack) {
  Record();
  Press(Qt::Key_Backspace);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick="));
  EXPECT_EQ(Line("Insert Date"), "none|");
  ASSERT_TRUE(TabTo("Default"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys="));
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+Shift+D|");
  ASSERT_TRUE(TabTo("Hot keys"));
  Press(Qt::Key_Delete);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick="));
  ASSERT_TRUE(TabTo("Defaults for All"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys="));
}

// Two actions cannot have one key; the user decides which, and sees both results.
TEST_F(HotKeysTest, OffersToTakeAKeyOver) {
  Record();
  Press(Qt::Key_T, kControlAlt | Qt::ShiftModifier);
  EXPECT_TRUE(IsRead("Ctrl+Alt+Shift+T belongs to “Insert Time”. It can be used for one action only."));
  EXPECT_THAT(Asked(), IsEmpty());
  Picture(*window, "options-contested");
  ASSERT_TRUE(TabTo("Use It Here"));
  Press(Qt::Key_Space);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=Control+Option+Shift+T;"
                                   "MenuItemInsertTimeClick="));
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+Shift+T|");
  EXPECT_EQ(Line("Insert Time"), "none|");
  Select("Insert Time");
  ASSERT_TRUE(TabTo("Default"));
  Press(Qt::Key_Space);
  EXPECT_TRUE(IsRead("Ctrl+Alt+Shift+T belongs to “Insert Date”. It can be used for one action only."));
  EXPECT_THAT(Asked(), IsEmpty()) << "the default is taken by now";
}

// The window never sees a key that the program has registered: it comes as the action's press.
TEST_F(HotKeysTest, RecordsTheProgramsOwnKeys) {
  const shell::CommandRow& time = *shell::FindCommand("MenuItemInsertTimeClick");
  EXPECT_FALSE(window->TakePressedHotKey(time)) << "nobody listens: the action runs";
  Record();
  EXPECT_TRUE(window->TakePressedHotKey(time));
  EXPECT_TRUE(IsRead("Ctrl+Alt+Shift+T belongs to “Insert Time”. It can be used for one action only."));
  EXPECT_FALSE(window->TakePressedHotKey(time));
}

// Any action can be given a key, found by a few letters.
TEST_F(HotKeysTest, AddsAKeyForAnotherAction) {
  EXPECT_EQ(Line("UPPER CASE"), "not in the list");
  ASSERT_TRUE(TabTo("Add a Key for Another Action…"));
  Press(Qt::Key_Space);
  auto* picker = WaitForWindow<ActionPicker>();
  ASSERT_NE(picker, nullptr);
  EXPECT_THAT(UnnamedControls(*picker), IsEmpty());
  EXPECT_EQ(picker->findChild<QListView*>()->model()->rowCount(),
            std::count_if(shell::CommandTable().begin(), shell::CommandTable().end(),
                          [](const auto& row) { return row.place != shell::Place::Dynamic; }));
  Picture(*picker, "options-picker");
  Type("upper");
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([this] { return window->isActiveWindow(); }));
  EXPECT_EQ(Line("UPPER CASE"), "none|");
  Press(Qt::Key_U, kControlAlt);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemUpperCaseClick=Control+Option+U"));
  Press(Qt::Key_Delete);
  EXPECT_EQ(Line("UPPER CASE"), "none|");
  EXPECT_THAT(Asked(), ElementsAre("HotKeys="));
}

// Several keys in a row, faster than they are saved, are all kept.
TEST_F(HotKeysTest, KeepsKeysThatAreSetWhileOthersAreSaved) {
  answersLate = true;
  Record();
  Press(Qt::Key_F5);
  Select("Insert Time");
  Press(Qt::Key_Return);
  Press(Qt::Key_F6);
  EXPECT_THAT(Asked(), ElementsAre("HotKeys=MenuItemInsertDateClick=F5",
                                   "HotKeys=MenuItemInsertDateClick=F5;MenuItemInsertTimeClick=F6"));
  late[0]("");
  late[1]("The disk is full.");
  EXPECT_EQ(Line("Insert Date"), "F5|");
  EXPECT_EQ(Line("Insert Time"), "Ctrl+Alt+Shift+T|");
  EXPECT_TRUE(IsRead("The disk is full."));
}

// A key that another program has is told beside it, and only as long as that is true of this very key.
TEST_F(HotKeysTest, TellsWhatBecameOfAKey) {
  Answer("", HotKeyProblem::Taken);
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+Shift+D|Taken");
  EXPECT_TRUE(
      IsRead("Ctrl+Alt+Shift+D is taken by another program. Choose other keys, or free them in that "
             "program."));
  Picture(*window, "options-taken");
  Record();
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  Answer("", HotKeyProblem::Refused);
  EXPECT_EQ(Shown(), "Ctrl+…") << "results do not disturb the recording";
  Press(Qt::Key_F5, kControlAlt);
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+F5|");
  Answer("MenuItemInsertDateClick=Control+Option+F5");
  facts.hotKeys.front().detail = "Meta+F5";
  window->Update(facts);
  EXPECT_EQ(Line("Insert Date"), "Ctrl+Alt+F5|");
}

// Where no program can have keys, the desktop's own shortcuts can run the action.
TEST_F(HotKeysTest, OffersTheCommandWhereKeysAreImpossible) {
  EXPECT_FALSE(TabTo("Command:"));
  facts.hotKeysPossible = false;
  window->Update(facts);
  ASSERT_TRUE(TabTo("Command:"));
  EXPECT_EQ(Shown(), "quill trigger MenuItemInsertDateClick");
  Select("Insert Time");
  Picture(*window, "options-impossible");
  ASSERT_TRUE(TabTo("Copy"));
  Press(Qt::Key_Space);
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), "quill trigger MenuItemInsertTimeClick");
}

// What a key is called must be what is registered for it, on keyboards with other letters, too.
TEST(KeyOfEvent, NamesKeysAsTheyAreRegistered) {
  struct Case {
    int key;
    quint32 scanCode;
    Qt::KeyboardModifiers modifiers;
    std::string name;
  };
  const Case cases[] = {{Qt::Key_D, 40, kControlAlt, "D"},
                        {Qt::Key_Y, 52, kControlAlt, "Y"},  // German: where the US keyboard has Z
                        {Qt::Key_Exclam, 10, kControlAlt | Qt::ShiftModifier, "1"},
                        {Qt::Key_Eacute, 11, kControlAlt, "2"},  // French: a digit needs Shift
                        {0x0412, 40, kControlAlt, "D"},          // Cyrillic
                        {Qt::Key_Comma, 25, kControlAlt, ""},    // Dvorak: the place of W, which is elsewhere
                        {Qt::Key_7, 79, kControlAlt | Qt::KeypadModifier, ""},
                        {Qt::Key_F20, 0, Qt::NoModifier, "F20"},
                        {Qt::Key_F21, 0, Qt::NoModifier, ""},
                        {Qt::Key_Space, 65, Qt::ControlModifier, "Space"}};
  for (const Case& one : cases) {
    const QKeyEvent event(QEvent::KeyPress, one.key, one.modifiers, one.scanCode, 0, 0);
    EXPECT_EQ(KeyNameOf(event), one.name) << std::hex << one.key;
  }
}

}  // namespace
}  // namespace quill::ui
